// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "MadeRecord.h"

#include <QByteArray>
#include <QIODevice>

namespace tavrin::bench {

/// Writes a datafile of made records to a device as it goes along, so that memory does not grow with the
/// number of records. The layout is that of the program's own writer.
class DatafileStream
{
public:
    /// The device and the maker outlive the stream.
    DatafileStream(QIODevice &device, const RecordMaker &maker) : g_device(device), g_maker(maker) {}

    /// False when the device refused.
    bool write(quint64 count);

private:
    void open(const char *tag);
    void close(const char *tag);
    void key(QByteArrayView name);
    void string(QByteArrayView text);
    void boolean(bool value);
    void date(qint64 seconds);
    void data(const QByteArray &bytes);
    void raw(const char *element, QByteArrayView content);
    void escaped(QByteArrayView text);
    void indent() { g_buffer.append(g_level, '\t'); }
    bool flush();

    void settings();
    void record(quint64 number);
    void catalogEntry(quint64 number);

    QIODevice &g_device;
    const RecordMaker &g_maker;
    QByteArray g_buffer;
    qsizetype g_level = 0;
};

} // namespace tavrin::bench
