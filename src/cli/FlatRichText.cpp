// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/FlatRichText.h"

#include <QList>
#include <QtEndian>

namespace tavrin {

namespace {

constexpr quint32 fileKind = 1;
constexpr quint32 directoryKind = 3;
constexpr quint32 paddedLength = 0x80000000;

/// Takes numbers and pieces from the front of a stream; once it runs short it stays short.
class StreamReader
{
public:
    explicit StreamReader(QByteArrayView bytes) : g_rest(bytes) {}

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
        return bytes.isEmpty() ? 0 : qFromLittleEndian<quint32>(bytes.data());
    }
    qsizetype available() const { return g_rest.size(); }
    bool isShort() const { return g_short; }

private:
    QByteArrayView g_rest;
    bool g_short = false;
};

std::optional<QByteArray> contentOfFile(QByteArrayView node)
{
    StreamReader reader(node);
    if (reader.takeNumber() != fileKind)
        return {};
    quint32 length = reader.takeNumber();
    if (length == paddedLength) {
        length = reader.takeNumber();
        reader.take(reader.takeNumber());
    }
    const QByteArrayView content = reader.take(length);
    if (reader.isShort() || reader.available() > 0)
        return {};
    return content.toByteArray();
}

} // namespace

std::optional<QByteArray> rtfOfRichText(QByteArrayView stored)
{
    if (stored.startsWith("{\\rtf"))
        return stored.toByteArray();
    StreamReader reader(stored);
    if (reader.take(4) != "rtfd" || reader.takeNumber() != 0 || reader.takeNumber() != directoryKind)
        return {};
    const qsizetype count = reader.takeNumber();
    QList<QByteArrayView> names;
    while (names.size() < count && !reader.isShort())
        names.append(reader.take(reader.takeNumber()));
    QList<qsizetype> sizes;
    while (sizes.size() < count && !reader.isShort())
        sizes.append(reader.takeNumber());

    std::optional<QByteArray> text;
    for (qsizetype i = 0; i < count && !reader.isShort(); ++i) {
        const QByteArrayView node = reader.take(sizes[i]);
        if (names[i] == "TXT.rtf")
            text = contentOfFile(node);
    }
    if (reader.isShort() || reader.available() > 0)
        return {};
    return text;
}

} // namespace tavrin
