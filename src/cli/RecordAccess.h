// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/Command.h"

#include <QJsonObject>

#include <vector>

namespace tavrin {

/// A field as a person names it on the command line: one of the datafile's, or the text.
struct NamedField
{
    QString name;       ///< As shown.
    QString identifier; ///< Null for the text.

    bool isText() const { return identifier.isNull(); }
    QString contentIn(const RecordView &record) const;
};

/// By "Text", by "id:IDENTIFIER" or by name. NotFound; Refused when several fields have the name.
Result<NamedField> fieldNamed(const QString &name, const DatafileSettingsData &settings);
Result<QList<NamedField>> fieldsNamed(const QStringList &names, const DatafileSettingsData &settings);
/// All fields of the datafile, in their order, without the text.
QList<NamedField> allFields(const DatafileSettingsData &settings);

/// Names between commas; a comma or a backslash in a name has a backslash before it.
QStringList splitNames(const QString &names);

/// A record of a document and where it stands. Valid until the record is changed.
struct PlacedRecord
{
    std::optional<RecordView> record; ///< Never none.
    QString identifier;
    std::optional<qint64> number; ///< Counts the selected records from 1; none for an omitted one.
};

/// By number or identifier; "id:" before an identifier keeps one that is all digits from being a number.
Result<PlacedRecord> recordNamed(const QString &name, const DatafileDocument &document);

/// The records of the catalog in its order. Entries that name no record are passed over, but count.
std::vector<PlacedRecord> recordsOfCatalog(const DatafileDocument &document, bool omittedToo);

/// A record as `list` gives it.
QJsonObject recordObject(const PlacedRecord &placed, const QList<NamedField> &fields);

/// How many records are selected, as the commands that select give it.
void writeSelected(const Call &call, const DatafileDocument &document);

/// A record as the commands that change one give it: as `list` does, or whole for people.
void writeRecord(const Call &call, const PlacedRecord &placed, const DatafileSettingsData &settings);
void writeRecordForPeople(Output &output, const PlacedRecord &placed, const DatafileSettingsData &settings);

} // namespace tavrin
