// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/LineEnd.h"
#include "io/MarkScanner.h"
#include "io/ReadProgress.h"
#include "io/TableReaders.h"

namespace tavrin {

namespace {

/// What a byte is to the reader. From Separator on it ends a value that does not stand between quotes.
enum class Kind : quint8 { Text, Quote, Separator, LineEnd, TextEnd };

std::array<Kind, 256> kindsOf(const StandardDialect &dialect)
{
    std::array<Kind, 256> kinds{};
    kinds['\n'] = kinds['\r'] = Kind::LineEnd;
    if (dialect.quote != 0)
        kinds[static_cast<uchar>(dialect.quote)] = Kind::Quote;
    kinds[static_cast<uchar>(dialect.separator)] = Kind::Separator;
    return kinds;
}

class StandardReader
{
public:
    StandardReader(const TextContent &text, StandardDialect dialect)
        : g_text(text.utf8)
        , g_quote(dialect.quote)
        , g_kinds(kindsOf(dialect))
        , g_scanner(text.utf8,
                    {dialect.separator,
                     dialect.quote ? dialect.quote : '\n',
                     '\n',
                     '\r',
                     '\t',
                     LineEnd::separatorLead,
                     '\n',
                     '\n'})
        , g_table(std::make_shared<TextTable>(text.bytes, text.utf8))
    {}

    Result<> read(qint64 mostRows, Progress &progress);
    ReadTable result() const { return {g_table, g_malformedCount}; }

private:
    Kind kindAt(qsizetype at) const
    {
        return at < g_text.size() ? g_kinds[static_cast<uchar>(g_text[at])] : Kind::TextEnd;
    }
    void next();
    Kind readValue();
    Kind readQuoted();
    void passMark();
    void passEnd(Kind end);
    TextTable::Cell cellOf(qsizetype start, qsizetype end, bool hasDoubled);

    QByteArrayView g_text;
    char g_quote;
    std::array<Kind, 256> g_kinds;
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
        if (g_mark == g_at && kindAt(g_at) == Kind::LineEnd) {
            ++g_at;
            g_mark = g_scanner.next();
            continue;
        }
        for (Kind end = Kind::Separator; end == Kind::Separator;) {
            end = readValue();
            passEnd(end);
        }
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

// Moves behind what ended a value; that is the mark.
void StandardReader::passEnd(Kind end)
{
    if (end == Kind::TextEnd)
        return;
    const bool isPair =
        end == Kind::LineEnd && g_text[g_at] == '\r' && g_at + 1 < g_text.size() && g_text[g_at + 1] == '\n';
    g_at += isPair ? 2 : 1;
    next();
}

// A mark inside of the value.
void StandardReader::passMark()
{
    const bool isTab = g_text[g_mark] == '\t';
    g_hasLineEnd = g_hasLineEnd || isTab || LineEnd::sizeAt(g_text, g_mark) > 0;
    g_mark = g_scanner.next();
}

// Leaves g_at at what ended the value.
Kind StandardReader::readValue()
{
    const qsizetype start = g_at;
    Kind kind = kindAt(g_mark);
    if (kind == Kind::Quote && g_mark == start)
        return readQuoted();
    g_hasLineEnd = false;
    // Inside of a value that does not begin with a quote, quotes are text.
    for (; kind < Kind::Separator; kind = kindAt(g_mark))
        passMark();
    const qsizetype size = g_mark - start;
    g_table->appendCell(g_hasLineEnd ? g_table->ownCell(g_text.sliced(start, size))
                                     : g_table->cellAt(start, size, TextTable::Form::Plain));
    g_at = g_mark;
    return kind;
}

Kind StandardReader::readQuoted()
{
    const qsizetype start = ++g_at;
    bool hasDoubled = false;
    g_hasLineEnd = false;
    g_mark = g_scanner.next();
    for (;;) {
        while (g_mark < g_text.size() && kindAt(g_mark) != Kind::Quote)
            passMark();
        if (g_mark >= g_text.size()) {
            g_table->appendCell(cellOf(start, g_text.size(), hasDoubled));
            ++g_malformedCount;
            g_at = g_text.size();
            return Kind::TextEnd;
        }
        if (kindAt(g_mark + 1) != Kind::Quote)
            break;
        hasDoubled = true;
        g_at = g_mark + 2;
        next();
    }
    const qsizetype end = g_mark;
    g_at = end + 1;
    g_mark = g_scanner.next();
    Kind kind = kindAt(g_at);
    if (kind >= Kind::Separator) {
        g_table->appendCell(cellOf(start, end, hasDoubled));
        return kind;
    }
    // Text behind the closing quote belongs to the value; quotes in it are text.
    for (kind = kindAt(g_mark); kind < Kind::Separator; kind = kindAt(g_mark))
        g_mark = g_scanner.next();
    QByteArray whole = g_table->bytesOf(cellOf(start, end, hasDoubled));
    whole.append(g_text.sliced(end + 1, g_mark - end - 1));
    g_table->appendCell(g_table->ownCell(whole));
    ++g_malformedCount;
    g_at = g_mark;
    return kind;
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
