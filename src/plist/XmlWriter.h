// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/Writer.h"

namespace tavrin::plist {

/// Writes an XML property list piece by piece, for who does not have it as one value.
///
/// The caller puts the pieces in the right order; levels count the containers around a piece. The bytes are
/// collected in a buffer that goes to the sink whenever it is full. Once the sink has refused, nothing more
/// is written.
class XmlWriter
{
public:
    /// The sink outlives the writer.
    explicit XmlWriter(const Sink &sink);

    void beginFile();
    /// False when the sink refused.
    bool endFile();

    void beginContainer(QByteArrayView name, int level);
    void endContainer(QByteArrayView name, int level);
    void writeKey(QStringView key, int level);
    /// Nothing for a null value.
    void writeValue(const Value &value, int level);
    /// Bytes that are put together elsewhere, as they are.
    void writeBytes(QByteArrayView bytes);
    /// Text content; the UTF-8 is valid.
    void writeContent(QByteArrayView utf8);
    /// An element as it stands in another file.
    void writeElement(QByteArrayView element, int level);

    /// Gives the sink all that was written, for who then goes on with the sink himself.
    void flush();

    bool isRefused() const { return g_isRefused; }

private:
    char *room(qsizetype size);
    void put(QByteArrayView bytes);
    void putIndentation(int level);
    void putElement(QByteArrayView name, QByteArrayView text);

    void writeScalar(const Value &value);
    void writeDictionary(const Dictionary &dictionary, int level);
    void writeArray(const Array &array, int level);
    void writeData(const QByteArray &data, int level);
    void writeText(QStringView text);
    void writeUid(Uid uid, int level);

    const Sink &g_sink;
    QByteArray g_buffer;
    char *g_at;
    bool g_isRefused = false;
};

} // namespace tavrin::plist
