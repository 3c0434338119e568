// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileContents.h"

#include "base/SharedBytes.h"
#include "document/BinaryDatafile.h"
#include "document/DatafileDocument.h"
#include "document/XmlDatafile.h"
#include "model/DatafileSettingsData.h"
#include "model/ValueRecords.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

Error damaged(const QString &detail)
{
    return {Error::Kind::Corrupt,
            QCoreApplication::translate("DatafileDocument", "The file is damaged, or it is not a datafile."),
            detail};
}

Error missing(const QString &key)
{
    return damaged(u"\"%1\" is missing"_s.arg(key));
}

Error ofWrongType(const QString &key, const QString &expected)
{
    return damaged(u"\"%1\" is not %2"_s.arg(key, expected));
}

Result<plist::Dictionary> dictionaryUnder(const QString &key, const plist::Dictionary &root)
{
    const plist::Value *value = root.find(key);
    if (!value)
        return missing(key);
    if (!value->isDictionary())
        return ofWrongType(key, u"a dictionary"_s);
    return *value->dictionary();
}

/// What is no record cannot be shown or edited; carrying it along unseen would only hide the damage.
Result<> checkRecords(const plist::Dictionary &records)
{
    QString unfit;
    records.forEach([&unfit](const QString &identifier, const plist::Value &record) {
        if (unfit.isNull() && (!record.isDictionary() || identifier.isEmpty()))
            unfit = u"the record \"%1\" is not a dictionary under an identifier"_s.arg(identifier);
    });
    if (!unfit.isNull())
        return damaged(unfit);
    return {};
}

Result<plist::Array> catalogIn(const plist::Dictionary &root)
{
    const plist::Value *value = root.find(RootKey::catalog);
    if (!value)
        return plist::Array();
    if (!value->isArray())
        return ofWrongType(RootKey::catalog, u"an array"_s);
    return *value->array();
}

std::shared_ptr<const RecordSource> recordsIn(const plist::Dictionary &stored, IdentifierTable &identifiers)
{
    std::vector<plist::Dictionary> records;
    records.reserve(static_cast<size_t>(stored.size()));
    identifiers.reserve(static_cast<quint32>(stored.size()));
    stored.forEach([&](const QString &identifier, const plist::Value &record) {
        identifiers.add(identifier);
        records.push_back(*record.dictionary());
    });
    return std::make_shared<const ValueRecords>(std::move(records));
}

/// The contents of a datafile that was read value by value.
Result<DatafileContents> contentsOf(const plist::PropertyList &list, const QString &fileName)
{
    const plist::Dictionary *root = list.root.dictionary();
    if (!root)
        return damaged(u"the root is not a dictionary"_s);
    DatafileContents contents;
    contents.format = list.format;
    root->forEach([&contents](const QString &key, const plist::Value &value) {
        contents.rootEntries.insert(key, RootKey::isPart(key) ? plist::Value(true) : value);
    });
    const Result<plist::Dictionary> settings = dictionaryUnder(RootKey::settings, *root);
    if (!settings)
        return settings.error();
    // Before anything else is judged: a newer format may well have other parts.
    if (const Result<> known = checkFormat(*settings, fileName); !known)
        return known.error();
    contents.settings = *settings;

    const Result<plist::Dictionary> records = dictionaryUnder(RootKey::records, *root);
    if (!records)
        return records.error();
    if (const Result<> checked = checkRecords(*records); !checked)
        return checked.error();
    contents.records = recordsIn(*records, *contents.identifiers);
    const Result<plist::Array> catalog = catalogIn(*root);
    if (!catalog)
        return catalog.error();
    for (const plist::Value &stored : *catalog)
        contents.catalog.push_back(contents.catalogForms.entryWithValue(stored));
    return contents;
}

Result<DatafileContents> contentsOf(const SharedBytes &bytes, const QString &fileName)
{
    if (std::optional<Result<DatafileContents>> contents = readBinaryDatafile(bytes, fileName))
        return *std::move(contents);
    if (std::optional<Result<DatafileContents>> contents = readXmlDatafile(bytes, fileName))
        return *std::move(contents);
    const Result<plist::PropertyList> list = plist::read(bytes.view());
    if (!list)
        return list.error();
    return contentsOf(*list, fileName);
}

} // namespace

Result<> checkFormat(const plist::Dictionary &settings, const QString &fileName)
{
    if (DatafileSettingsData::settingsWithDictionary(settings, nullptr))
        return {};
    return Error{Error::Kind::TooNew,
                 DatafileDocument::tooNewMessage(fileName),
                 u"the format of the settings is too new"_s};
}

Result<DatafileContents> readDatafile(const QString &path, Progress &progress)
{
    // Taken first: a file that changes while it is read counts as changed.
    const FileStamp stamp = FileStamp::of(path);
    const Result<SharedBytes> bytes = SharedBytes::readFile(path, progress);
    if (!bytes)
        return bytes.error();
    Result<DatafileContents> contents = contentsOf(*bytes, QFileInfo(path).fileName());
    if (!contents) {
        Error error = contents.error();
        error.detail = path + u": "_s + error.detail;
        return error;
    }
    contents->path = path;
    contents->stamp = stamp;
    return contents;
}

} // namespace tavrin
