// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileCheck.h"

#include "base/DurableFile.h"
#include "document/DatafileContents.h"
#include "document/DatafileDocument.h"

#include <QFileInfo>

#include <array>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

struct TypedKey
{
    QString key;
    plist::ValueType type;
};

/// The keys of a record that nothing but their own type can stand for; text and flags are read leniently.
const std::array<TypedKey, 5> &typedKeysOfRecord()
{
    using Type = plist::ValueType;
    static const std::array<TypedKey, 5> keys{{{u"Fields"_s, Type::Dictionary},
                                               {u"TextRTFD"_s, Type::Data},
                                               {u"RecordCreatedDate"_s, Type::Date},
                                               {u"RecordModifiedDate"_s, Type::Date},
                                               {u"RecordViewedDate"_s, Type::Date}}};
    return keys;
}

bool isTextual(const plist::Value &value)
{
    return !value.toText().isNull();
}

} // namespace

void DatafileCheck::report(const QString &code, const QString &message)
{
    ++g_faultCount;
    g_receiver({code, message});
}

void DatafileCheck::reportCatalog(const QString &code, const QString &message)
{
    ++g_catalogFaultCount;
    report(code, message);
}

void DatafileCheck::check(const QString &path)
{
    const Result<QByteArray> bytes = readWhole(path);
    if (!bytes)
        return report(u"unreadable"_s, bytes.error().message);
    const Result<plist::PropertyList> list = plist::read(*bytes);
    if (!list)
        return report(u"unreadable"_s, tr("The file is no property list: %1.").arg(list.error().detail));
    if (!list->root.isDictionary())
        return report(u"wrong-type"_s, tr("The file holds something else than a dictionary."));
    checkRoot(*list->root.dictionary(), QFileInfo(path).fileName());
}

void DatafileCheck::checkRoot(const plist::Dictionary &root, const QString &fileName)
{
    if (!checkSettings(root, fileName))
        return;
    const plist::Dictionary *records = recordsIn(root);
    if (!records)
        return;
    records->forEach(
        [this](const QString &identifier, const plist::Value &stored) { checkRecord(identifier, stored); });
    checkCatalog(root.find(RootKey::catalog), *records, fileName);
}

/// False when the format is too new: then the rest may mean anything.
bool DatafileCheck::checkSettings(const plist::Dictionary &root, const QString &fileName)
{
    const plist::Value *stored = root.find(RootKey::settings);
    if (!stored) {
        report(u"missing-settings"_s, tr("The settings are missing."));
        return true;
    }
    if (!stored->isDictionary()) {
        report(u"wrong-type"_s, tr("The settings are not a dictionary."));
        return true;
    }
    DatafileSettingsData settings;
    settings.setDictionary(*stored->dictionary());
    if (settings.dataFormat() > DatafileSettingsData::currentFormat()) {
        report(u"newer-format"_s, DatafileDocument::tooNewMessage(fileName));
        return false;
    }
    checkDefinitions(*stored->dictionary());
    return true;
}

void DatafileCheck::checkDefinitions(const plist::Dictionary &settings)
{
    const plist::Value *stored = settings.find(u"Fields"_s);
    if (!stored)
        return;
    if (!stored->isArray())
        return report(u"wrong-type"_s, tr("The field definitions are not an array."));
    for (const plist::Value &value : *stored->array()) {
        if (!value.isDictionary()) {
            report(u"wrong-type"_s, tr("A field definition is not a dictionary."));
            continue;
        }
        const FieldDefinition field(*value.dictionary());
        if (field.identifier().isEmpty())
            report(u"definition-without-identifier"_s,
                   tr("The field \"%1\" has no identifier.").arg(field.name()));
        else if (g_fieldIdentifiers.contains(field.identifier()))
            report(u"doubled-definition"_s,
                   tr("The field \"%1\" has the identifier of another field.").arg(field.name()));
        g_fieldIdentifiers.insert(field.identifier());
    }
}

const plist::Dictionary *DatafileCheck::recordsIn(const plist::Dictionary &root)
{
    const plist::Value *stored = root.find(RootKey::records);
    if (!stored)
        report(u"missing-records"_s, tr("The records are missing."));
    else if (!stored->isDictionary())
        report(u"wrong-type"_s, tr("The records are not a dictionary."));
    return stored ? stored->dictionary() : nullptr;
}

void DatafileCheck::checkRecord(const QString &identifier, const plist::Value &stored)
{
    if (identifier.isEmpty())
        report(u"record-without-identifier"_s, tr("A record stands under no identifier."));
    const plist::Dictionary *record = stored.dictionary();
    if (!record)
        return report(u"wrong-type"_s, tr("The record \"%1\" is not a dictionary.").arg(identifier));
    const plist::Value *own = record->find(u"RecordIdentifier"_s);
    if (own && own->toText() != identifier)
        report(u"other-identifier"_s,
               tr(R"(The record "%1" says that its identifier is "%2".)").arg(identifier, own->toText()));
    for (const TypedKey &typed : typedKeysOfRecord()) {
        const plist::Value *value = record->find(typed.key);
        if (value && value->type() != typed.type)
            report(u"wrong-type"_s,
                   tr(R"("%1" of the record "%2" is of the wrong type.)").arg(typed.key, identifier));
    }
    const plist::Value *text = record->find(u"TextString"_s);
    if (text && !isTextual(*text))
        report(u"wrong-type"_s, tr("The text of the record \"%1\" is not text.").arg(identifier));
    checkContents(identifier, *record);
}

void DatafileCheck::checkContents(const QString &identifier, const plist::Dictionary &record)
{
    const plist::Value *stored = record.find(u"Fields"_s);
    const plist::Dictionary *contents = stored ? stored->dictionary() : nullptr;
    if (!contents)
        return;
    contents->forEach([&](const QString &field, const plist::Value &content) {
        if (!isTextual(content))
            report(u"wrong-type"_s,
                   tr(R"(The record "%1" has other than text in the field "%2".)").arg(identifier, field));
        else if (!g_fieldIdentifiers.contains(field) && !content.toText().isEmpty())
            report(u"content-without-definition"_s,
                   tr(R"(The record "%1" has content in the field "%2", which is not defined.)")
                       .arg(identifier, field));
    });
}

void DatafileCheck::checkCatalog(const plist::Value *catalog,
                                 const plist::Dictionary &records,
                                 const QString &fileName)
{
    if (catalog && !catalog->isArray())
        return report(u"wrong-type"_s, tr("The catalog is not an array."));
    const plist::Array entries = catalog ? *catalog->array() : plist::Array();
    if (entries.size() != records.size())
        reportCatalog(u"catalog-count"_s,
                      DatafileDocument::catalogMismatchMessage(fileName, {entries.size(), records.size()}));
    if (catalog)
        checkEntries(entries, records);
    else if (!records.isEmpty())
        reportCatalog(u"missing-catalog"_s, tr("The catalog is missing."));
}

void DatafileCheck::checkEntries(const plist::Array &entries, const plist::Dictionary &records)
{
    QSet<QString> named;
    named.reserve(entries.size());
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const plist::Dictionary *entry = entries[i].dictionary();
        const QString identifier = entry ? entry->value(u"Identifier"_s).toText() : QString();
        if (identifier.isEmpty()) {
            reportCatalog(u"wrong-type"_s, tr("The catalog's entry %1 names nothing.").arg(i + 1));
            continue;
        }
        if (named.contains(identifier))
            reportCatalog(u"doubled-entry"_s,
                          tr("The catalog names the record \"%1\" more than once.").arg(identifier));
        else if (!records.contains(identifier))
            reportCatalog(u"entry-without-record"_s,
                          tr("The catalog names the record \"%1\", which is not there.").arg(identifier));
        named.insert(identifier);
    }
    records.forEach([&](const QString &identifier, const plist::Value &) {
        if (!named.contains(identifier))
            reportCatalog(u"record-without-entry"_s,
                          tr("The catalog does not name the record \"%1\".").arg(identifier));
    });
}

} // namespace tavrin
