// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileSnapshot.h"

#include "base/DurableFile.h"
#include "document/BinaryDatafile.h"
#include "document/DatafileContents.h"
#include "document/XmlDatafile.h"
#include "model/ElementSource.h"
#include "plist/XmlWriter.h"

#include <QCoreApplication>

namespace tavrin {

namespace {

void writeCatalog(const CatalogSnapshot &catalog, plist::XmlWriter &writer)
{
    if (catalog.order.count() == 0) {
        writer.writeValue(plist::Array(), 1);
        return;
    }
    writer.beginContainer("array", 1);
    catalog.order.forEach(
        [&](const CatalogEntry &entry) { writer.writeValue(catalog.forms.valueOf(entry), 2); });
    writer.endContainer("array", 1);
}

/// Whether the record behind that one stands right behind it, with nothing between them but what would be
/// written there.
bool follows(const RecordsSnapshot &records, size_t place)
{
    constexpr QByteArrayView before("\n\t\t<key>");
    constexpr QByteArrayView behind("</key>\n\t\t");
    const RecordsSnapshot::Entry &next = records.entries[place + 1];
    const QByteArrayView copied = records.xml(records.entries[place]);
    const QByteArrayView stored = records.xml(next);
    const QByteArrayView identifier = records.identifiers->bytes(next.identifier);
    const qsizetype distance = before.size() + identifier.size() + behind.size();
    if (copied.isEmpty() || stored.isEmpty() || stored.begin() - copied.end() != distance)
        return false;
    const QByteArrayView between(copied.end(), stored.begin());
    // A plain '>' would be written as an entity.
    return between.startsWith(before) && between.endsWith(behind)
           && between.sliced(before.size(), identifier.size()) == identifier && !identifier.contains('>');
}

/// Writes a datafile of the XML form.
class DatafileWriter
{
public:
    DatafileWriter(const DatafileSnapshot &snapshot, const ByteSink &sink, const ByteSink &copies)
        : g_snapshot(snapshot)
        , g_copies(copies)
        , g_writer(sink)
    {}

    void write();
    /// The records that are no copies: what the file without the copies holds.
    const std::vector<RecordsSnapshot::Entry> &others() const { return g_others; }

private:
    void writeRecords();
    void writeRecord(const RecordsSnapshot::Entry &entry);
    bool writeCopies(size_t first, size_t last);

    const DatafileSnapshot &g_snapshot;
    const ByteSink &g_copies;
    plist::XmlWriter g_writer;
    std::vector<RecordsSnapshot::Entry> g_others;
};

void DatafileWriter::writeRecords()
{
    const RecordsSnapshot &records = g_snapshot.records;
    if (records.entries.empty()) {
        g_writer.writeValue(plist::Dictionary(), 1);
        return;
    }
    g_writer.beginContainer("dict", 1);
    const size_t count = records.entries.size();
    for (size_t first = 0; first < count && !g_writer.isRefused();) {
        size_t last = first;
        while (last + 1 < count && follows(records, last))
            ++last;
        writeRecord(records.entries[first]);
        // Of records in a row, the inner ones are whole lines, and nothing but those.
        if (last - first > 1 && !writeCopies(first, last))
            return;
        if (last > first)
            writeRecord(records.entries[last]);
        first = last + 1;
    }
    g_writer.endContainer("dict", 1);
}

void DatafileWriter::writeRecord(const RecordsSnapshot::Entry &entry)
{
    const RecordsSnapshot &records = g_snapshot.records;
    g_others.push_back(entry);
    g_writer.writeKey(records.identifiers->text(entry.identifier), elementLevel);
    if (const QByteArrayView stored = records.xml(entry); !stored.isEmpty())
        g_writer.writeElement(stored, elementLevel);
    else if (entry.record < records.sourceCount)
        writeRecordElement(*records.source, entry.record, g_writer);
    else
        g_writer.writeValue(records.dictionary(entry), elementLevel);
}

// Of the records between those two.
bool DatafileWriter::writeCopies(size_t first, size_t last)
{
    const RecordsSnapshot &records = g_snapshot.records;
    const char *start = records.xml(records.entries[first]).end() + 1;
    const char *end = records.xml(records.entries[last - 1]).end() + 1;
    g_writer.flush();
    return !g_writer.isRefused() && g_copies({start, end});
}

void DatafileWriter::write()
{
    g_writer.beginFile();
    g_writer.beginContainer("dict", 0);
    g_snapshot.rootEntries.forEach([&](const QString &key, const plist::Value &value) {
        g_writer.writeKey(key, 1);
        if (key == RootKey::settings)
            g_writer.writeValue(g_snapshot.settings, 1);
        else if (key == RootKey::records)
            writeRecords();
        else if (key == RootKey::catalog)
            writeCatalog(g_snapshot.catalog, g_writer);
        else
            g_writer.writeValue(value, 1);
    });
    g_writer.endContainer("dict", 0);
    g_writer.endFile();
}

plist::Dictionary wholeOf(const DatafileSnapshot &snapshot)
{
    plist::Dictionary root = snapshot.rootEntries;
    root.insert(RootKey::settings, snapshot.settings);
    root.insert(RootKey::records, snapshot.records.dictionary());
    if (root.contains(RootKey::catalog)) {
        plist::Array entries;
        entries.reserve(snapshot.catalog.order.count());
        snapshot.catalog.order.forEach(
            [&](const CatalogEntry &entry) { entries.append(snapshot.catalog.forms.valueOf(entry)); });
        root.insert(RootKey::catalog, entries);
    }
    return root;
}

Result<> writeBinary(const DatafileSnapshot &snapshot, const QString &path)
{
    const plist::Value whole = wholeOf(snapshot);
    const auto produce = [&whole](const ByteSink &sink, const ByteSink &) -> Result<> {
        sink(plist::toBinary(whole));
        return {};
    };
    const auto check = [&snapshot](QByteArrayView written) { return checkBinaryDatafile(written, snapshot); };
    return writeCheckedDurably(path, produce, check);
}

} // namespace

Error notAsWritten(const QString &detail)
{
    return {Error::Kind::Corrupt,
            QCoreApplication::translate("DatafileDocument",
                                        "The file could not be written correctly. The old one was kept."),
            detail};
}

Result<> writeDatafile(const DatafileSnapshot &snapshot, const QString &path, plist::Format format)
{
    if (format == plist::Format::Binary)
        return writeBinary(snapshot, path);
    if (format == plist::Format::Ascii)
        return Error{
            Error::Kind::Unsupported,
            QCoreApplication::translate("DatafileDocument", "Datafiles are not written in this form."),
            QStringLiteral("the ASCII form")};
    std::vector<RecordsSnapshot::Entry> others;
    const auto produce = [&](const ByteSink &sink, const ByteSink &copies) -> Result<> {
        // What the sinks refuse, writeCheckedDurably() itself reports.
        DatafileWriter writer(snapshot, sink, copies);
        writer.write();
        others = writer.others();
        return {};
    };
    const auto check = [&](QByteArrayView written) { return checkXmlDatafile(written, snapshot, others); };
    return writeCheckedDurably(path, produce, check);
}

} // namespace tavrin
