// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/LineEnd.h"
#include "io/MarkScanner.h"
#include "io/ReadProgress.h"
#include "io/TableReaders.h"

namespace tavrin {

namespace {

class StandardReader
{
public:
    StandardReader(const TextContent &text, StandardDialect dialect)
        : g_text(text.utf8)
        , g_separator(dialect.separator)
        , g_quote(dialect.quote)
        , g_scanner(text.utf8,
                    {dialect.separator,
                     dialect.quote ? dialect.quote : '\n',
                     '\n',
                     '\r',
                     '\t',
                     LineEnd::separatorLead})
        , g_table(std::make_shared<TextTable>(text.bytes, text.utf8))
    {}

    Result<> read(qint64 mostRows, Progress &progress);
    ReadTable result() const { return {g_table, g_malformedCount}; }

private:
    bool isQuote(qsizetype at) const { return g_quote != 0 && at < g_text.size() && g_text[at] == g_quote; }
    bool isLineEnd(qsizetype at) const { return g_text[at] == '\n' || g_text[at] == '\r'; }
    bool endsValue(qsizetype at) const
    {
        return at >= g_text.size() || g_text[at] == g_separator || isLineEnd(at);
    }
    void next();
    void readValue();
    void readQuoted();
    void passMark();
    TextTable::Cell cellOf(qsizetype start, qsizetype end, bool hasDoubled);
    bool endLine();

    QByteArrayView g_text;
    char g_separator;
    char g_quote;
    MarkScanner g_scanner;
    std::shared_ptr<TextTable> g_table;
    qsizetype g_at = 0;   ///< Where the next value begins.
    qsizetype g_mark = 0; ///< The first mark at g_at or behind it, or inside of the value being read.
    quint64 g_malformedCount = 0;
    bool g_hasLineEnd = false; ///< In the value that is read, or a tab: a field would hold it otherwise.
};

Result<> StandardReader::read(qint64 mostRows, Progress &progress)
{
    ReadProgress reported(g_text.size(), progress);
    g_mark = g_scanner.next();
    while (g_at < g_text.size() && g_table->rowCount() < mostRows) {
        // An empty line.
        if (g_mark == g_at && isLineEnd(g_at)) {
            ++g_at;
            next();
            continue;
        }
        readValue();
        while (!endLine())
            readValue();
        if (g_table->endRow() != g_table->cellCount(0))
            ++g_malformedCount;
        if (g_table->isFull())
            return tooManyCells();
        if (!reported.setDone(g_at, g_table->rowCount()))
            return cancelled();
    }
    return {};
}

void StandardReader::next()
{
    while (g_mark < g_at)
        g_mark = g_scanner.next();
}

/// Moves behind what ended a value. True when that ended the row too.
bool StandardReader::endLine()
{
    if (g_at >= g_text.size())
        return true;
    const bool isSeparator = g_text[g_at] == g_separator;
    const bool isPair = g_text[g_at] == '\r' && g_at + 1 < g_text.size() && g_text[g_at + 1] == '\n';
    g_at += isPair ? 2 : 1;
    next();
    return !isSeparator;
}

// A mark inside of the value.
void StandardReader::passMark()
{
    const bool isTab = g_text[g_mark] == '\t';
    g_hasLineEnd = g_hasLineEnd || isTab || LineEnd::sizeAt(g_text, g_mark) > 0;
    g_mark = g_scanner.next();
}

// Leaves g_at at what ended the value.
void StandardReader::readValue()
{
    g_hasLineEnd = false;
    if (isQuote(g_at)) {
        readQuoted();
        return;
    }
    // Inside of a value that does not begin with a quote, quotes are text.
    const qsizetype start = g_at;
    while (g_mark < g_text.size() && !endsValue(g_mark))
        passMark();
    const qsizetype size = g_mark - start;
    g_table->appendCell(g_hasLineEnd ? g_table->ownCell(g_text.sliced(start, size))
                                     : g_table->cellAt(start, size, TextTable::Form::Plain));
    g_at = g_mark;
}

void StandardReader::readQuoted()
{
    const qsizetype start = ++g_at;
    bool hasDoubled = false;
    next();
    for (;;) {
        while (g_mark < g_text.size() && !isQuote(g_mark))
            passMark();
        if (g_mark >= g_text.size()) {
            g_table->appendCell(cellOf(start, g_text.size(), hasDoubled));
            ++g_malformedCount;
            g_at = g_text.size();
            return;
        }
        if (!isQuote(g_mark + 1))
            break;
        hasDoubled = true;
        g_at = g_mark + 2;
        next();
    }
    const qsizetype end = g_mark;
    g_at = end + 1;
    next();
    if (endsValue(g_at)) {
        g_table->appendCell(cellOf(start, end, hasDoubled));
        return;
    }
    // Text behind the closing quote belongs to the value; quotes in it are text.
    while (g_mark < g_text.size() && !endsValue(g_mark))
        g_mark = g_scanner.next();
    QByteArray whole = g_table->bytesOf(cellOf(start, end, hasDoubled));
    whole.append(g_text.sliced(end + 1, g_mark - end - 1));
    g_table->appendCell(g_table->ownCell(whole));
    ++g_malformedCount;
    g_at = g_mark;
}

// Of what stood between quotes.
TextTable::Cell StandardReader::cellOf(qsizetype start, qsizetype end, bool hasDoubled)
{
    if (!hasDoubled && !g_hasLineEnd)
        return g_table->cellAt(start, end - start, TextTable::Form::Plain);
    if (g_quote == '"')
        return g_table->cellAt(start, end - start, TextTable::Form::Encoded);
    QByteArray single = g_text.sliced(start, end - start).toByteArray();
    return g_table->ownCell(single.replace(QByteArray(2, g_quote), QByteArray(1, g_quote)));
}

} // namespace

Result<ReadTable>
readStandard(const TextContent &text, StandardDialect dialect, qint64 mostRows, Progress &progress)
{
    StandardReader reader(text, dialect);
    if (const Result<> read = reader.read(mostRows, progress); !read)
        return read.error();
    return reader.result();
}

} // namespace tavrin
