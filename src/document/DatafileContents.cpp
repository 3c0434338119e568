// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileContents.h"

#include "base/DurableFile.h"
#include "document/DatafileDocument.h"
#include "model/DatafileSettingsData.h"

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

/// The root's keys with their values, but for the parts that live on as objects: these leave their place
/// only.
plist::Dictionary rootEntriesOf(const plist::Dictionary &root)
{
    plist::Dictionary entries;
    root.forEach([&entries](const QString &key, const plist::Value &value) {
        const bool isPart = key == RootKey::settings || key == RootKey::records || key == RootKey::catalog;
        entries.insert(key, isPart ? plist::Value(true) : value);
    });
    return entries;
}

Result<DatafileContents> contentsOf(const plist::PropertyList &list, const QString &fileName)
{
    const plist::Dictionary *root = list.root.dictionary();
    if (!root)
        return damaged(u"the root is not a dictionary"_s);
    DatafileContents contents;
    contents.format = list.format;
    contents.rootEntries = rootEntriesOf(*root);
    const Result<plist::Dictionary> settings = dictionaryUnder(RootKey::settings, *root);
    if (!settings)
        return settings.error();
    // Before anything else is judged: a newer format may well have other parts.
    if (!DatafileSettingsData::settingsWithDictionary(*settings, nullptr))
        return Error{Error::Kind::TooNew,
                     DatafileDocument::tooNewMessage(fileName),
                     u"the format of the settings is too new"_s};
    contents.settings = *settings;

    const Result<plist::Dictionary> records = dictionaryUnder(RootKey::records, *root);
    if (!records)
        return records.error();
    if (const Result<> checked = checkRecords(*records); !checked)
        return checked.error();
    contents.records = *records;
    const Result<plist::Array> catalog = catalogIn(*root);
    if (!catalog)
        return catalog.error();
    contents.catalog = *catalog;
    return contents;
}

} // namespace

Result<DatafileContents> readDatafile(const QString &path, Progress &progress)
{
    // Taken first: a file that changes while it is read counts as changed.
    const FileStamp stamp = FileStamp::of(path);
    const Result<QByteArray> bytes = readWhole(path);
    if (!bytes)
        return bytes.error();
    if (progress.isCancelled())
        return Error{Error::Kind::Cancelled, {}, path};
    const auto inThisFile = [&path](Error error) {
        error.detail = path + u": "_s + error.detail;
        return error;
    };
    const Result<plist::PropertyList> list = plist::read(*bytes);
    if (!list)
        return inThisFile(list.error());
    Result<DatafileContents> contents = contentsOf(*list, QFileInfo(path).fileName());
    if (!contents)
        return inThisFile(contents.error());
    contents->path = path;
    contents->stamp = stamp;
    return contents;
}

} // namespace tavrin
