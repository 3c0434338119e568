// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/SeparatedLine.h"

#include <algorithm>

namespace tavrin {

using namespace SeparatorToken;

namespace {

/// Cuts a tokenised line, searching it anew for each field.
class LiteralCutter
{
public:
    LiteralCutter(const QByteArray &line, char separator) : g_line(line), g_separator(separator) {}

    std::vector<QByteArray> cut();

private:
    qsizetype find(QByteArrayView what) const { return g_line.indexOf(what, g_position); }
    void emitUpTo(qsizetype end);
    void step();
    void cutQuoted(qsizetype doubleEnd, qsizetype end);
    void cutOpened();
    void cutPlain();

    QByteArray g_line;
    char g_separator;
    std::vector<QByteArray> g_fields;
    qsizetype g_position = 0;
    bool g_isOpened = false;
};

void LiteralCutter::emitUpTo(qsizetype end)
{
    QByteArray field = g_line.sliced(g_position, end - g_position);
    g_fields.push_back(field.replace(texts[DoubledQuote], "\""));
}

std::vector<QByteArray> LiteralCutter::cut()
{
    if (g_line.isEmpty())
        return {QByteArray()};
    for (qsizetype before = -1; g_position != before && g_position < g_line.size();) {
        before = g_position;
        step();
    }
    const bool hasReachedEnd = g_position == g_line.size();
    if (hasReachedEnd && (g_line.endsWith(g_separator) || g_line.endsWith(texts[QuoteSeparator])))
        g_fields.push_back({});
    return std::move(g_fields);
}

void LiteralCutter::step()
{
    if (g_position == 0 && g_line.startsWith('"')) {
        g_position = 1;
        const qsizetype doubleEnd = find(texts[QuoteSeparatorQuote]);
        const qsizetype end = find(texts[QuoteSeparator]);
        if (doubleEnd >= 0 || end >= 0) {
            cutQuoted(doubleEnd, end);
        } else {
            g_fields.push_back({});
            g_isOpened = true;
        }
    } else if (g_position == 0 && g_line.startsWith(g_separator)) {
        g_fields.push_back({});
        g_position = 1;
        g_isOpened = false;
    } else if (g_isOpened) {
        cutOpened();
    } else {
        cutPlain();
    }
}

void LiteralCutter::cutQuoted(qsizetype doubleEnd, qsizetype end)
{
    const bool isDouble = doubleEnd >= 0 && (end < 0 || doubleEnd <= end);
    const qsizetype nearer = isDouble ? doubleEnd : end;
    emitUpTo(nearer);
    g_position = nearer + texts[QuoteSeparator].size();
    g_isOpened = isDouble;
}

void LiteralCutter::cutOpened()
{
    const qsizetype doubleEnd = find(texts[QuoteSeparatorQuote]);
    const qsizetype end = find(texts[QuoteSeparator]);
    if (doubleEnd >= 0 || end >= 0) {
        cutQuoted(doubleEnd, end);
        return;
    }
    const qsizetype quote = find("\"");
    if (quote < 0) {
        g_fields.push_back({});
        return;
    }
    emitUpTo(quote);
    g_position = quote + 1;
    g_isOpened = false;
}

void LiteralCutter::cutPlain()
{
    const qsizetype separator = find(QByteArrayView(&g_separator, 1));
    const qsizetype opening = find(texts[SeparatorQuote]);
    if (separator < 0) {
        emitUpTo(g_line.size());
        g_position = g_line.size();
    } else if (opening >= 0 && opening < separator) {
        emitUpTo(opening);
        g_position = opening + texts[SeparatorQuote].size();
        g_isOpened = true;
    } else {
        emitUpTo(separator);
        g_position = separator + 1;
    }
}

} // namespace

std::vector<QByteArray> cutLiterally(QByteArrayView line, char separator)
{
    QByteArray tokenised = line.toByteArray();
    const QByteArray middle(1, separator);
    tokenised.replace("\"" + middle + "\"", texts[QuoteSeparatorQuote].toByteArray());
    tokenised.replace("\"" + middle, texts[QuoteSeparator].toByteArray());
    tokenised.replace(middle + "\"", texts[SeparatorQuote].toByteArray());
    tokenised.replace("\"\"", texts[DoubledQuote].toByteArray());
    return LiteralCutter(tokenised, separator).cut();
}

} // namespace tavrin
