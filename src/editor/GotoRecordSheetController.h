// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"
#include "editor/TitleSearch.h"

#include <QString>

#include <memory>
#include <optional>

namespace tavrin {

/// Which record to go to: a number from 1 to the count of selected records, or how a record's title begins.
/// Or which to move one behind: a number.
class GotoRecordSheetController : public QVSheetController
{
    Q_OBJECT

public:
    enum class Purpose { GoTo, MoveAfter };

    /// Without a search, only a number is accepted. The name is that of the field with the titles.
    explicit GotoRecordSheetController(qint64 maximum,
                                       Purpose purpose = Purpose::GoTo,
                                       std::unique_ptr<TitleSearch> search = {},
                                       const QString &titleName = {});

    Purpose purpose() const { return g_purpose; }
    QString titleName() const { return g_titleName; }
    qint64 maximum() const { return g_maximum; }

    QString entry() const { return g_entry; }
    void setEntry(const QString &entry);

    /// The record that the entry names, counted from 0; -1 while it names none. Titles are looked through
    /// when the sheet is accepted, not at every key.
    qint64 index() const;
    /// Why the entry names no record, or not yet, for people; empty when it does, or nobody asked.
    QString problem() const;

    /// A number has to be that of a record; any other entry is taken for a title's start.
    bool isAcceptable() const override;
    /// With a title's start, the sheet ends as soon as a record is found.
    void accept() override;

private:
    void searched(qint64 index);
    std::optional<qint64> number() const;

    qint64 g_maximum;
    Purpose g_purpose;
    std::unique_ptr<TitleSearch> g_search;
    QString g_titleName;
    qint64 g_found = -1;
    bool g_isSearching = false;
    bool g_notFound = false;
    QString g_entry;
};

} // namespace tavrin
