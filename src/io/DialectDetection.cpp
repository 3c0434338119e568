// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/DialectDetection.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tavrin {

namespace {

constexpr qsizetype lookedAt = qsizetype(256) << 10;
constexpr qint64 lookedAtRows = 200;

/// How good a dialect fits: columns of regular rows count, rows of another length count against it.
double fitOf(const ReadTable &table)
{
    const quint32 rows = table.table->rowCount();
    const quint32 width = table.incomingFieldCount();
    if (rows == 0 || width < 2)
        return 0;
    const double regular = 1.0 - static_cast<double>(table.malformedCount) / rows;
    return regular * regular * (1.0 + std::min(width, 20U) / 100.0);
}

bool looksLikeNumber(const QString &text)
{
    return std::ranges::any_of(text, [](QChar character) { return character.isDigit(); });
}

/// Names are different from each other, none is empty or a number, and below at least one column holds
/// numbers.
bool seemsToHaveNames(const ReadTable &table)
{
    if (table.table->rowCount() < 2)
        return false;
    const QStringList names = table.table->row(0);
    const bool areNames = std::ranges::none_of(names, [&names](const QString &name) {
        return name.trimmed().isEmpty() || looksLikeNumber(name) || names.count(name) > 1 || name.size() > 60;
    });
    return areNames;
}

} // namespace

DetectedDialect detectDialect(const TextContent &text)
{
    const TextContent head = text.head(lookedAt);
    // The last row is cut, most likely.
    const bool isWhole = head.utf8.size() == text.utf8.size();
    DetectedDialect best;
    double bestFit = 0;
    for (const char quote : {'"', '\''}) {
        for (const char separator : {',', ';', '\t', '|', ':'}) {
            Progress progress;
            Result<ReadTable> table = readStandard(head, {separator, quote}, lookedAtRows, progress);
            if (!table)
                continue;
            if (!isWhole && table->malformedCount > 0 && table->table->rowCount() < lookedAtRows)
                --table->malformedCount;
            // What is likelier comes first, and has to be beaten clearly.
            const double fit = fitOf(*table);
            if (fit <= bestFit * 1.02)
                continue;
            bestFit = fit;
            best = {{separator, quote}, seemsToHaveNames(*table), table->malformedCount == 0};
        }
    }
    return best;
}

bool isBetterReadAsStandard(const TextContent &text, char separator)
{
    // Quotes may be rare. So much is read before anybody notices.
    constexpr qsizetype readAhead = qsizetype(4) << 20;
    constexpr qint64 allRows = std::numeric_limits<qint64>::max();
    const TextContent head = text.head(readAhead);
    // The last row of a part is cut.
    const quint64 cutRows = head.utf8.size() < text.utf8.size() ? 1 : 0;
    Progress progress;
    const Result<ReadTable> given = readSeparated(head, separator, allRows, progress);
    const bool isBad = given && (given->literalCount > 0 || given->malformedCount > cutRows);
    if (!isBad)
        return false;
    const Result<ReadTable> standard = readStandard(head, {separator, '"'}, allRows, progress);
    return standard && standard->table->width() > 1
           && (standard->malformedCount <= cutRows || given->literalCount > 0);
}

} // namespace tavrin
