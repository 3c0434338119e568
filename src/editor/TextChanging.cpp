// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/TextChanging.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>

namespace tavrin {

using namespace richtext;

namespace {

struct Run
{
    int start = 0;
    int end = 0;
    Look look;
    bool isAttachment = false;
    QVariant original; ///< See OriginalProperty.
};

template <typename Visit>
void forEachBlock(const QTextDocument &document, int start, int end, const Visit &visit)
{
    for (QTextBlock block = document.findBlock(start); block.isValid() && block.position() < end;
         block = block.next())
        visit(block);
}

/// The runs of the range; those of a block are not to be changed while it is gone through.
QList<Run> runsIn(const QTextDocument &document, int start, int end)
{
    QList<Run> runs;
    forEachBlock(document, start, end, [&](const QTextBlock &block) {
        for (auto part = block.begin(); part != block.end(); ++part) {
            const QTextFragment fragment = part.fragment();
            const int from = std::max(start, fragment.position());
            const int to = std::min(end, fragment.position() + fragment.length());
            if (from < to)
                runs.append({from,
                             to,
                             lookOf(fragment.charFormat()),
                             fragment.text().contains(QChar(attachmentCharacter)),
                             fragment.charFormat().property(OriginalProperty)});
        }
    });
    return runs;
}

/// How the end of the paragraph looks, which is what an empty one is typed into with.
void setLookAtEnd(const QTextBlock &block, const Look &look)
{
    QTextCursor cursor(block);
    if (QTextTable *table = cursor.currentTable()) {
        QTextTableCell cell = table->cellAt(cursor);
        if (cell.firstPosition() == block.position()) {
            QTextTableCellFormat format = cellFormatFor(cellStyleOf(cell.format()), look);
            if (const QVariant merged = cell.format().property(MergedProperty); merged.isValid())
                format.setProperty(MergedProperty, merged);
            cell.setFormat(format);
            return;
        }
    }
    cursor.setBlockCharFormat(charFormatFor(look));
    if (block.position() == 0) {
        QTextBlockFormat format = block.blockFormat();
        format.setProperty(FirstEndProperty, QVariant::fromValue(look));
        cursor.setBlockFormat(format);
    }
}

Look lookAtEnd(const QTextBlock &block)
{
    const bool isFirst = block.position() == 0 && block.blockFormat().hasProperty(FirstEndProperty);
    return isFirst ? qvariant_cast<Look>(block.blockFormat().property(FirstEndProperty))
                   : lookOf(block.charFormat());
}

Look changed(const Look &look, const LookChange &change)
{
    CharacterFormat format = *look;
    change(format);
    return Look(std::move(format));
}

} // namespace

void changeLook(QTextDocument &document, int start, int end, const LookChange &change)
{
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (const Run &run : runsIn(document, start, end)) {
        Look look = changed(run.look, change);
        if (look == run.look)
            continue;
        if (!run.isAttachment && look->attachment)
            look = changed(look, [](CharacterFormat &format) { format.attachment.reset(); });
        cursor.setPosition(run.start);
        cursor.setPosition(run.end, QTextCursor::KeepAnchor);
        QTextCharFormat format = charFormatFor(look);
        if (run.original.isValid())
            format.setProperty(OriginalProperty, run.original);
        cursor.setCharFormat(format);
    }
    forEachBlock(document, start, end, [&](const QTextBlock &block) {
        const Look before = lookAtEnd(block);
        const bool isInside = block.position() + block.length() - 1 < end || block.length() == 1;
        if (const Look look = changed(before, change); isInside && !(look == before))
            setLookAtEnd(block, look);
    });
    cursor.endEditBlock();
}

void changeLook(QTextCursor &cursor, const LookChange &change)
{
    if (cursor.hasSelection()) {
        changeLook(*cursor.document(), cursor.selectionStart(), cursor.selectionEnd(), change);
        return;
    }
    const Look look = changed(lookOf(cursor.charFormat()), [&change](CharacterFormat &format) {
        format.attachment.reset();
        change(format);
    });
    cursor.setCharFormat(charFormatFor(look));
}

void setParagraph(const QTextBlock &block, const ParagraphFormat &format)
{
    QTextBlockFormat shown = blockFormatFor(ParagraphLook(format));
    for (const int property : {FillerProperty, FirstEndProperty}) {
        if (block.blockFormat().hasProperty(property))
            shown.setProperty(property, block.blockFormat().property(property));
    }
    QTextCursor(block).setBlockFormat(shown);
}

void changeParagraphs(QTextCursor &cursor, const ParagraphChange &change)
{
    cursor.beginEditBlock();
    const int start = cursor.selectionStart();
    forEachBlock(
        *cursor.document(), start, std::max(start + 1, cursor.selectionEnd()), [&](const QTextBlock &block) {
            ParagraphFormat format = *paragraphLookOf(block.blockFormat());
            const ParagraphFormat before = format;
            change(format);
            if (!(format == before))
                setParagraph(block, format);
        });
    cursor.endEditBlock();
}

bool isWholly(const QTextCursor &cursor, const std::function<bool(const CharacterFormat &)> &is)
{
    if (!cursor.hasSelection())
        return is(*lookOf(cursor.charFormat()));
    const QList<Run> runs = runsIn(*cursor.document(), cursor.selectionStart(), cursor.selectionEnd());
    return std::ranges::all_of(runs, [&is](const Run &run) { return is(*run.look); });
}

CharacterFormat lookAt(const QTextCursor &cursor)
{
    if (!cursor.hasSelection())
        return *lookOf(cursor.charFormat());
    QTextCursor first(cursor.document());
    first.setPosition(cursor.selectionStart());
    first.movePosition(QTextCursor::NextCharacter);
    return *lookOf(first.charFormat());
}

ParagraphFormat paragraphAt(const QTextCursor &cursor)
{
    return *paragraphLookOf(cursor.document()->findBlock(cursor.selectionStart()).blockFormat());
}

} // namespace tavrin
