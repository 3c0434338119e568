// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileSnapshot.h"

#include "base/DurableFile.h"
#include "document/BinaryDatafile.h"
#include "document/DatafileContents.h"
#include "document/XmlDatafile.h"
#include "plist/XmlWriter.h"

#include <QCoreApplication>

namespace tavrin {

namespace {

void writeRecords(const RecordsSnapshot &records, plist::XmlWriter &writer)
{
    if (records.entries.empty()) {
        writer.writeValue(plist::Dictionary(), 1);
        return;
    }
    writer.beginContainer("dict", 1);
    for (const RecordsSnapshot::Entry &entry : records.entries) {
        if (writer.isRefused())
            return;
        writer.writeKey(records.identifiers->text(entry.identifier), 2);
        if (const QByteArrayView stored = records.xml(entry); !stored.isEmpty())
            writer.writeElement(stored, 2);
        else
            writer.writeValue(records.dictionary(entry), 2);
    }
    writer.endContainer("dict", 1);
}

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

void writeXml(const DatafileSnapshot &snapshot, const ByteSink &sink)
{
    plist::XmlWriter writer(sink);
    writer.beginFile();
    writer.beginContainer("dict", 0);
    snapshot.rootEntries.forEach([&](const QString &key, const plist::Value &value) {
        writer.writeKey(key, 1);
        if (key == RootKey::settings)
            writer.writeValue(snapshot.settings, 1);
        else if (key == RootKey::records)
            writeRecords(snapshot.records, writer);
        else if (key == RootKey::catalog)
            writeCatalog(snapshot.catalog, writer);
        else
            writer.writeValue(value, 1);
    });
    writer.endContainer("dict", 0);
    writer.endFile();
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
    const auto produce = [&whole](const ByteSink &sink) -> Result<> {
        sink(plist::toBinary(whole));
        return {};
    };
    const auto check = [&snapshot](QByteArrayView written) { return checkBinaryDatafile(written, snapshot); };
    return writeDurably(path, produce, check);
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
    const auto produce = [&snapshot](const ByteSink &sink) -> Result<> {
        // What the sink refuses, writeDurably() itself reports.
        writeXml(snapshot, sink);
        return {};
    };
    const auto check = [&snapshot](QByteArrayView written) { return checkXmlDatafile(written, snapshot); };
    return writeDurably(path, produce, check);
}

} // namespace tavrin
