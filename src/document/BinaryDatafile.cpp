// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/BinaryDatafile.h"

#include "document/DatafileSnapshot.h"
#include "model/BinaryRecords.h"
#include "plist/BinaryCheck.h"
#include "plist/BinaryReader.h"

namespace tavrin {

namespace {

/// Takes the parts of a datafile out of its root.
class BinaryDatafileReader
{
public:
    /// plist::checkObjects() has accepted the table, which is that of the bytes.
    BinaryDatafileReader(const SharedBytes &bytes, const plist::BinaryTable &table)
        : g_bytes(bytes)
        , g_table(table)
    {}

    /// False when it is unusual.
    bool read();

    DatafileContents &contents() { return g_contents; }

private:
    bool readEntry(const QString &key, quint64 value);
    bool readRecords(quint64 records);
    bool readCatalog(quint64 catalog);

    SharedBytes g_bytes;
    const plist::BinaryTable &g_table;
    DatafileContents g_contents;
    std::optional<quint64> g_catalog;
};

bool BinaryDatafileReader::read()
{
    g_contents.format = plist::Format::Binary;
    const Result<plist::BinaryTable::Object> root = g_table.object(g_table.root());
    if (!root || !root->isDictionary())
        return false;
    const qsizetype count = g_table.memberCount(*root);
    for (qsizetype place = 0; place < count; ++place) {
        const QString key = plist::readBinaryObject(g_table, g_table.member(*root, place)).toText();
        if (g_contents.rootEntries.contains(key) || !readEntry(key, g_table.valueMember(*root, place)))
            return false;
    }
    // The records come first, because their identifiers do.
    return g_contents.records && g_contents.rootEntries.contains(RootKey::settings)
           && (!g_catalog || readCatalog(*g_catalog));
}

bool BinaryDatafileReader::readEntry(const QString &key, quint64 value)
{
    if (RootKey::isPart(key))
        g_contents.rootEntries.insert(key, true);
    if (key == RootKey::records)
        return readRecords(value);
    if (key == RootKey::catalog) {
        g_catalog = value;
        return true;
    }
    const plist::Value entry = plist::readBinaryObject(g_table, value);
    if (key != RootKey::settings) {
        g_contents.rootEntries.insert(key, entry);
        return !entry.isNull();
    }
    if (!entry.isDictionary())
        return false;
    g_contents.settings = *entry.dictionary();
    return true;
}

bool BinaryDatafileReader::readRecords(quint64 records)
{
    auto source = std::make_shared<BinaryRecords>(g_bytes, g_table);
    if (!source->index(records, *g_contents.identifiers))
        return false;
    g_contents.records = std::move(source);
    return true;
}

bool BinaryDatafileReader::readCatalog(quint64 catalog)
{
    const Result<plist::BinaryTable::Object> entries = g_table.object(catalog);
    if (!entries || !entries->isArray())
        return false;
    const qsizetype count = g_table.memberCount(*entries);
    g_contents.catalog.reserve(static_cast<size_t>(count));
    for (qsizetype place = 0; place < count; ++place) {
        const plist::Value entry = plist::readBinaryObject(g_table, g_table.member(*entries, place));
        g_contents.catalog.push_back(g_contents.catalogForms.entryWithValue(entry));
    }
    return true;
}

} // namespace

std::optional<Result<DatafileContents>> readBinaryDatafile(const SharedBytes &bytes, const QString &fileName)
{
    if (!bytes.view().startsWith(plist::binaryMagic))
        return {};
    const Result<plist::BinaryTable> table = plist::BinaryTable::of(bytes.view());
    if (!table)
        return table.error();
    if (const Result<> checked = plist::checkObjects(*table); !checked) {
        if (checked.error().kind == Error::Kind::Unsupported)
            return {};
        return checked.error();
    }
    BinaryDatafileReader reader(bytes, *table);
    if (!reader.read())
        return {};
    if (const Result<> known = checkFormat(reader.contents().settings, fileName); !known)
        return known.error();
    return std::move(reader.contents());
}

Result<> checkBinaryDatafile(QByteArrayView bytes, const DatafileSnapshot &snapshot)
{
    const auto contents = readBinaryDatafile(SharedBytes::unowned(bytes), QString());
    if (!contents) // An unusual datafile, all of whose objects are sound.
        return {};
    if (!*contents)
        return notAsWritten((*contents).error().detail);
    if ((*contents)->records->count() != snapshot.records.entries.size())
        return notAsWritten(QStringLiteral("other records"));
    return {};
}

} // namespace tavrin
