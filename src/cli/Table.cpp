// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/Table.h"

#include <algorithm>
#include <array>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype widestColumn = 32;
constexpr qsizetype gap = 2; // between columns

struct Range
{
    char32_t first;
    char32_t last;
};

/// The scripts and symbols that terminals draw two columns wide.
constexpr std::array<Range, 14> wideRanges{{{0x1100, 0x115F},
                                            {0x2E80, 0x303E},
                                            {0x3041, 0x33FF},
                                            {0x3400, 0x4DBF},
                                            {0x4E00, 0x9FFF},
                                            {0xA000, 0xA4CF},
                                            {0xAC00, 0xD7A3},
                                            {0xF900, 0xFAFF},
                                            {0xFE30, 0xFE6F},
                                            {0xFF00, 0xFF60},
                                            {0xFFE0, 0xFFE6},
                                            {0x1F300, 0x1F64F},
                                            {0x1F900, 0x1F9FF},
                                            {0x20000, 0x3FFFD}}};

qsizetype widthOf(char32_t character)
{
    if (character < 0x300)
        return 1;
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return 0;
    default:
        break;
    }
    const auto holds = [character](Range range) {
        return character >= range.first && character <= range.last;
    };
    return std::ranges::any_of(wideRanges, holds) ? 2 : 1;
}

/// The character at the index, of one unit or two.
char32_t characterAt(QStringView text, qsizetype index)
{
    const QChar unit = text[index];
    if (unit.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(unit, text[index + 1]);
    return unit.unicode();
}

/// How many units from the start fit into the width.
qsizetype unitsWithin(QStringView text, qsizetype width)
{
    qsizetype index = 0;
    while (index < text.size()) {
        const char32_t character = characterAt(text, index);
        width -= widthOf(character);
        if (width < 0)
            break;
        index += QChar::requiresSurrogates(character) ? 2 : 1;
    }
    return index;
}

bool isLineEnd(QChar character)
{
    return character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

void writeRow(Output &output, const QStringList &cells, const QList<qsizetype> &widths)
{
    QString line;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        const QString cell = cutToWidth(cells[i], widths[i]);
        line += cell;
        // The last column is not filled up: lines end with their text.
        if (i + 1 < cells.size())
            line += QString(widths[i] - displayWidth(cell) + gap, u' ');
    }
    output.writeLine(line);
}

} // namespace

qsizetype displayWidth(QStringView text)
{
    qsizetype width = 0;
    for (qsizetype index = 0; index < text.size();) {
        const char32_t character = characterAt(text, index);
        width += widthOf(character);
        index += QChar::requiresSurrogates(character) ? 2 : 1;
    }
    return width;
}

QString singleLine(const QString &text)
{
    QString line = text;
    for (QChar &character : line) {
        if (character.category() == QChar::Other_Control || isLineEnd(character))
            character = u' ';
    }
    return line;
}

QString printable(const QString &text)
{
    QString result = text;
    for (QChar &character : result) {
        const bool kept = character == u'\n' || character == u'\t';
        if (character == u'\r' || isLineEnd(character))
            character = u'\n';
        else if (!kept && character.category() == QChar::Other_Control)
            character = u' ';
    }
    return result;
}

QString cutToWidth(const QString &text, qsizetype width)
{
    const qsizetype fitting = unitsWithin(text, width);
    if (fitting == text.size())
        return text;
    return text.first(unitsWithin(text, width - 1)) + u'…';
}

void writeTable(Output &output,
                const QStringList &headings,
                qint64 rowCount,
                const std::function<QStringList(qint64)> &rowAt)
{
    QList<qsizetype> widths;
    for (const QString &heading : headings)
        widths.append(displayWidth(cutToWidth(heading, widestColumn)));
    for (qint64 row = 0; row < rowCount; ++row) {
        const QStringList cells = rowAt(row);
        for (qsizetype i = 0; i < cells.size(); ++i)
            widths[i] = std::max(widths[i], displayWidth(cutToWidth(cells[i], widestColumn)));
    }
    writeRow(output, headings, widths);
    for (qint64 row = 0; row < rowCount; ++row)
        writeRow(output, rowAt(row), widths);
}

void writePairs(Output &output, const QList<std::pair<QString, QString>> &pairs)
{
    qsizetype width = 0;
    for (const auto &pair : pairs)
        width = std::max(width, displayWidth(pair.first));
    for (const auto &[name, value] : pairs)
        output.writeLine(name + QString(width - displayWidth(name) + gap, u' ') + value);
}

} // namespace tavrin
