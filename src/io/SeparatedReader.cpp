// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/LineEnd.h"
#include "io/MarkScanner.h"
#include "io/ReadProgress.h"
#include "io/SeparatedLine.h"
#include "io/TableReaders.h"

#include <algorithm>

namespace tavrin {

namespace {

/// Reads the lines of a text as rows of separated values.
class SeparatedReader
{
public:
    SeparatedReader(const TextContent &text, char separator)
        : g_text(text.utf8)
        , g_separator(separator)
        , g_readsLiterally(mayHoldTokens(text.utf8))
        , g_table(std::make_shared<TextTable>(text.bytes, text.utf8))
    {}

    Result<> read(qint64 mostRows, Progress &progress);
    ReadTable result() const { return {g_table, g_malformedCount, g_literalCount}; }

private:
    void takeLine(qsizetype start, qsizetype end);
    void cutUnquoted(qsizetype start, qsizetype end);
    void cutQuoted(qsizetype start, qsizetype end);
    void cutToTheLetter(qsizetype start, qsizetype end);
    void normalise();

    QByteArrayView g_text;
    char g_separator;
    SeparatedLineCutter g_cutter;
    bool g_readsLiterally;
    std::shared_ptr<TextTable> g_table;
    std::vector<qsizetype> g_marked; ///< In the text: quotes and separators of the line.
    bool g_hasQuotes = false;
    std::vector<TextTable::Cell> g_row;
    quint64 g_malformedCount = 0;
    quint64 g_literalCount = 0;
};

Result<> SeparatedReader::read(qint64 mostRows, Progress &progress)
{
    MarkScanner scanner(g_text, {'"', g_separator, '\n', '\r', LineEnd::separatorLead, '\n', '\n', '\n'});
    ReadProgress reported(g_text.size(), progress);
    qsizetype start = 0;
    while (start < g_text.size() && g_table->rowCount() < mostRows) {
        const qsizetype place = scanner.next();
        if (place < start)
            continue;
        if (place == g_text.size()) {
            takeLine(start, place);
            break;
        }
        if (g_text[place] == '"' || g_text[place] == g_separator) {
            g_hasQuotes = g_hasQuotes || g_text[place] == '"';
            g_marked.push_back(place);
            continue;
        }
        const qsizetype size = LineEnd::sizeAt(g_text, place);
        if (size == 0)
            continue;
        takeLine(start, place);
        start = place + size;
        if (g_table->isFull())
            return tooManyCells();
        if (!reported.setDone(start, g_table->rowCount()))
            return cancelled();
    }
    return {};
}

void SeparatedReader::takeLine(qsizetype start, qsizetype end)
{
    g_row.clear();
    if (g_readsLiterally)
        cutToTheLetter(start, end);
    else if (g_hasQuotes)
        cutQuoted(start, end);
    else
        cutUnquoted(start, end);
    g_marked.clear();
    g_hasQuotes = false;
    normalise();
    for (const TextTable::Cell cell : g_row)
        g_table->appendCell(cell);
    g_table->endRow();
}

void SeparatedReader::cutUnquoted(qsizetype start, qsizetype end)
{
    qsizetype from = start;
    for (const qsizetype separator : g_marked) {
        g_row.push_back(g_table->cellAt(from, separator - from, TextTable::Form::Plain));
        from = separator + 1;
    }
    g_row.push_back(g_table->cellAt(from, end - from, TextTable::Form::Plain));
}

void SeparatedReader::cutQuoted(qsizetype start, qsizetype end)
{
    for (qsizetype &place : g_marked)
        place -= start;
    for (const SeparatedLineCutter::Field &field :
         g_cutter.cut(g_text.sliced(start, end - start), g_marked)) {
        const auto form = field.hasDoubled ? TextTable::Form::Encoded : TextTable::Form::Plain;
        g_row.push_back(field.isOwn ? g_table->ownCell(g_cutter.bytesOf(field))
                                    : g_table->cellAt(start + field.start, field.size, form));
        g_literalCount += field.isOwn ? 1 : 0;
    }
}

void SeparatedReader::cutToTheLetter(qsizetype start, qsizetype end)
{
    const QByteArrayView line = g_text.sliced(start, end - start);
    for (const QByteArray &field : cutLiterally(line, g_separator)) {
        g_row.push_back(g_table->ownCell(field));
        g_literalCount += mayHoldTokens(field) && !line.contains(field) ? 1 : 0;
    }
}

void SeparatedReader::normalise()
{
    if (g_table->rowCount() == 0)
        return;
    const size_t wanted = g_table->cellCount(0);
    for (; g_row.size() < wanted; ++g_malformedCount)
        g_row.push_back(g_table->ownCell(missingField));
    if (g_row.size() == wanted)
        return;
    // Joining the last two, again and again, gives all of them in their order.
    g_malformedCount += g_row.size() - wanted;
    QByteArray joined = g_table->bytesOf(g_row[wanted - 1]);
    for (size_t i = wanted; i < g_row.size(); ++i)
        joined.append(extraField).append(g_table->bytesOf(g_row[i]));
    g_row.resize(wanted);
    g_row.back() = g_table->ownCell(joined);
}

} // namespace

Result<ReadTable> readSeparated(const TextContent &text, char separator, qint64 mostRows, Progress &progress)
{
    SeparatedReader reader(text, separator);
    if (const Result<> read = reader.read(mostRows, progress); !read)
        return read.error();
    return reader.result();
}

} // namespace tavrin
