// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/XmlWriter.h"

#include "base/InternalInconsistency.h"
#include "plist/Base64.h"
#include "plist/Reader.h"
#include "plist/ScalarText.h"

#include <algorithm>
#include <array>

namespace tavrin::plist {

namespace {

constexpr QByteArrayView fileStart("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                   "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                   "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                   "<plist version=\"1.0\">\n");
constexpr QByteArrayView fileEnd("</plist>\n");

constexpr qsizetype pieceSize = 256 * 1024;
constexpr int deepestDataIndentation = 8;

// Bytes of data in a line: 76 columns, of which a tab takes 8, and 4 symbols for 3 bytes.
constexpr qsizetype dataBytesPerLine(int tabs)
{
    return (76 - 8 * tabs) / 4 * 3;
}

bool isPlain(char16_t unit)
{
    return unit < 0x80 && unit != u'<' && unit != u'>' && unit != u'&';
}

constexpr qsizetype runSize = 16;

// Text is written by chunks, so that there is room in the buffer for each, whatever is in it.
constexpr qsizetype chunk = 16 * 1024;
constexpr qsizetype longestUnit = 5; // "&amp;"

/// Writes a run of units that are all plain; false when one is not. No branch in the loops, so that they
/// become vector instructions.
bool putPlainRun(const char16_t *units, char *out)
{
    quint16 faults = 0;
    for (qsizetype i = 0; i < runSize; ++i) {
        const char16_t unit = units[i];
        faults = static_cast<quint16>(faults | (unit & 0xFF80U) | (unit == u'<') | (unit == u'>')
                                      | (unit == u'&'));
    }
    if (faults != 0)
        return false;
    for (qsizetype i = 0; i < runSize; ++i)
        out[i] = static_cast<char>(units[i]);
    return true;
}

} // namespace

XmlWriter::XmlWriter(const Sink &sink)
    : g_sink(sink)
    , g_buffer(pieceSize, Qt::Uninitialized)
    , g_at(g_buffer.data())
{}

void XmlWriter::beginFile()
{
    put(fileStart);
}

bool XmlWriter::endFile()
{
    put(fileEnd);
    flush();
    return !g_isRefused;
}

void XmlWriter::beginContainer(QByteArrayView name, int level)
{
    putIndentation(level);
    put("<");
    put(name);
    put(">\n");
}

void XmlWriter::endContainer(QByteArrayView name, int level)
{
    putIndentation(level);
    put("</");
    put(name);
    put(">\n");
}

void XmlWriter::writeKey(QStringView key, int level)
{
    putIndentation(level);
    put("<key>");
    writeText(key);
    put("</key>\n");
}

void XmlWriter::writeElement(QByteArrayView element, int level)
{
    putIndentation(level);
    writeBytes(element);
    put("\n");
}

void XmlWriter::writeBytes(QByteArrayView bytes)
{
    if (bytes.size() < pieceSize) {
        put(bytes);
        return;
    }
    flush();
    g_isRefused = g_isRefused || !g_sink(bytes);
}

void XmlWriter::flush()
{
    const QByteArrayView piece(g_buffer.constData(), g_at - g_buffer.constData());
    g_isRefused = g_isRefused || !g_sink(piece);
    g_at = g_buffer.data();
}

// At least so many bytes of room; the caller moves g_at behind what it has written there.
char *XmlWriter::room(qsizetype size)
{
    if (g_buffer.constData() + g_buffer.size() - g_at < size)
        flush();
    return g_at;
}

void XmlWriter::put(QByteArrayView bytes)
{
    g_at = std::copy(bytes.begin(), bytes.end(), room(bytes.size()));
}

void XmlWriter::putIndentation(int level)
{
    g_at = std::fill_n(room(level), level, '\t');
}

void XmlWriter::putElement(QByteArrayView name, QByteArrayView text)
{
    put("<");
    put(name);
    put(">");
    put(text);
    put("</");
    put(name);
    put(">\n");
}

void XmlWriter::writeValue(const Value &value, int level)
{
    if (g_isRefused || value.isNull())
        return;
    putIndentation(level);
    switch (value.type()) {
    case ValueType::String:
        put("<string>");
        writeText(*value.string());
        put("</string>\n");
        break;
    case ValueType::Data:
        writeData(*value.data(), level);
        break;
    case ValueType::Array:
        writeArray(*value.array(), level);
        break;
    case ValueType::Dictionary:
        writeDictionary(*value.dictionary(), level);
        break;
    case ValueType::Uid:
        writeUid(*value.uid(), level);
        break;
    default:
        writeScalar(value);
    }
}

void XmlWriter::writeScalar(const Value &value)
{
    if (const bool *flag = value.boolean())
        put(*flag ? "<true/>\n" : "<false/>\n");
    else if (value.isInteger())
        putElement("integer", value.toText().toLatin1());
    else if (const Real *number = value.real())
        putElement("real", formatReal(number->value));
    else if (const Date *date = value.date())
        putElement("date", formatDate(*date));
}

namespace {

void checkLevel(int level)
{
    if (level >= maximumDepth)
        throw InternalInconsistency("writeXml: nested more deeply than can be read again");
}

} // namespace

void XmlWriter::writeDictionary(const Dictionary &dictionary, int level)
{
    checkLevel(level);
    if (dictionary.isEmpty()) {
        put("<dict/>\n");
        return;
    }
    put("<dict>\n");
    dictionary.forEach([this, level](const QString &key, const Value &value) {
        writeKey(key, level + 1);
        writeValue(value, level + 1);
    });
    putIndentation(level);
    put("</dict>\n");
}

void XmlWriter::writeArray(const Array &array, int level)
{
    checkLevel(level);
    if (array.isEmpty()) {
        put("<array/>\n");
        return;
    }
    put("<array>\n");
    for (const Value &value : array)
        writeValue(value, level + 1);
    putIndentation(level);
    put("</array>\n");
}

void XmlWriter::writeData(const QByteArray &data, int level)
{
    put("<data>\n");
    const int tabs = std::min(level, deepestDataIndentation);
    const qsizetype lineBytes = dataBytesPerLine(tabs);
    for (qsizetype at = 0; at < data.size() && !g_isRefused; at += lineBytes) {
        const QByteArrayView line = QByteArrayView(data).sliced(at, std::min(lineBytes, data.size() - at));
        putIndentation(tabs);
        g_at = encodeBase64(line, room(80));
        put("\n");
    }
    putIndentation(level);
    put("</data>\n");
}

namespace {

char *putCharacter(char32_t character, char *out)
{
    const auto continuation = [character](int shift) {
        return static_cast<char>(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x80) {
        const QByteArrayView escaped = character == U'<'   ? QByteArrayView("&lt;")
                                       : character == U'>' ? QByteArrayView("&gt;")
                                                           : QByteArrayView("&amp;");
        return std::copy(escaped.begin(), escaped.end(), out);
    }
    if (character < 0x800) {
        *out++ = static_cast<char>(0xC0 | character >> 6);
    } else {
        if (character < 0x10000) {
            *out++ = static_cast<char>(0xE0 | character >> 12);
        } else {
            *out++ = static_cast<char>(0xF0 | character >> 18);
            *out++ = continuation(12);
        }
        *out++ = continuation(6);
    }
    *out++ = continuation(0);
    return out;
}

} // namespace

void XmlWriter::writeContent(QByteArrayView utf8)
{
    for (qsizetype at = 0; at < utf8.size() && !g_isRefused; at += chunk) {
        const QByteArrayView part = utf8.sliced(at, std::min(chunk, utf8.size() - at));
        char *out = room(chunk * longestUnit);
        for (const char byte : part) {
            if (byte == '<' || byte == '>' || byte == '&')
                out = putCharacter(static_cast<uchar>(byte), out);
            else
                *out++ = byte;
        }
        g_at = out;
    }
}

void XmlWriter::writeText(QStringView text)
{
    const char16_t *at = text.utf16();
    const char16_t *const end = at + text.size();
    while (at != end && !g_isRefused) {
        const char16_t *const stop = at + std::min<qsizetype>(chunk, end - at);
        char *out = room((chunk + 1) * longestUnit);
        const char16_t *runStart = at;
        while (at < stop) {
            if (at >= runStart && stop - at >= runSize) {
                runStart = at + runSize; // When it is no plain one, no other is tried before its end.
                if (putPlainRun(at, out)) {
                    at += runSize;
                    out += runSize;
                    continue;
                }
            }
            const char16_t unit = *at++;
            if (isPlain(unit)) {
                *out++ = static_cast<char>(unit);
                continue;
            }
            char32_t character = unit;
            if (QChar::isHighSurrogate(unit) && at != end && QChar::isLowSurrogate(*at))
                character = QChar::surrogateToUcs4(unit, *at++);
            else if (QChar::isSurrogate(unit))
                character = QChar::ReplacementCharacter;
            out = putCharacter(character, out);
        }
        g_at = out;
    }
}

// The indentation stands already.
void XmlWriter::writeUid(Uid uid, int level)
{
    put("<dict>\n");
    putIndentation(level + 1);
    put("<key>CF$UID</key>\n");
    putIndentation(level + 1);
    putElement("integer", QByteArray::number(uid.index));
    putIndentation(level);
    put("</dict>\n");
}

bool writeXml(const Value &root, const Sink &sink)
{
    if (root.isNull())
        throw InternalInconsistency("writeXml: there is nothing to write");
    XmlWriter writer(sink);
    writer.beginFile();
    writer.writeValue(root, 0);
    return writer.endFile();
}

QByteArray toXml(const Value &root)
{
    QByteArray bytes;
    writeXml(root, [&bytes](QByteArrayView piece) {
        bytes.append(piece);
        return true;
    });
    return bytes;
}

} // namespace tavrin::plist
