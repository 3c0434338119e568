// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TableExport.h"

#include "io/ReadProgress.h"
#include "io/TextSink.h"
#include "sorting/WorkSteps.h"

#include <algorithm>
#include <array>

namespace tavrin {

namespace {

// What a quote becomes for a moment; so this text in a value becomes two quotes as well.
constexpr QByteArrayView quoteToken("%%%%####$$$$");

/// The bytes at which a value may have to be changed.
constexpr std::array<bool, 256> specialBytes = [] {
    std::array<bool, 256> special{};
    for (const char byte : {'\n', '\r', '\t', '"', ',', '#', '\xE2'})
        special[static_cast<uchar>(byte)] = true;
    return special;
}();

bool hasSpecialBytes(QByteArrayView value)
{
    return std::ranges::any_of(value, [](char byte) { return specialBytes[static_cast<uchar>(byte)]; });
}

/// In one line: line ends, tabs and the separators of Unicode are blanks.
QByteArray cleaned(QByteArrayView value)
{
    QByteArray line;
    line.reserve(value.size());
    for (qsizetype at = 0; at < value.size(); ++at) {
        const QByteArrayView rest = value.sliced(at);
        const bool isSeparator = rest.startsWith("\xE2\x80\xA8") || rest.startsWith("\xE2\x80\xA9");
        if (isSeparator)
            at += 2;
        const bool isBlank = isSeparator || rest[0] == '\n' || rest[0] == '\r' || rest[0] == '\t';
        line.append(isBlank ? ' ' : rest[0]);
    }
    return line;
}

QByteArray quotedForCsv(QByteArrayView value)
{
    QByteArray text = cleaned(value);
    text.replace("\"", quoteToken.toByteArray()).replace(quoteToken.toByteArray(), "\"\"");
    return text.contains(',') ? '"' + text + '"' : text;
}

QByteArray quotedForStandard(QByteArrayView value)
{
    constexpr QByteArrayView needQuotes("\",\n\r");
    if (std::find_first_of(value.begin(), value.end(), needQuotes.begin(), needQuotes.end()) == value.end())
        return value.toByteArray();
    return '"' + value.toByteArray().replace("\"", "\"\"") + '"';
}

/// Writes one row after the other.
class TableWriter
{
public:
    TableWriter(const ExportedRecords &records, const TableExportOptions &options, const ByteSink &sink)
        : g_records(records)
        , g_options(options)
        , g_sink(sink, options.utf16)
        , g_separator(options.form == Form::Tab ? "\t" : ",")
    {}

    void writeNames();
    void writeRecord(qsizetype index);
    bool isRefused() const { return g_sink.isRefused(); }
    void finish() { g_sink.finish(); }

private:
    using Form = TableExportOptions::Form;

    void writeValue(const TextView &value);
    void writeBytes(QByteArrayView value);
    void endRow();

    const ExportedRecords &g_records;
    const TableExportOptions &g_options;
    TextSink g_sink;
    QByteArrayView g_separator;
    QByteArray g_buffer;
    qsizetype g_column = 0;
    bool g_isRowEmpty = true;
};

void TableWriter::writeNames()
{
    QStringList names;
    for (const FieldDefinition &field : g_records.fields())
        names.append(field.name());
    if (!g_options.fieldContentOnly)
        names.append(g_records.textName());
    if (g_options.form == Form::Standard) {
        for (const QString &name : names)
            writeValue(TextView(name));
        endRow();
        return;
    }
    // As they stand.
    g_sink.append(names.join(QLatin1StringView(g_separator)));
    g_sink.append(QByteArrayView(g_options.lineEnd));
}

void TableWriter::writeRecord(qsizetype index)
{
    const RecordView record = g_records.record(index);
    for (const FieldKey &key : g_records.keys())
        writeValue(record.fieldValue(key));
    if (!g_options.fieldContentOnly)
        writeValue(record.textString());
    endRow();
}

void TableWriter::writeValue(const TextView &value)
{
    if (g_column++ > 0)
        g_sink.append(g_separator);
    writeBytes(utf8Of(value, g_buffer));
}

void TableWriter::writeBytes(QByteArrayView value)
{
    g_isRowEmpty = g_isRowEmpty && value.isEmpty();
    if (!hasSpecialBytes(value)) {
        g_sink.append(value);
        return;
    }
    switch (g_options.form) {
    case Form::Csv:
        g_sink.append(QByteArrayView(quotedForCsv(value)));
        break;
    case Form::Tab:
        g_sink.append(QByteArrayView(cleaned(value)));
        break;
    case Form::Standard:
        g_sink.append(QByteArrayView(quotedForStandard(value)));
        break;
    }
}

void TableWriter::endRow()
{
    // An empty line would be no row.
    if (g_options.form == Form::Standard && g_column == 1 && g_isRowEmpty)
        g_sink.append(QByteArrayView("\"\""));
    g_sink.append(QByteArrayView(g_options.lineEnd));
    g_column = 0;
    g_isRowEmpty = true;
}

} // namespace

Result<> writeTable(const ExportedRecords &records,
                    const TableExportOptions &options,
                    const ByteSink &sink,
                    Progress &progress)
{
    TableWriter writer(records, options, sink);
    if (options.includingFieldNames)
        writer.writeNames();
    WorkSteps steps(progress, static_cast<size_t>(records.count()));
    for (qsizetype index = 0; index < records.count() && !writer.isRefused(); ++index) {
        if (!steps.goOn())
            return cancelled();
        writer.writeRecord(index);
    }
    writer.finish();
    return {};
}

Result<> exportTable(const ExportedRecords &records,
                     const TableExportOptions &options,
                     const QString &path,
                     Progress &progress)
{
    return writeDurably(path,
                        [&](const ByteSink &sink) { return writeTable(records, options, sink, progress); });
}

QByteArray tableText(const ExportedRecords &records, const TableExportOptions &options)
{
    QByteArray text;
    Progress progress;
    const ByteSink sink = [&text](QByteArrayView bytes) {
        text.append(bytes);
        return true;
    };
    // Nobody cancels it.
    const Result<> written = writeTable(records, options, sink, progress);
    return written ? text : QByteArray();
}

} // namespace tavrin
