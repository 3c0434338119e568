// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"
#include "editor/SheetHost.h"

#include <QStringList>

#include <functional>

namespace tavrin {

/// A message with buttons. The first button answers 1000 and is the default, the next 1001, and so on;
/// Escape answers as the cancelling button.
class AlertSheetController : public QVSheetController
{
    Q_OBJECT

public:
    /// No buttons: one "OK". The last button cancels unless setCancelButton() names another.
    AlertSheetController(const QString &messageText,
                         const QString &informativeText,
                         const QStringList &buttons = {});

    QString messageText() const { return g_messageText; }
    QString informativeText() const { return g_informativeText; }
    QStringList buttons() const { return g_buttons; }

    qsizetype cancelButton() const { return g_cancelButton; }
    void setCancelButton(qsizetype index) { g_cancelButton = index; }

    /// The index of a button that throws something away, -1 for none; shown so that it is not hit by mistake.
    qsizetype destructiveButton() const { return g_destructiveButton; }
    void setDestructiveButton(qsizetype index) { g_destructiveButton = index; }

protected:
    int cancelCode() const override { return FirstButton + static_cast<int>(g_cancelButton); }

private:
    QString g_messageText;
    QString g_informativeText;
    QStringList g_buttons;
    qsizetype g_cancelButton;
    qsizetype g_destructiveButton = -1;
};

/// Shows an alert with "OK".
void showAlert(SheetHost &host, const QString &messageText, const QString &informativeText);

} // namespace tavrin
