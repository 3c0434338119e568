// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/RecordAccess.h"

#include "cli/Json.h"
#include "cli/Table.h"
#include "io/RecordFiles.h"

#include <QJsonArray>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView identifierPrefix = u"id:";

Error notFound(const QString &message)
{
    return {Error::Kind::NotFound, message, {}};
}

bool isNumber(const QString &text)
{
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    return !text.isEmpty() && std::ranges::all_of(text, isDigit);
}

Result<PlacedRecord> recordWithNumber(const QString &name, const DatafileDocument &document)
{
    const SubsetSortedData &catalog = document.datafileCatalog();
    bool fits = false;
    const qint64 number = name.toLongLong(&fits);
    const QString identifier = fits ? catalog.selectedIdentifierAtIndex(number - 1) : QString();
    if (identifier.isNull())
        return notFound(Cli::tr("There is no record number %1; %2 records are selected.")
                            .arg(name, QString::number(catalog.countSelected())));
    const std::optional<RecordView> record = document.datafileRecords().view(identifier);
    if (!record)
        return notFound(Cli::tr("Record number %1 is listed, but not there.").arg(name));
    return PlacedRecord{record, identifier, number};
}

QString yesOrNo(bool value)
{
    return value ? Cli::tr("yes") : Cli::tr("no");
}

QString dateAndPerson(Date date, const QString &person)
{
    return Cli::tr("%1 by %2").arg(isoText(date), singleLine(person));
}

} // namespace

QString NamedField::contentIn(const RecordView &record) const
{
    return (isText() ? record.textString() : record.fieldValue(identifier)).toString();
}

Result<NamedField> fieldNamed(const QString &name, const DatafileSettingsData &settings)
{
    if (name == u"Text")
        return NamedField{settings.textName(), {}};
    if (name.startsWith(identifierPrefix)) {
        const QString identifier = name.sliced(identifierPrefix.size());
        const FieldDefinition *field =
            identifier.isEmpty() ? nullptr : settings.fieldWithIdentifier(identifier);
        if (!field)
            return notFound(Cli::tr("There is no field %1.").arg(name));
        return NamedField{field->name(), field->identifier()};
    }
    QList<NamedField> found;
    for (const NamedField &field : allFields(settings)) {
        if (field.name == name)
            found.append(field);
    }
    if (found.isEmpty())
        return notFound(Cli::tr("There is no field \"%1\".").arg(name));
    if (found.size() == 1)
        return found.first();
    QStringList choices;
    for (const NamedField &field : found)
        choices.append(u"id:"_s + field.identifier);
    return Error{Error::Kind::Refused,
                 Cli::tr("The name \"%1\" is ambiguous; name the field as one of: %2.")
                     .arg(name, choices.join(u", "_s)),
                 {}};
}

Result<QList<NamedField>> fieldsNamed(const QStringList &names, const DatafileSettingsData &settings)
{
    QList<NamedField> fields;
    for (const QString &name : names) {
        const Result<NamedField> field = fieldNamed(name, settings);
        if (!field)
            return field.error();
        fields.append(*field);
    }
    return fields;
}

QList<NamedField> allFields(const DatafileSettingsData &settings)
{
    QList<NamedField> fields;
    for (const FieldDefinition &field : settings.fields()) {
        // A definition without identifier has no contents; it keeps its place all the same.
        const QString identifier = field.identifier();
        fields.append({field.name(), identifier.isNull() ? u""_s : identifier});
    }
    return fields;
}

QStringList splitNames(const QString &names)
{
    QStringList result{u""_s};
    bool escaped = false;
    for (const QChar character : names) {
        if (!escaped && character == u'\\') {
            escaped = true;
            continue;
        }
        if (!escaped && character == u',')
            result.append(u""_s);
        else
            result.last() += character;
        escaped = false;
    }
    for (QString &name : result)
        name = name.trimmed();
    return result;
}

Result<PlacedRecord> recordNamed(const QString &name, const DatafileDocument &document)
{
    if (isNumber(name))
        return recordWithNumber(name, document);
    const QString identifier =
        name.startsWith(identifierPrefix) ? name.sliced(identifierPrefix.size()) : name;
    const std::optional<RecordView> record = document.datafileRecords().view(identifier);
    if (!record)
        return notFound(Cli::tr("There is no record \"%1\".").arg(identifier));
    const qint64 index = document.datafileCatalog().indexOfSelectedIdentifier(identifier);
    return PlacedRecord{record, identifier, index == NotFound ? std::optional<qint64>() : index + 1};
}

std::vector<PlacedRecord> recordsOfCatalog(const DatafileDocument &document, bool omittedToo)
{
    const SubsetSortedData &catalog = document.datafileCatalog();
    std::vector<PlacedRecord> records;
    records.reserve(static_cast<size_t>(omittedToo ? catalog.count() : catalog.countSelected()));
    qint64 selected = 0;
    for (qint64 i = 0; i < catalog.count(); ++i) {
        const CatalogEntry &entry = *catalog.objectAtIndex(i);
        const bool isSelected = entry.currentlySelected();
        if (isSelected)
            ++selected;
        if (!isSelected && !omittedToo)
            continue;
        const QString identifier = catalog.identifierAtIndex(i);
        if (const std::optional<RecordView> record = document.datafileRecords().view(identifier))
            records.push_back({record, identifier, isSelected ? std::optional(selected) : std::nullopt});
    }
    return records;
}

QJsonObject recordObject(const PlacedRecord &placed, const QList<NamedField> &fields)
{
    const RecordView &record = *placed.record;
    QJsonArray values;
    for (const NamedField &field : fields)
        values.append(QJsonValue(field.contentIn(record)));
    QJsonObject object = jsonOfState(record);
    object.insert(u"number"_s, placed.number ? QJsonValue(*placed.number) : QJsonValue());
    object.insert(u"identifier"_s, placed.identifier);
    object.insert(u"selected"_s, placed.number.has_value());
    object.insert(u"values"_s, values);
    object.insert(u"text"_s, record.textString().toString());
    return object;
}

void writeSelected(const Call &call, const DatafileDocument &document)
{
    const qint64 selected = document.datafileCatalog().countSelected();
    const qint64 records = document.datafileRecords().count();
    if (call.wantsJson())
        writeJson(call.output, {{u"selected"_s, selected}, {u"records"_s, records}});
    else
        call.output.writeLine(Cli::tr("Selected: %1 of %2.").arg(selected).arg(records));
}

void writeRecord(const Call &call, const PlacedRecord &placed, const DatafileSettingsData &settings)
{
    if (call.wantsJson())
        writeJson(call.output, recordObject(placed, allFields(settings)));
    else
        writeRecordForPeople(call.output, placed, settings);
}

void writeRecordForPeople(Output &output, const PlacedRecord &placed, const DatafileSettingsData &settings)
{
    const RecordView &record = *placed.record;
    QList<std::pair<QString, QString>> pairs{
        {Cli::tr("Record"), placed.number ? QString::number(*placed.number) : Cli::tr("omitted")},
        {Cli::tr("Identifier"), singleLine(placed.identifier)},
        {Cli::tr("Locked"), yesOrNo(record.recordLocked())},
        {Cli::tr("Created"), dateAndPerson(record.createdDate(), record.createdBy())},
        {Cli::tr("Modified"), dateAndPerson(record.modifiedDate(), record.modifiedBy())},
        {Cli::tr("Viewed"), dateAndPerson(record.viewedDate(), record.viewedBy())}};
    writePairs(output, pairs);
    pairs.clear();
    for (const NamedField &field : allFields(settings))
        pairs.append({singleLine(field.name), singleLine(field.contentIn(record))});
    output.writeLine({});
    writePairs(output, pairs);
    if (const QString text = record.textString().toString(); !text.isEmpty()) {
        output.writeLine({});
        output.writeLine(printable(text));
    }
}

} // namespace tavrin
