// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "DatafileStream.h"

#include <QDateTime>

#include <algorithm>

namespace tavrin::bench {
namespace {

constexpr qsizetype flushSize = 1 << 20;

} // namespace

bool DatafileStream::write(quint64 count)
{
    g_buffer = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
               "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
               "<plist version=\"1.0\">\n";
    open("dict");
    settings();
    key("Records");
    open("dict");
    for (quint64 number = 0; number < count; ++number) {
        record(number);
        if (g_buffer.size() >= flushSize && !flush())
            return false;
    }
    close("dict");
    key("Catalog");
    open("array");
    for (quint64 number = 0; number < count; ++number) {
        catalogEntry(number);
        if (g_buffer.size() >= flushSize && !flush())
            return false;
    }
    close("array");
    close("dict");
    g_buffer += "</plist>\n";
    return flush();
}

void DatafileStream::settings()
{
    key("Settings");
    open("dict");
    key("DataVersion");
    raw("integer", "1");
    key("DataFormat");
    raw("integer", "1");
    key("Mode");
    string("List");
    key("Fields");
    open("array");
    for (std::size_t field = 0; field < fieldNames.size(); ++field) {
        open("dict");
        key("Identifier");
        string(g_maker.fieldIdentifier(field));
        key("Name");
        string(fieldNames[field]);
        key("Width");
        raw("real", "150");
        close("dict");
    }
    close("array");
    close("dict");
}

void DatafileStream::record(quint64 number)
{
    const QByteArray identifier = g_maker.identifier(number);
    const MadeRecord made = g_maker.record(number);
    key(identifier);
    open("dict");
    key("RecordIdentifier");
    string(identifier);
    key("RecordName");
    string("");
    key("NeedsSync");
    boolean(made.needsSync);
    key("IsSum");
    boolean(false);
    key("RecordLocked");
    boolean(made.locked);
    key("RecordWasLocked");
    boolean(false);
    key("RecordCreatedDate");
    date(made.created);
    key("RecordModifiedDate");
    date(made.modified);
    key("RecordViewedDate");
    date(made.viewed);
    key("RecordCreatedBy");
    string(made.createdBy);
    key("RecordModifiedBy");
    string(made.modifiedBy);
    key("RecordViewedBy");
    string(made.modifiedBy);
    key("Fields");
    open("dict");
    for (std::size_t field = 0; field < fieldNames.size(); ++field) {
        if (made.fields[field].isEmpty())
            continue;
        key(g_maker.fieldIdentifier(field));
        string(made.fields[field]);
    }
    close("dict");
    key("TextString");
    string(made.text);
    key("TextRTFD");
    data(made.textRTFD);
    close("dict");
}

void DatafileStream::catalogEntry(quint64 number)
{
    open("dict");
    key("Identifier");
    string(g_maker.identifier(number));
    key("CurrentlySelected");
    boolean(g_maker.isSelected(number));
    key("PreviouslySelected");
    boolean(true);
    close("dict");
}

void DatafileStream::open(const char *tag)
{
    indent();
    g_buffer.append('<').append(tag).append(">\n");
    ++g_level;
}

void DatafileStream::close(const char *tag)
{
    --g_level;
    indent();
    g_buffer.append("</").append(tag).append(">\n");
}

void DatafileStream::key(QByteArrayView name)
{
    raw("key", name);
}

void DatafileStream::string(QByteArrayView text)
{
    indent();
    g_buffer += "<string>";
    escaped(text);
    g_buffer += "</string>\n";
}

void DatafileStream::boolean(bool value)
{
    indent();
    g_buffer += value ? "<true/>\n" : "<false/>\n";
}

void DatafileStream::date(qint64 seconds)
{
    raw("date", QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(Qt::ISODate).toLatin1());
}

void DatafileStream::data(const QByteArray &bytes)
{
    const QByteArray symbols = bytes.toBase64();
    const qsizetype width = 76 - 8 * std::min<qsizetype>(g_level, 8);
    indent();
    g_buffer += "<data>\n";
    for (qsizetype start = 0; start < symbols.size(); start += width) {
        indent();
        g_buffer.append(QByteArrayView(symbols).sliced(start, std::min(width, symbols.size() - start)));
        g_buffer += '\n';
    }
    indent();
    g_buffer += "</data>\n";
}

void DatafileStream::raw(const char *element, QByteArrayView content)
{
    indent();
    g_buffer.append('<').append(element).append('>').append(content);
    g_buffer.append("</").append(element).append(">\n");
}

void DatafileStream::escaped(QByteArrayView text)
{
    for (const char character : text) {
        if (character == '<')
            g_buffer += "&lt;";
        else if (character == '>')
            g_buffer += "&gt;";
        else if (character == '&')
            g_buffer += "&amp;";
        else
            g_buffer += character;
    }
}

bool DatafileStream::flush()
{
    const bool written = g_device.write(g_buffer) == g_buffer.size();
    g_buffer.resize(0);
    return written;
}

} // namespace tavrin::bench
