// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/AttachmentName.h"
#include "richtext/RtfReader.h"
#include "richtext/RtfWriter.h"
#include "richtext/Rtfd.h"

#include <QCoreApplication>
#include <QHash>
#include <QtEndian>

namespace tavrin::richtext {

namespace {

constexpr quint32 fileKind = 1;
constexpr quint32 directoryKind = 3;
constexpr quint32 paddedLength = 0x80000000;
constexpr QByteArrayView signature("rtfd");
constexpr QByteArrayView nameOfText("TXT.rtf");
constexpr QByteArrayView nameOfAttributes(".");

/// Takes numbers and pieces from the front of a stream; once it runs short it stays short.
class StreamReader
{
public:
    StreamReader(QByteArrayView bytes, bool isBigEndian) : g_rest(bytes), g_isBigEndian(isBigEndian) {}

    QByteArrayView take(qsizetype size)
    {
        if (size > g_rest.size()) {
            g_short = true;
            g_rest = {};
            return {};
        }
        const QByteArrayView taken = g_rest.first(size);
        g_rest = g_rest.sliced(size);
        return taken;
    }
    quint32 takeNumber()
    {
        const QByteArrayView bytes = take(sizeof(quint32));
        if (bytes.isEmpty())
            return 0;
        return g_isBigEndian ? qFromBigEndian<quint32>(bytes.data())
                             : qFromLittleEndian<quint32>(bytes.data());
    }
    bool isShort() const { return g_short; }
    /// True when the stream ended where it should.
    bool isDone() const { return !g_short && g_rest.isEmpty(); }
    bool isBigEndian() const { return g_isBigEndian; }

private:
    QByteArrayView g_rest;
    bool g_isBigEndian;
    bool g_short = false;
};

using Files = QHash<QByteArrayView, QByteArrayView>;

/// The bytes of a file; null when the node is none.
std::optional<QByteArrayView> contentOfFile(QByteArrayView node, bool isBigEndian)
{
    StreamReader reader(node, isBigEndian);
    if (reader.takeNumber() != fileKind)
        return {};
    quint32 length = reader.takeNumber();
    if (length == paddedLength) {
        length = reader.takeNumber();
        reader.take(reader.takeNumber());
    }
    const QByteArrayView content = reader.take(length);
    return reader.isDone() ? std::optional(content) : std::nullopt;
}

std::optional<Files> filesOfStream(QByteArrayView stored)
{
    constexpr qsizetype placeOfKind = 8;
    if (!stored.startsWith(signature) || stored.size() < placeOfKind + 4)
        return {};
    const bool isBigEndian = qFromBigEndian<quint32>(stored.data() + placeOfKind) == directoryKind;
    StreamReader reader(stored.sliced(signature.size()), isBigEndian);
    if (reader.takeNumber() != 0 || reader.takeNumber() != directoryKind)
        return {};
    const qsizetype count = reader.takeNumber();
    QList<QByteArrayView> names;
    while (names.size() < count && !reader.isShort())
        names.append(reader.take(reader.takeNumber()));
    QList<qsizetype> sizes;
    while (sizes.size() < count && !reader.isShort())
        sizes.append(reader.takeNumber());
    Files files;
    for (qsizetype i = 0; i < count && !reader.isShort(); ++i) {
        const QByteArrayView node = reader.take(sizes[i]);
        if (const auto content = contentOfFile(node, isBigEndian))
            files.insert(names[i], *content);
    }
    return reader.isDone() && files.contains(nameOfText) ? std::optional(files) : std::nullopt;
}

void appendNumber(QByteArray &stream, qsizetype number)
{
    char bytes[sizeof(quint32)];
    qToLittleEndian(static_cast<quint32>(number), bytes);
    stream.append(bytes, sizeof(bytes));
}

void appendPiece(QByteArray &stream, QByteArrayView piece)
{
    appendNumber(stream, piece.size());
    stream.append(piece);
}

/// When the files were changed and who may read them: nobody can tell, everybody.
QByteArray attributesOf(const QList<std::pair<QByteArray, QByteArray>> &files)
{
    constexpr qsizetype sizeOfAttributes = 16;
    constexpr qsizetype readableByAll = 0666;
    QByteArray attributes;
    appendNumber(attributes, files.size());
    for (const auto &[name, content] : files) {
        appendPiece(attributes, name);
        appendNumber(attributes, sizeOfAttributes);
        for (const qsizetype number : {qsizetype(0), readableByAll, qsizetype(0), qsizetype(0)})
            appendNumber(attributes, number);
    }
    return attributes;
}

} // namespace

std::optional<QByteArray> rtfOfRichText(QByteArrayView stored)
{
    if (isRtf(stored))
        return stored.toByteArray();
    const std::optional<Files> files = filesOfStream(stored);
    return files ? std::optional(files->value(nameOfText).toByteArray()) : std::nullopt;
}

Result<AttributedText> readRichText(QByteArrayView stored)
{
    const std::optional<Files> files = filesOfStream(stored);
    if (!files)
        return readRtf(stored);
    QHash<QString, QByteArray> taken;
    return readRtf(files->value(nameOfText), [&](const QString &key) {
        const auto known = taken.constFind(key);
        if (known != taken.cend())
            return *known;
        const auto found = files->constFind(key.toUtf8());
        // Taken once, so that those who name it again share it.
        return *taken.insert(key, found == files->cend() ? QByteArray() : found->toByteArray());
    });
}

QByteArray writeRichText(const AttributedText &text)
{
    QList<std::pair<QByteArray, QByteArray>> files{{nameOfText.toByteArray(), writeRtf(text)}};
    const AttachmentFiles attachments(text);
    for (const AttachmentFiles::File &file : attachments.files()) {
        if (!file.bytes.isNull())
            files.append({file.key.toUtf8(), file.bytes});
    }
    files.append({nameOfAttributes.toByteArray(), attributesOf(files)});

    QByteArray stream = signature.toByteArray();
    appendNumber(stream, 0);
    appendNumber(stream, directoryKind);
    appendNumber(stream, files.size());
    for (const auto &[name, content] : files)
        appendPiece(stream, name);
    for (const auto &[name, content] : files)
        appendNumber(stream, content.size() + 8);
    for (const auto &[name, content] : files) {
        appendNumber(stream, fileKind);
        appendPiece(stream, content);
    }
    return stream;
}

} // namespace tavrin::richtext
