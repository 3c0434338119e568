// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <variant>

namespace tavrin {

struct RecordAdded
{
    QString identifier;
    QString afterIdentifier; ///< Empty: at the beginning.
};
struct RecordWillBeDeleted
{
    QString identifier;
};
struct RecordDeleted
{
    QString identifier;
};
/// Content or bookkeeping of one record changed.
struct RecordChanged
{
    QString identifier;
};
/// Contents or bookkeeping of many records changed.
struct RecordsChanged
{
};
/// Order or selection of the catalog changed.
struct CatalogChanged
{
};
/// The field definitions changed.
struct FieldFormatChanged
{
};
/// Another setting changed.
struct SettingsChanged
{
};
/// Everything was read again from the file.
struct DatafileReverted
{
};

/// What happened to a DatafileDocument. A listener visits it; a new alternative fails to compile until every
/// listener says what it does with it.
using DatafileChange = std::variant<RecordAdded,
                                    RecordWillBeDeleted,
                                    RecordDeleted,
                                    RecordChanged,
                                    RecordsChanged,
                                    CatalogChanged,
                                    FieldFormatChanged,
                                    SettingsChanged,
                                    DatafileReverted>;

} // namespace tavrin
