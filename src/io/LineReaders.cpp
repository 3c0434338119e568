// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/LineEnd.h"
#include "io/MarkScanner.h"
#include "io/ReadProgress.h"
#include "io/TableReaders.h"

namespace tavrin {

Result<ReadTable> readTabDelimited(const TextContent &text, qint64 mostRows, Progress &progress)
{
    const QByteArrayView utf8 = text.utf8;
    const auto table = std::make_shared<TextTable>(text.bytes, utf8);
    MarkScanner scanner(utf8, {'\t', '\n', '\r', LineEnd::separatorLead, '\n', '\n', '\n', '\n'});
    ReadProgress reported(utf8.size(), progress);
    qsizetype lineStart = 0;
    qsizetype cellStart = 0;
    while (lineStart < utf8.size() && table->rowCount() < mostRows) {
        const qsizetype place = scanner.next();
        if (place < cellStart)
            continue;
        const bool isAtEnd = place == utf8.size();
        const bool isTab = !isAtEnd && utf8[place] == '\t';
        const qsizetype size = isAtEnd ? 0 : LineEnd::sizeAt(utf8, place);
        if (!isTab && !isAtEnd && size == 0)
            continue;
        table->appendCell(table->cellAt(cellStart, place - cellStart, TextTable::Form::Plain));
        cellStart = place + (isTab ? 1 : size);
        if (isTab)
            continue;
        table->endRow();
        lineStart = cellStart;
        if (table->isFull())
            return tooManyCells();
        if (isAtEnd)
            break;
        if (!reported.setDone(lineStart, table->rowCount()))
            return cancelled();
    }
    return ReadTable{table};
}

Result<ReadTable> readCustomDelimited(const TextContent &text, const QString &delimiter, Progress &progress)
{
    const QByteArrayView utf8 = text.utf8;
    const QByteArray wanted = delimiter.toUtf8();
    const auto table = std::make_shared<TextTable>(text.bytes, utf8);
    ReadProgress reported(utf8.size(), progress);
    qsizetype start = 0;
    while (start < utf8.size()) {
        const qsizetype found = wanted.isEmpty() ? -1 : utf8.indexOf(wanted, start);
        const qsizetype end = found < 0 ? utf8.size() : found;
        if (end > start) {
            table->appendCell(table->cellAt(start, end - start, TextTable::Form::Plain));
            table->endRow();
        }
        start = end + wanted.size();
        if (found < 0)
            break;
        if (!reported.setDone(start, table->rowCount()))
            return cancelled();
    }
    return ReadTable{table};
}

} // namespace tavrin
