// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"

#include <QString>

#include <functional>
#include <optional>

namespace tavrin {

/// Which record to go to: a number from 1 to the count of selected records, or how a record's title begins.
class GotoRecordSheetController : public QVSheetController
{
    Q_OBJECT

public:
    /// Finds the first record whose title begins so, counted from 0; -1 when there is none.
    using TitleSearch = std::function<qint64(const QString &start)>;

    explicit GotoRecordSheetController(qint64 maximum, TitleSearch search = {});

    qint64 maximum() const { return g_maximum; }

    QString entry() const { return g_entry; }
    void setEntry(const QString &entry);

    /// The record that the entry names, counted from 0; -1 while it names none. Titles are looked through
    /// when the sheet is accepted, not at every key.
    qint64 index() const;
    /// Why the entry names no record, for people; empty when it does, or while that is not known.
    QString problem() const;

    /// A number has to be that of a record; any other entry is taken for a title's start.
    bool isAcceptable() const override;
    void accept() override;

private:
    std::optional<qint64> number() const;

    qint64 g_maximum;
    TitleSearch g_search;
    qint64 g_found = -1;
    bool g_notFound = false;
    QString g_entry;
};

} // namespace tavrin
