// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/TextLists.h"

#include "editor/TextChanging.h"
#include "richtext/ListMarker.h"

#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <array>

namespace tavrin {

using namespace richtext;

namespace {

constexpr qint32 levelIndent = 720;
constexpr qint32 markerPlace = 220;

ParagraphFormat formatOf(const QTextBlock &block)
{
    return *paragraphLookOf(block.blockFormat());
}

int listOf(const QTextBlock &block)
{
    return block.isValid() ? paragraphLookOf(block.blockFormat())->list.identifier : 0;
}

/// The length of the marker and its tabs at the beginning of an item; 0: there is none.
int markerLength(const QString &text)
{
    constexpr qsizetype longest = 40;
    if (!text.startsWith(u'\t'))
        return 0;
    const qsizetype end = text.indexOf(u'\t', 1);
    return end > 0 && end < longest ? static_cast<int>(end + 1) : 0;
}

/// As the text beside it, but neither a link nor a picture.
QTextCharFormat markerLook(const QTextCharFormat &beside)
{
    CharacterFormat look = *lookOf(beside);
    look.attachment.reset();
    look.link.clear();
    return charFormatFor(Look(std::move(look)));
}

void replaceMarker(const QTextBlock &block, const QString &marker)
{
    const int length = listOf(block) != 0 || marker.isEmpty() ? markerLength(block.text()) : 0;
    if (block.text().startsWith(marker) && length == marker.size())
        return;
    // Looks like what follows it, or what would be typed.
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + length);
    if (block.length() - 1 > length)
        cursor.movePosition(QTextCursor::NextCharacter);
    const QTextCharFormat look = markerLook(cursor.charFormat());
    cursor.setPosition(block.position());
    cursor.setPosition(block.position() + length, QTextCursor::KeepAnchor);
    cursor.insertText(marker, look);
}

/// Numbers the items of the list around a paragraph anew, as far as they follow each other.
void renumber(QTextBlock block)
{
    const int list = listOf(block);
    if (list == 0)
        return;
    while (listOf(block.previous()) == list)
        block = block.previous();
    std::array<qint32, deepestListLevel + 1> numbers{};
    std::array<bool, deepestListLevel + 1> isCounting{};
    for (; listOf(block) == list; block = block.next()) {
        const ListItem item = formatOf(block).list;
        const auto level = static_cast<size_t>(qBound(0, item.level, deepestListLevel));
        const ListLevel style = item.levels.value(item.level);
        numbers[level] = isCounting[level] ? numbers[level] + 1 : style.startAt;
        isCounting[level] = true;
        std::fill(isCounting.begin() + static_cast<qsizetype>(level) + 1, isCounting.end(), false);
        replaceMarker(block, listMarker(style.marker, numbers[level]));
    }
}

int freeIdentifier(const QTextDocument &document)
{
    int largest = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        largest = std::max(largest, listOf(block));
    return largest + 1;
}

void indentForLevel(ParagraphFormat &paragraph, qint32 level)
{
    paragraph.headIndent = levelIndent * (level + 1);
    paragraph.firstLineIndent = -paragraph.headIndent;
    paragraph.tabStops = {{levelIndent * level + markerPlace}, {paragraph.headIndent}};
}

/// The selected paragraphs.
QList<QTextBlock> blocksOf(const QTextCursor &cursor)
{
    QList<QTextBlock> blocks;
    const QTextBlock last = cursor.document()->findBlock(cursor.selectionEnd());
    for (QTextBlock block = cursor.document()->findBlock(cursor.selectionStart()); block.isValid();
         block = block.next()) {
        blocks.append(block);
        if (block == last)
            break;
    }
    return blocks;
}

void takeOut(const QTextBlock &block)
{
    ParagraphFormat format = formatOf(block);
    if (format.list.identifier == 0)
        return;
    const QTextBlock next = block.next();
    replaceMarker(block, {});
    leaveList(format);
    setParagraph(block, format);
    renumber(next);
}

} // namespace

QString listMarker(const QString &marker, qint32 number)
{
    return u'\t' + markerText(marker, number) + u'\t';
}

void makeListItem(ParagraphFormat &paragraph, qint32 identifier, const QString &marker, qint32 level)
{
    paragraph.list = {identifier, level, QList<ListLevel>(deepestListLevel + 1, ListLevel{marker, 1})};
    indentForLevel(paragraph, level);
}

void leaveList(ParagraphFormat &paragraph)
{
    paragraph.list = {};
    paragraph.headIndent = 0;
    paragraph.firstLineIndent = 0;
    paragraph.tabStops.clear();
}

void setList(QTextCursor &cursor, const QString &marker)
{
    const QList<QTextBlock> blocks = blocksOf(cursor);
    cursor.beginEditBlock();
    if (marker.isEmpty()) {
        for (const QTextBlock &block : blocks)
            takeOut(block);
    } else {
        const int identifier = freeIdentifier(*cursor.document());
        for (const QTextBlock &block : blocks) {
            ParagraphFormat format = formatOf(block);
            const qint32 level = format.list.identifier == 0 ? 0 : qMin(format.list.level, deepestListLevel);
            if (format.list.identifier != 0)
                replaceMarker(block, {});
            makeListItem(format, identifier, marker, level);
            setParagraph(block, format);
            QTextCursor(block).insertText(listMarker(marker, 1), markerLook(QTextCursor(block).charFormat()));
        }
        renumber(blocks.constFirst());
        renumber(blocks.constLast().next());
    }
    cursor.endEditBlock();
}

bool changeListLevel(QTextCursor &cursor, int by)
{
    const QList<QTextBlock> blocks = blocksOf(cursor);
    if (std::ranges::none_of(blocks, [](const QTextBlock &block) { return listOf(block) != 0; }))
        return false;
    cursor.beginEditBlock();
    for (const QTextBlock &block : blocks) {
        ParagraphFormat format = formatOf(block);
        if (format.list.identifier == 0)
            continue;
        const qint32 level = qBound(0, format.list.level + by, deepestListLevel);
        while (format.list.levels.size() <= level)
            format.list.levels.append(ListLevel{format.list.levels.constLast().marker, 1});
        format.list.level = level;
        indentForLevel(format, level);
        setParagraph(block, format);
        renumber(block);
    }
    cursor.endEditBlock();
    return true;
}

bool splitListItem(QTextCursor &cursor)
{
    const QTextBlock block = cursor.block();
    if (cursor.hasSelection() || listOf(block) == 0)
        return false;
    const int length = markerLength(block.text());
    if (cursor.positionInBlock() < length)
        return false;
    cursor.beginEditBlock();
    if (block.length() - 1 == length) {
        takeOut(block);
    } else {
        const QTextCharFormat look = markerLook(cursor.charFormat());
        cursor.insertBlock(block.blockFormat(), look);
        cursor.insertText(listMarker(formatOf(block).list.levels.value(formatOf(block).list.level).marker, 1),
                          look);
        renumber(cursor.block());
    }
    cursor.endEditBlock();
    return true;
}

bool leaveListAtMarker(QTextCursor &cursor)
{
    const QTextBlock block = cursor.block();
    if (cursor.hasSelection() || listOf(block) == 0 || cursor.positionInBlock() > markerLength(block.text()))
        return false;
    cursor.beginEditBlock();
    takeOut(block);
    cursor.endEditBlock();
    return true;
}

QString listMarkerAt(const QTextCursor &cursor)
{
    const ListItem item = paragraphAt(cursor).list;
    return item.identifier == 0 ? QString() : item.levels.value(item.level).marker;
}

} // namespace tavrin
