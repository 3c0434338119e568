// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TableExport.h"

#include "io/LineEnd.h"
#include "io/MarkScanner.h"
#include "io/ReadProgress.h"
#include "io/TextSink.h"
#include "sorting/WorkSteps.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <mutex>
#include <vector>

namespace tavrin {

namespace {

/// What a value holds that a form may have to change.
enum ByteClass : quint8 {
    Break = 1, ///< LF, CR
    Tab = 2,
    Quote = 4,
    Comma = 8,
    Hash = 16,
    SeparatorLead = 32, ///< Perhaps of a line or paragraph separator.
};

constexpr std::array<quint8, 256> byteClasses = [] {
    std::array<quint8, 256> classes{};
    classes['\n'] = classes['\r'] = Break;
    classes['\t'] = Tab;
    classes['"'] = Quote;
    classes[','] = Comma;
    classes['#'] = Hash;
    classes[0xE2] = SeparatorLead;
    return classes;
}();

constexpr Marks marks = {'\n', '\r', '\t', '"', ',', '#', LineEnd::separatorLead, '\n'};

/// Of values that do not go out as they are.
unsigned changedClassesOf(TableExportOptions::Form form)
{
    switch (form) {
    case TableExportOptions::Form::Csv:
        return Break | Tab | Quote | Comma | Hash | SeparatorLead;
    case TableExportOptions::Form::Tab:
        return Break | Tab | SeparatorLead;
    case TableExportOptions::Form::Standard:
        break;
    }
    return Break | Quote | Comma;
}

// What a quote becomes for a moment in CSV; so this text in a value becomes two quotes as well.
constexpr QByteArrayView quoteToken("%%%%####$$$$");

/// What of a value is changed.
struct Changes
{
    bool toOneLine;     ///< Line ends, tabs and the separators of Unicode become blanks.
    bool doublesQuotes; ///< And
    bool isQuoted;      ///< puts one before it and behind it.
};

/// Writes the value there as it has to be. The buffer goes on being used, so that it is allocated once.
QByteArrayView changed(QByteArrayView value, const Changes &changes, QByteArray &buffer)
{
    if (buffer.size() < 2 * value.size() + 2)
        buffer.resize(2 * value.size() + 2);
    char *const start = buffer.data();
    char *to = start;
    if (changes.isQuoted)
        *to++ = '"';
    for (qsizetype at = 0; at < value.size(); ++at) {
        const char byte = value[at];
        const unsigned kind = byteClasses[static_cast<uchar>(byte)];
        const bool ends = changes.toOneLine && (kind & (Break | Tab | SeparatorLead)) != 0;
        const qsizetype size = !ends ? 0 : byte == '\t' ? 1 : LineEnd::sizeAt(value, at);
        if (size > 0) {
            // CR LF are two.
            *to++ = ' ';
            at += size == 3 ? 2 : 0;
            continue;
        }
        *to++ = byte;
        if (changes.doublesQuotes && byte == '"')
            *to++ = '"';
    }
    if (changes.isQuoted)
        *to++ = '"';
    return {start, to};
}

/// Writes one row after the other. A row is put together as if all values could go out as they are; then
/// those that cannot are changed on its way into the sink.
class TableWriter
{
public:
    TableWriter(const ExportedRecords &records,
                const TableExportOptions &options,
                const ByteSink &sink,
                bool beginsFile)
        : g_records(records)
        , g_options(options)
        , g_sink(sink, options.utf16, beginsFile)
        , g_separator(options.form == Form::Tab ? '\t' : ',')
        , g_changedClasses(changedClassesOf(options.form))
        , g_values(records.keys().size())
    {}

    void writeNames();
    void writeRecord(qsizetype index);
    Result<> finish() { return g_sink.finish(); }

private:
    using Form = TableExportOptions::Form;

    void addValue(const TextView &value);
    void endRow();
    void writeChanged(QByteArrayView value, unsigned classes);

    const ExportedRecords &g_records;
    const TableExportOptions &g_options;
    TextSink g_sink;
    char g_separator;
    unsigned g_changedClasses;
    std::vector<TextView> g_values; ///< Of the fields of a record.
    std::vector<char> g_row;        ///< With room behind what is in it.
    std::vector<qsizetype> g_ends;  ///< In the row: of the values.
    QByteArray g_buffer;
    QByteArray g_line;
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
            addValue(TextView(name));
        endRow();
        return;
    }
    // As they stand.
    g_sink.append(names.join(QLatin1Char(g_separator)));
    g_sink.append(QByteArrayView(g_options.lineEnd));
}

void TableWriter::writeRecord(qsizetype index)
{
    const RecordView record = g_records.record(index);
    record.fieldValues(g_records.keys(), g_values);
    for (const TextView &value : g_values)
        addValue(value);
    if (!g_options.fieldContentOnly)
        addValue(record.textString());
    endRow();
}

void TableWriter::addValue(const TextView &value)
{
    const QByteArrayView bytes = value.utf8(g_buffer);
    const qsizetype start = g_ends.empty() ? 0 : g_ends.back() + 1;
    const qsizetype end = start + bytes.size();
    if (std::ssize(g_row) < end + MarkScanner::blockSize)
        g_row.resize(static_cast<size_t>(2 * end + MarkScanner::blockSize));
    if (start > 0)
        g_row[static_cast<size_t>(start - 1)] = g_separator;
    std::copy(bytes.begin(), bytes.end(), g_row.begin() + start);
    g_ends.push_back(end);
}

void TableWriter::endRow()
{
    const qsizetype size = g_ends.empty() ? 0 : g_ends.back();
    const QByteArrayView row(g_row.data(), size);
    MarkScanner scanner(row, marks);
    qsizetype mark = scanner.next();
    qsizetype written = 0;
    qsizetype start = 0;
    for (const qsizetype end : g_ends) {
        unsigned classes = 0;
        for (; mark < end; mark = scanner.next())
            classes |= byteClasses[static_cast<uchar>(row[mark])];
        if ((classes & g_changedClasses) != 0) {
            g_sink.append(row.sliced(written, start - written));
            writeChanged(row.sliced(start, end - start), classes);
            written = end;
        }
        // The separator.
        if (mark == end)
            mark = scanner.next();
        start = end + 1;
    }
    g_sink.append(row.sliced(written));
    // An empty line would be no row.
    if (g_options.form == Form::Standard && g_ends.size() == 1 && size == 0)
        g_sink.append(QByteArrayView("\"\""));
    g_sink.append(QByteArrayView(g_options.lineEnd));
    g_ends.clear();
}

void TableWriter::writeChanged(QByteArrayView value, unsigned classes)
{
    QByteArray withoutToken;
    if (g_options.form == Form::Csv && (classes & Hash) != 0 && value.contains(quoteToken)) {
        withoutToken = value.toByteArray().replace(quoteToken, "\"");
        value = withoutToken;
    }
    const bool isStandard = g_options.form == Form::Standard;
    const Changes changes{.toOneLine = !isStandard,
                          .doublesQuotes = g_options.form != Form::Tab,
                          .isQuoted = isStandard || (g_options.form == Form::Csv && (classes & Comma) != 0)};
    g_sink.append(changed(value, changes, g_line));
}

/// The rows of a table, some hundred at a time.
class TableRows : public FileParts
{
public:
    TableRows(const ExportedRecords &records, const TableExportOptions &options, Progress &progress)
        : g_records(records)
        , g_options(options)
        , g_steps(progress, count())
    {}

    /// The first one is there even if it has nothing but the names.
    size_t count() const override
    {
        return static_cast<size_t>(std::max<qsizetype>((g_records.count() + most - 1) / most, 1));
    }
    QByteArrayView bytes(size_t part, QByteArray &room) const override;
    /// Cancelled.
    Result<> check(size_t part, QByteArrayView bytes) const override;

private:
    static constexpr qsizetype most = 256;

    const ExportedRecords &g_records;
    const TableExportOptions &g_options;
    mutable std::mutex g_mutex; ///< For the steps.
    mutable WorkSteps g_steps;
};

QByteArrayView TableRows::bytes(size_t part, QByteArray &room) const
{
    room.resize(0);
    const ByteSink sink = [&room](QByteArrayView bytes) {
        room.append(bytes);
        return true;
    };
    TableWriter writer(g_records, g_options, sink, part == 0);
    if (part == 0 && g_options.includingFieldNames)
        writer.writeNames();
    const qsizetype first = static_cast<qsizetype>(part) * most;
    const qsizetype end = std::min(first + most, g_records.count());
    for (qsizetype index = first; index < end; ++index)
        writer.writeRecord(index);
    // Memory refuses nothing.
    static_cast<void>(writer.finish());
    return room;
}

Result<> TableRows::check(size_t /*part*/, QByteArrayView /*bytes*/) const
{
    const std::lock_guard lock(g_mutex);
    return g_steps.goOn() ? Result<>() : cancelled();
}

} // namespace

Result<> writeTable(const ExportedRecords &records,
                    const TableExportOptions &options,
                    const ByteSink &sink,
                    Progress &progress)
{
    const TableRows rows(records, options, progress);
    QByteArray room;
    for (size_t part = 0; part < rows.count(); ++part) {
        if (!sink(rows.bytes(part, room)))
            return Error{Error::Kind::Io, {}, {}};
        if (Result<> done = rows.check(part, room); !done)
            return done;
    }
    return {};
}

Result<> exportTable(const ExportedRecords &records,
                     const TableExportOptions &options,
                     const QString &path,
                     Progress &progress)
{
    const TableRows rows(records, options, progress);
    const auto produce = [&rows](const ByteSink &, const PartsSink &parts) -> Result<> {
        // What this refuses, writeCheckedDurably() itself reports.
        static_cast<void>(parts(rows));
        return {};
    };
    return writeCheckedDurably(path, produce, {});
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
