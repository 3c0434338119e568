// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"

#include <QString>

namespace tavrin {

/// Which record to go to, or to move one behind: a number from 1 to the count of selected records.
class GotoRecordSheetController : public QVSheetController
{
    Q_OBJECT

public:
    enum class Purpose { GoTo, MoveAfter };

    explicit GotoRecordSheetController(qint64 maximum, Purpose purpose = Purpose::GoTo)
        : g_maximum(maximum)
        , g_purpose(purpose)
    {}

    Purpose purpose() const { return g_purpose; }
    qint64 maximum() const { return g_maximum; }

    QString entry() const { return g_entry; }
    void setEntry(const QString &entry);

    /// The record that the entry names, counted from 0; -1 while it names none.
    qint64 index() const;

    bool isAcceptable() const override { return index() >= 0; }

private:
    qint64 g_maximum;
    Purpose g_purpose;
    QString g_entry;
};

} // namespace tavrin
