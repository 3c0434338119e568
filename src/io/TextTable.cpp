// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TextTable.h"

#include "model/FieldText.h"
#include "plist/Utf8.h"

#include <algorithm>
#include <utility>

namespace tavrin {

namespace {

/// The text with one quote for every two.
QByteArray withSingleQuotes(QByteArrayView bytes)
{
    QByteArray single(bytes.size(), Qt::Uninitialized);
    char *to = single.data();
    for (qsizetype at = 0; at < bytes.size(); ++at) {
        *to++ = bytes[at];
        if (bytes[at] == '"' && at + 1 < bytes.size() && bytes[at + 1] == '"')
            ++at;
    }
    single.truncate(to - single.constData());
    return single;
}

} // namespace

TextTable::Cell TextTable::largeCell(qsizetype start, qsizetype size, Form form)
{
    const QByteArrayView bytes = g_text.sliced(start, size);
    return ownCell(form == Form::Encoded ? withSingleQuotes(bytes) : bytes.toByteArray());
}

TextTable::Cell TextTable::ownCell(QByteArrayView utf8)
{
    Cell cell;
    const bool isLarge = utf8.size() > largestSize;
    cell.start = (isLarge ? g_largeOwn.size() : static_cast<quint64>(g_own.size())) & 0xffffffffff;
    cell.form = static_cast<quint64>(isLarge ? Form::LargeOwn : Form::Own) & 3;
    if (isLarge) {
        g_largeOwn.push_back(utf8.toByteArray());
        return cell;
    }
    cell.size = static_cast<quint64>(utf8.size()) & 0x3fffff;
    g_own.append(utf8);
    return cell;
}

QByteArrayView TextTable::ownBytes(Cell cell) const
{
    if (cell.form == static_cast<quint64>(Form::LargeOwn))
        return g_largeOwn[cell.start];
    return QByteArrayView(g_own).sliced(static_cast<qsizetype>(cell.start), cell.size);
}

quint32 TextTable::endRow()
{
    const auto end = static_cast<quint32>(g_cells.size());
    const quint32 count = end - std::exchange(g_rowStart, end);
    g_rowEnds.append(end);
    g_width = std::max(g_width, count);
    return count;
}

QByteArray TextTable::bytesOf(Cell cell) const
{
    switch (static_cast<Form>(cell.form)) {
    case Form::Own:
    case Form::LargeOwn:
        return ownBytes(cell).toByteArray();
    case Form::Encoded:
        return withSingleQuotes(g_text.sliced(static_cast<qsizetype>(cell.start), cell.size));
    case Form::Plain:
        break;
    }
    return g_text.sliced(static_cast<qsizetype>(cell.start), cell.size).toByteArray();
}

// Of a cell that is no plain one.
TextView TextTable::storedText(Cell cell) const
{
    if (cell.form != static_cast<quint64>(Form::Encoded))
        return {ownBytes(cell), false};
    const QString text = plist::fromUtf8(bytesOf(cell));
    return TextView(text.isNull() ? QStringLiteral("") : text);
}

TextView TextTable::lineOf(Cell cell) const
{
    const TextView text = textOf(cell);
    const bool isPlain = cell.form == static_cast<quint64>(Form::Plain);
    return isPlain ? text : TextView(singleLineFieldText(text.toString()));
}

QStringList TextTable::row(quint32 row) const
{
    QStringList texts;
    for (quint32 column = 0; column < cellCount(row); ++column)
        texts.append(cell(row, column).toString());
    return texts;
}

bool TextTable::isPlain(quint32 row) const
{
    for (quint32 place = firstCell(row); place < g_rowEnds[row]; ++place) {
        if (g_cells[place].form != static_cast<quint64>(Form::Plain))
            return false;
    }
    return true;
}

QByteArrayView TextTable::bytesOf(quint32 row) const
{
    if (cellCount(row) == 0)
        return {};
    const Cell first = g_cells[firstCell(row)];
    const Cell last = g_cells[g_rowEnds[row] - size_t(1)];
    return g_text.sliced(static_cast<qsizetype>(first.start),
                         static_cast<qsizetype>(last.start + last.size - first.start));
}

} // namespace tavrin
