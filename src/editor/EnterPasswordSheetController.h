// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"

#include <QString>

namespace tavrin {

/// The question for a datafile's password. Accepting with a wrong one keeps the sheet open; opening
/// read-only and cancelling both answer SecondButton.
class EnterPasswordSheetController : public QVSheetController
{
    Q_OBJECT

public:
    explicit EnterPasswordSheetController(const QString &password) : g_password(password) {}

    QString entry() const { return g_entry; }
    void setEntry(const QString &entry);

    bool isAcceptable() const override { return !g_entry.isEmpty(); }
    void accept() override;
    void openReadOnly() { finish(SecondButton); }

    /// The sheet ended with the right password.
    bool goodPasswordEntered() const { return g_goodPasswordEntered; }

Q_SIGNALS:
    /// Time to beep and to select the entry.
    void wrongPassword();

private:
    QString g_password;
    QString g_entry;
    bool g_goodPasswordEntered = false;
};

} // namespace tavrin
