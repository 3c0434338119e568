// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/InfoCommand.h"

#include "cli/DatafileAccess.h"
#include "cli/Json.h"
#include "cli/Table.h"

#include <QJsonArray>
#include <QSet>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

QString nameOf(plist::Format format)
{
    switch (format) {
    case plist::Format::Xml:
        return u"xml"_s;
    case plist::Format::Binary:
        return u"binary"_s;
    case plist::Format::Ascii:
        return u"ascii"_s;
    }
    return {};
}

QString nameOf(DatafileKind kind)
{
    return kind == DatafileKind::Pro ? u"pro"_s : u"mobile"_s;
}

qint64 catalogCount(const DatafileDocument &document)
{
    // A missing catalog has been replaced on reading; said is what the file has.
    const std::optional<CatalogMismatch> mismatch = document.catalogMismatch();
    return mismatch ? mismatch->catalogCount : document.datafileCatalog().count();
}

/// Each record has one entry, and each entry a record.
bool catalogMatches(const DatafileDocument &document)
{
    if (document.catalogMismatch())
        return false;
    const SubsetSortedData &catalog = document.datafileCatalog();
    QSet<QString> seen;
    seen.reserve(catalog.count());
    for (qint64 i = 0; i < catalog.count(); ++i) {
        const QString identifier = catalog.identifierAtIndex(i);
        if (!document.datafileRecords().contains(identifier) || seen.contains(identifier))
            return false;
        seen.insert(identifier);
    }
    return seen.size() == document.datafileRecords().count();
}

QJsonObject criteriaOf(const DatafileSettingsData &settings)
{
    const plist::Value criteria = settings.objectForKey(u"Criteria"_s);
    return criteria.isDictionary() ? jsonOf(*criteria.dictionary()) : QJsonObject();
}

QJsonObject infoObject(const DatafileDocument &document, plist::Format format)
{
    const DatafileSettingsData &settings = document.datafileSettings();
    QJsonArray fields;
    for (const FieldDefinition &field : settings.fields()) {
        fields.append(QJsonObject{{u"identifier"_s, field.identifier()},
                                  {u"name"_s, field.name()},
                                  {u"width"_s, field.width()},
                                  {u"show"_s, field.show()}});
    }
    return {{u"kind"_s, nameOf(document.kind())},
            {u"format"_s, nameOf(format)},
            {u"records"_s, static_cast<qint64>(document.datafileRecords().count())},
            {u"catalog"_s, catalogCount(document)},
            {u"selected"_s, document.datafileCatalog().countSelected()},
            {u"fields"_s, fields},
            {u"textName"_s, settings.textName()},
            {u"mode"_s, settings.mode()},
            {u"dataFormat"_s, settings.dataFormat()},
            {u"readOnly"_s, settings.readOnly()},
            {u"networkShared"_s, settings.networkShared()},
            {u"hasPassword"_s, !settings.password().isEmpty()},
            {u"syncID"_s, settings.syncID()},
            {u"criteria"_s, criteriaOf(settings)},
            {u"catalogMatches"_s, catalogMatches(document)}};
}

void writeInfoForPeople(Output &output, const DatafileDocument &document, plist::Format format)
{
    const DatafileSettingsData &settings = document.datafileSettings();
    QStringList fields;
    for (const FieldDefinition &field : settings.fields())
        fields.append(singleLine(field.name()));
    QStringList remarks;
    if (settings.readOnly())
        remarks.append(Cli::tr("always opened read-only"));
    if (settings.networkShared())
        remarks.append(Cli::tr("shared on a network"));
    if (!settings.password().isEmpty())
        remarks.append(Cli::tr("has a password"));
    if (!catalogMatches(document))
        remarks.append(Cli::tr("catalog and records disagree"));
    writePairs(output,
               {{Cli::tr("Kind"), typeNameOf(document.kind())},
                {Cli::tr("Format"), nameOf(format)},
                {Cli::tr("Records"), QString::number(document.datafileRecords().count())},
                {Cli::tr("Selected"), QString::number(document.datafileCatalog().countSelected())},
                {Cli::tr("Fields"), fields.join(u", "_s)},
                {Cli::tr("Text"), singleLine(settings.textName())},
                {Cli::tr("Opens in"), singleLine(settings.mode())},
                {Cli::tr("Remarks"), remarks.isEmpty() ? Cli::tr("none") : remarks.join(u", "_s)}});
}

ExitStatus runInfo(Call &call)
{
    const auto document = openDatafile(call, call.arguments.operand(0));
    if (!document)
        return call.failed(document.error());
    writeInfo(call, **document, (*document)->formatRead());
    return ExitStatus::Done;
}

} // namespace

void writeInfo(const Call &call, const DatafileDocument &document, plist::Format format)
{
    if (call.wantsJson())
        writeJson(call.output, infoObject(document, format));
    else
        writeInfoForPeople(call.output, document, format);
}

Command infoCommand()
{
    return {u"info"_s, u"FILE"_s, 1, 1, Cli::tr("Says what a datafile holds."), {}, {}, runInfo};
}

} // namespace tavrin
