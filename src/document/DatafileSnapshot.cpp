// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileSnapshot.h"

#include "base/DurableFile.h"
#include "document/BinaryDatafile.h"
#include "document/DatafileContents.h"
#include "document/RecordRows.h"
#include "document/XmlDatafile.h"
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
    catalog.order.forEach([&](const CatalogEntry &entry) { catalog.forms.write(entry, writer, 2); });
    writer.endContainer("array", 1);
}

/// Writes a datafile of the XML form.
class DatafileWriter
{
public:
    DatafileWriter(const DatafileSnapshot &snapshot, const ByteSink &sink, const PartsSink &parts)
        : g_snapshot(snapshot)
        , g_parts(parts)
        , g_writer(sink)
    {}

    void write();

private:
    void writeRecords();

    const DatafileSnapshot &g_snapshot;
    const PartsSink &g_parts;
    plist::XmlWriter g_writer;
};

void DatafileWriter::writeRecords()
{
    const RecordRows rows(g_snapshot.records);
    if (rows.count() == 0) {
        g_writer.writeValue(plist::Dictionary(), 1);
        return;
    }
    g_writer.beginContainer("dict", 1);
    g_writer.flush();
    if (!g_writer.isRefused() && g_parts(rows))
        g_writer.endContainer("dict", 1);
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
    const auto produce = [&whole](const ByteSink &sink, const PartsSink &) -> Result<> {
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
    const auto produce = [&](const ByteSink &sink, const PartsSink &parts) -> Result<> {
        // What the sinks refuse, writeCheckedDurably() itself reports.
        DatafileWriter(snapshot, sink, parts).write();
        return {};
    };
    const auto check = [&](QByteArrayView written) { return checkXmlDatafile(written, snapshot); };
    return writeCheckedDurably(path, produce, check);
}

} // namespace tavrin
