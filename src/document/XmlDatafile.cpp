// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/XmlDatafile.h"

#include "document/DatafileSnapshot.h"
#include "model/XmlRecords.h"
#include "plist/AsciiReader.h"
#include "plist/ReadError.h"
#include "plist/TextEncoding.h"
#include "plist/Utf8.h"
#include "plist/Writer.h"
#include "plist/XmlCursor.h"
#include "plist/XmlReader.h"

#include <QCoreApplication>

#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// Goes over the root of a datafile and takes its parts out.
class XmlDatafileReader
{
public:
    /// The text is valid UTF-8 and lies in the bytes.
    XmlDatafileReader(const SharedBytes &bytes, QByteArrayView text)
        : g_text(text)
        , g_records(std::make_shared<XmlRecords>(bytes, text))
        , g_cursor(text)
    {}

    /// False when it was refused, or is unusual.
    bool read();

    bool isRefused() const { return g_cursor.hasFailed(); }
    Error error() const { return g_cursor.error(); }
    DatafileContents &contents() { return g_contents; }
    const XmlRecords &records() const { return *g_records; }

private:
    bool readEntry(const QString &key);
    bool readRecords();
    bool readCatalog();
    plist::Value skippedValue();

    QByteArrayView g_text;
    DatafileContents g_contents;
    std::shared_ptr<XmlRecords> g_records;
    plist::XmlCursor g_cursor;
    std::optional<plist::XmlCursor> g_atCatalog; ///< Where it was passed before the records were read.
};

bool XmlDatafileReader::read()
{
    if (!g_cursor.enterRoot() || g_cursor.tag().element != plist::Element::Dict || !g_cursor.enter())
        return false;
    while (g_cursor.nextKey()) {
        const QString key = plist::fromUtf8(g_cursor.key());
        const bool isRepeated = g_contents.rootEntries.contains(key);
        if (isRepeated || !g_cursor.nextValue() || !readEntry(key))
            return false;
    }
    if (g_cursor.hasFailed() || !g_cursor.leaveRoot())
        return false;
    if (g_atCatalog && !g_contents.catalogForms.readEntries(*g_atCatalog, g_contents.catalog))
        return false;
    const plist::Dictionary &entries = g_contents.rootEntries;
    return entries.contains(RootKey::settings) && entries.contains(RootKey::records);
}

bool XmlDatafileReader::readEntry(const QString &key)
{
    if (RootKey::isPart(key))
        g_contents.rootEntries.insert(key, true);
    if (key == RootKey::records)
        return readRecords();
    if (key == RootKey::catalog)
        return readCatalog();
    const plist::Value value = skippedValue();
    if (key != RootKey::settings) {
        g_contents.rootEntries.insert(key, value);
        return !value.isNull();
    }
    if (!value.isDictionary())
        return false;
    g_contents.settings = *value.dictionary();
    return true;
}

// Null when the value was refused.
plist::Value XmlDatafileReader::skippedValue()
{
    const char *start = g_cursor.valueStart();
    if (!g_cursor.skipValue())
        return {};
    const Result<plist::Value> value = plist::readXml({start, g_cursor.at()});
    return value ? *value : plist::Value();
}

bool XmlDatafileReader::readRecords()
{
    if (g_records->index(g_cursor, *g_contents.identifiers) != XmlRecords::Outcome::Indexed)
        return false;
    g_contents.records = g_records;
    return true;
}

// The records come first, because their identifiers do.
bool XmlDatafileReader::readCatalog()
{
    if (g_cursor.tag().element != plist::Element::List)
        return false;
    if (g_contents.records)
        return g_contents.catalogForms.readEntries(g_cursor, g_contents.catalog);
    g_atCatalog = g_cursor;
    return g_cursor.skipValue();
}

/// The entries that stand in the file: a null one leaves nothing there.
size_t countOfWritten(const CatalogSnapshot &catalog)
{
    size_t count = 0;
    catalog.order.forEach([&](const CatalogEntry &entry) {
        if (!entry.isInert() || !catalog.forms.valueOf(entry).isNull())
            ++count;
    });
    return count;
}

/// In XML a lone surrogate becomes a replacement character.
QByteArray asWritten(const QString &text)
{
    if (text.isValidUtf16())
        return text.toUtf8();
    QString valid = text;
    for (qsizetype at = 0; at < valid.size(); ++at) {
        const bool isPair =
            valid[at].isHighSurrogate() && at + 1 < valid.size() && valid[at + 1].isLowSurrogate();
        if (isPair)
            ++at;
        else if (valid[at].isSurrogate())
            valid[at] = QChar(QChar::ReplacementCharacter);
    }
    return valid.toUtf8();
}

bool hasSameRecords(const XmlRecords &written,
                    const IdentifierTable &identifiers,
                    const RecordsSnapshot &snapshot,
                    std::span<const RecordsSnapshot::Entry> expected)
{
    if (written.count() != expected.size())
        return false;
    for (quint32 place = 0; place < written.count(); ++place) {
        const RecordsSnapshot::Entry &entry = expected[place];
        const QByteArrayView copied = snapshot.xml(entry);
        if (identifiers.bytes(place) != asWritten(snapshot.identifiers->text(entry.identifier))
            || (!copied.isEmpty() && written.xml(place) != copied))
            return false;
    }
    return true;
}

} // namespace

std::optional<Result<DatafileContents>> readXmlDatafile(const SharedBytes &bytes, const QString &fileName)
{
    Result<QByteArray> text = plist::toUtf8(bytes.view());
    if (!text || !plist::beginsLikeXml(*text))
        return {};
    const QByteArrayView view = bytes.view();
    const bool isInPlace = text->constData() >= view.begin() && text->constData() <= view.end();
    const Result<SharedBytes> kept = isInPlace ? bytes : SharedBytes::copyOf(*text);
    if (!kept)
        return kept.error();
    const QByteArrayView utf8 = isInPlace ? QByteArrayView(*text) : kept->view();
    text = QByteArray();
    XmlDatafileReader reader(*kept, utf8);
    if (!reader.read()) {
        // What begins like XML may still be the old text form, with data between angle brackets.
        if (reader.isRefused() && !plist::readAscii(utf8))
            return reader.error();
        return {};
    }
    if (const Result<> known = checkFormat(reader.contents().settings, fileName); !known)
        return known.error();
    return std::move(reader.contents());
}

Result<> checkXmlDatafile(QByteArrayView bytes, const DatafileSnapshot &snapshot)
{
    if (!plist::isValidUtf8(bytes))
        return notAsWritten(u"not valid UTF-8"_s);
    XmlDatafileReader reader(SharedBytes::unowned(bytes), bytes);
    if (!reader.read())
        return notAsWritten(reader.isRefused() ? reader.error().detail : u"an unusual datafile"_s);
    const DatafileContents &contents = reader.contents();
    if (reader.records().count() != 0)
        return notAsWritten(u"other records"_s);
    if (contents.catalog.size() != countOfWritten(snapshot.catalog))
        return notAsWritten(u"another catalog"_s);
    // XML keeps less of some values than the binary form: dates in whole seconds, say.
    const Result<plist::Value> settings = plist::readXml(plist::toXml(snapshot.settings));
    if (!settings || !(contents.settings == *settings))
        return notAsWritten(u"other settings"_s);
    return {};
}

Result<> checkXmlRecords(QByteArrayView bytes,
                         const RecordsSnapshot &snapshot,
                         std::span<const RecordsSnapshot::Entry> records)
{
    // As deep in other containers as they stand in the datafile.
    constexpr QByteArrayView before("<plist><dict><key>Records</key><dict>");
    constexpr QByteArrayView behind("</dict></dict></plist>");
    QByteArray room;
    room.reserve(before.size() + bytes.size() + behind.size() + SharedBytes::padding);
    room.append(before).append(bytes).append(behind);
    const QByteArrayView text(room);
    room.append(SharedBytes::padding, '\0');
    if (!plist::isValidUtf8(text))
        return notAsWritten(u"not valid UTF-8"_s);
    plist::XmlCursor cursor(text);
    XmlRecords written(SharedBytes::unowned(text), text);
    IdentifierTable identifiers;
    const bool isWhole = cursor.enterRoot() && cursor.enter() && cursor.nextKey() && cursor.nextValue()
                         && written.index(cursor, identifiers) == XmlRecords::Outcome::Indexed
                         && !cursor.nextKey() && !cursor.hasFailed() && cursor.leaveRoot();
    if (!isWhole)
        return notAsWritten(cursor.hasFailed() ? cursor.error().detail : u"unusual records"_s);
    if (!hasSameRecords(written, identifiers, snapshot, records))
        return notAsWritten(u"other records"_s);
    return {};
}

} // namespace tavrin
