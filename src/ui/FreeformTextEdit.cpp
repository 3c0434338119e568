// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FreeformTextEdit.h"

#include "editor/TextBridge.h"
#include "editor/TextChanging.h"
#include "editor/TextLists.h"
#include "editor/TextTables.h"
#include "ui/DatafileDrop.h"
#include "ui/HitColors.h"
#include "ui/LinkColors.h"
#include "ui/TextClipboard.h"
#include "ui/TextMarks.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTextDocument>
#include <QTextTable>

namespace tavrin {

using namespace richtext;

FreeformTextEdit::FreeformTextEdit(QWidget *parent)
    : QTextEdit(parent)
    , g_device(*viewport())
    , g_linkColors(new LinkColors(*document()))
    , g_marks(new TextMarks(*this))
{
    // Every 28 points, where nobody set a tab stop.
    constexpr double tabDistance = 37;
    setFrameShape(QFrame::NoFrame);
    setTabStopDistance(tabDistance);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    document()->setDocumentMargin(8);
    document()->documentLayout()->setPaintDevice(&g_device);
    g_attachments.registerAt(*document());
    applyPaperColor();
    connect(this, &QTextEdit::textChanged, this, [this] {
        if (!g_loading)
            Q_EMIT edited();
    });
}

FreeformTextEdit::~FreeformTextEdit()
{
    // The document goes later than the members here.
    document()->documentLayout()->setPaintDevice(nullptr);
    document()->documentLayout()->unregisterHandler(attachmentObject, &g_attachments);
}

QString FreeformTextEdit::plainCharacters() const
{
    return plainTextOf(*document());
}

AttributedText FreeformTextEdit::formattedText() const
{
    return textOf(*document());
}

QTextCursor FreeformTextEdit::cursorOn(const text::Match &range) const
{
    const TextPlacement placement(*document());
    const int last = document()->characterCount() - 1;
    QTextCursor cursor(document());
    cursor.setPosition(qBound(0, placement.positionOf(range.start), last));
    cursor.setPosition(qBound(0, placement.positionOf(range.start + range.length), last),
                       QTextCursor::KeepAnchor);
    return cursor;
}

text::Match FreeformTextEdit::placesOf(const QTextCursor &cursor) const
{
    const TextPlacement placement(*document());
    const qsizetype start = placement.placeOf(cursor.selectionStart());
    return {start, placement.placeOf(cursor.selectionEnd()) - start};
}

void FreeformTextEdit::setText(const AttributedText &text, const CharacterFormat &plain)
{
    g_loading = true;
    tavrin::setText(*document(), text, plain);
    QTextCursor start(document());
    // A table may stand before everything else.
    setTextCursor(start);
    setCurrentCharFormat(charFormatFor(lookOf(start.charFormat(), plain)));
    verticalScrollBar()->setValue(0);
    g_loading = false;
}

void FreeformTextEdit::decorate(const std::function<void(QTextDocument &)> &change)
{
    const bool wasModified = document()->isModified();
    g_loading = true;
    document()->setUndoRedoEnabled(false);
    change(*document());
    document()->setUndoRedoEnabled(true);
    document()->setModified(wasModified);
    g_loading = false;
}

void FreeformTextEdit::setMayHaveFormats(bool formats, bool images)
{
    g_mayHaveFormats = formats;
    g_mayHaveImages = images;
    setAcceptRichText(formats);
}

void FreeformTextEdit::setTextScale(double scale)
{
    if (scale == g_device.scale())
        return;
    g_device.setScale(scale);
    document()->markContentsDirty(0, document()->characterCount());
    viewport()->update();
}

void FreeformTextEdit::setPaperColor(const QColor &color)
{
    if (g_paperColor == color)
        return;
    g_paperColor = color;
    applyPaperColor();
}

void FreeformTextEdit::showHits(const QList<text::Match> &hits, const QColor &color)
{
    g_hits.clear();
    g_hitColor = color;
    for (const text::Match &hit : hits)
        g_hits.append(cursorOn(hit));
    applyHits();
}

void FreeformTextEdit::applyHits()
{
    // The last hit is selected as well: on what marks it, the hit's colour must be read, too.
    QPalette colors = palette();
    const QPalette usual = QApplication::palette(this);
    const HitColors hitColors(g_hitColor, colors.color(QPalette::Active, QPalette::Base));
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        const bool hasHits = !g_hits.isEmpty();
        colors.setColor(
            group, QPalette::Highlight, hasHits ? hitColors.mark : usual.color(group, QPalette::Highlight));
        colors.setColor(group,
                        QPalette::HighlightedText,
                        hasHits ? hitColors.text : usual.color(group, QPalette::HighlightedText));
    }
    setPalette(colors);
    QList<ExtraSelection> shown;
    for (const QTextCursor &hit : g_hits) {
        ExtraSelection selection;
        selection.cursor = hit;
        selection.format.setForeground(hitColors.text);
        selection.format.setBackground(hitColors.mark);
        shown.append(selection);
    }
    g_marks->setMarks(QStringLiteral("found"), shown);
}

// Keys.

bool FreeformTextEdit::event(QEvent *event)
{
    // Without typing to take back, the keys are the window's.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isFree = (key->matches(QKeySequence::Undo) && !document()->isUndoAvailable())
                            || (key->matches(QKeySequence::Redo) && !document()->isRedoAvailable());
        if (isFree) {
            event->ignore();
            return false;
        }
    }
    if (event->type() == QEvent::ShortcutOverride && isReadOnly()) {
        // In a text that is only read these keys move as in any other, and not from record to record.
        const auto *key = static_cast<QKeyEvent *>(event);
        for (const QKeySequence::StandardKey move : {QKeySequence::MoveToStartOfDocument,
                                                     QKeySequence::MoveToEndOfDocument,
                                                     QKeySequence::SelectStartOfDocument,
                                                     QKeySequence::SelectEndOfDocument}) {
            if (key->matches(move)) {
                event->accept();
                return true;
            }
        }
    }
    return QTextEdit::event(event);
}

void FreeformTextEdit::keyPressEvent(QKeyEvent *event)
{
    // Tab belongs to the text; with Ctrl it leaves.
    if (event->key() == Qt::Key_Tab && event->modifiers() == Qt::ControlModifier) {
        focusNextPrevChild(true);
        return;
    }
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && isReadOnly()) {
        Q_EMIT linkAtCaretFollowed();
        return;
    }
    if (!isReadOnly() && handleStructureKey(*event))
        return;
    if (!event->text().isEmpty())
        leaveLinkAndAttachment();
    QTextEdit::keyPressEvent(event);
}

void FreeformTextEdit::inputMethodEvent(QInputMethodEvent *event)
{
    leaveLinkAndAttachment();
    QTextEdit::inputMethodEvent(event);
}

/// What Return, Backspace and Tab do in lists and tables. False: what they do everywhere.
bool FreeformTextEdit::handleStructureKey(const QKeyEvent &event)
{
    QTextCursor cursor = textCursor();
    const bool isPlain = event.modifiers() == Qt::NoModifier || event.modifiers() == Qt::KeypadModifier;
    bool handled = false;
    if (isPlain && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter))
        handled = splitListItem(cursor) || insertParagraph(cursor);
    else if (isPlain && event.key() == Qt::Key_Backspace)
        handled = leaveListAtMarker(cursor);
    else if (isPlain && event.key() == Qt::Key_Tab)
        return moveInTable(true) || (!cursor.hasSelection() && changeListLevel(cursor, 1));
    else if (event.key() == Qt::Key_Backtab)
        return moveInTable(false) || changeListLevel(cursor, -1);
    if (handled) {
        setTextCursor(cursor);
        ensureCursorVisible();
    }
    return handled;
}

/// Qt would take the looks away instead, in a paragraph that is empty.
bool FreeformTextEdit::insertParagraph(QTextCursor &cursor)
{
    leaveLinkAndAttachment();
    QTextBlockFormat paragraph = cursor.blockFormat();
    paragraph.clearProperty(FillerProperty);
    paragraph.clearProperty(FirstEndProperty);
    cursor.insertBlock(paragraph, currentCharFormat());
    return true;
}

/// To the next cell; behind the last one, a new row.
bool FreeformTextEdit::moveInTable(bool forward)
{
    QTextTable *table = textCursor().currentTable();
    if (!table)
        return false;
    const int columns = table->columns();
    const auto numberOf = [columns](const QTextTableCell &cell) {
        return cell.row() * columns + cell.column();
    };
    int number = numberOf(table->cellAt(textCursor()));
    QTextTableCell next;
    do { // One that covers others stands in all their places.
        number += forward ? 1 : -1;
        if (number < 0)
            return true;
        if (number >= table->rows() * columns)
            insertTableRow(*table, table->rows());
        next = table->cellAt(number / columns, number % columns);
    } while (numberOf(next) != number);
    setTextCursor(next.firstCursorPosition());
    return true;
}

/// What is typed behind a link is no part of it, nor is it a picture behind a picture.
void FreeformTextEdit::leaveLinkAndAttachment()
{
    const QTextCursor cursor = textCursor();
    if (cursor.hasSelection() || isReadOnly())
        return;
    const Look look = lookOf(cursor.charFormat());
    CharacterFormat typed = *look;
    typed.attachment.reset();
    if (!look->link.isEmpty()) {
        QTextCursor next(cursor);
        const bool isInside = !cursor.atBlockEnd() && next.movePosition(QTextCursor::NextCharacter)
                              && lookOf(next.charFormat())->link == look->link;
        if (!isInside)
            typed.link.clear();
    }
    if (!(typed == *look))
        setCurrentCharFormat(charFormatFor(Look(typed)));
}

// Links under the pointer.

void FreeformTextEdit::showPointerAt(const QPoint &position, Qt::KeyboardModifiers modifiers)
{
    const bool isLink = (modifiers & Qt::ControlModifier || isReadOnly()) && !anchorAt(position).isEmpty();
    viewport()->setCursor(isLink ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

void FreeformTextEdit::mouseMoveEvent(QMouseEvent *event)
{
    QTextEdit::mouseMoveEvent(event);
    showPointerAt(event->position().toPoint(), event->modifiers());
}

void FreeformTextEdit::mousePressEvent(QMouseEvent *event)
{
    const bool follows = event->button() == Qt::LeftButton && event->modifiers() & Qt::ControlModifier;
    g_pressedLink = follows ? anchorAt(event->position().toPoint()) : QString();
    QTextEdit::mousePressEvent(event);
}

void FreeformTextEdit::mouseReleaseEvent(QMouseEvent *event)
{
    QTextEdit::mouseReleaseEvent(event);
    const QString pressed = std::exchange(g_pressedLink, {});
    if (!pressed.isEmpty() && anchorAt(event->position().toPoint()) == pressed)
        Q_EMIT linkFollowed(pressed);
}

void FreeformTextEdit::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = createStandardContextMenu(event->pos());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool isByKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const QString link = isByKeyboard ? lookAt(textCursor()).link : anchorAt(event->pos());
    if (!link.isEmpty()) {
        auto *open = new QAction(tr("&Open Link"), menu);
        connect(open, &QAction::triggered, this, [this, link] { Q_EMIT linkFollowed(link); });
        auto *copy = new QAction(tr("Copy Link Addr&ess"), menu);
        connect(copy, &QAction::triggered, this, [link] { QApplication::clipboard()->setText(link); });
        QAction *first = menu->actions().value(0);
        menu->insertAction(first, open);
        menu->insertAction(first, copy);
        menu->insertSeparator(first);
    }
    menu->popup(isByKeyboard ? viewport()->mapToGlobal(cursorRect().bottomLeft()) : event->globalPos());
}

void FreeformTextEdit::focusInEvent(QFocusEvent *event)
{
    QTextEdit::focusInEvent(event);
    Q_EMIT focusChanged();
}

void FreeformTextEdit::focusOutEvent(QFocusEvent *event)
{
    QTextEdit::focusOutEvent(event);
    // The commands of a menu are for the text that was left for it.
    if (event->reason() != Qt::MenuBarFocusReason && event->reason() != Qt::PopupFocusReason)
        Q_EMIT focusChanged();
}

void FreeformTextEdit::changeEvent(QEvent *event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange)
        applyPaperColor();
}

void FreeformTextEdit::showEvent(QShowEvent *event)
{
    QTextEdit::showEvent(event);
    // Lines are broken anew for the width that the text really got; its beginning is what to see first.
    const auto scrollToStart = [this] { verticalScrollBar()->setValue(0); };
    QMetaObject::invokeMethod(verticalScrollBar(), scrollToStart, Qt::QueuedConnection);
}

// Copying and pasting.

QMimeData *FreeformTextEdit::createMimeDataFromSelection() const
{
    if (g_mayHaveFormats)
        return mimeDataOfSelection(textCursor()).release();
    auto *plain = new QMimeData;
    plain->setText(selectedText(textCursor()).text());
    return plain;
}

bool FreeformTextEdit::canInsertFromMimeData(const QMimeData *source) const
{
    // A datafile that is dropped goes to the window, which opens it.
    return (source->hasText() || hasFormattedText(*source)) && droppedDatafiles(*source).isEmpty();
}

void FreeformTextEdit::insertFromMimeData(const QMimeData *source)
{
    if (isReadOnly())
        return;
    leaveLinkAndAttachment();
    if (!g_mayHaveFormats) {
        if (source->hasText())
            insertTyped(source->text());
        else
            Q_EMIT refused(tr("The texts of a Tavrin Mobile datafile cannot hold images."));
        return;
    }
    CharacterFormat base = *lookOf(textCursor().charFormat());
    base.attachment.reset();
    auto text = formattedTextOf(*source, base);
    if (!text) {
        insertTyped(source->text());
        return;
    }
    if (!g_mayHaveImages && removeAttachments(*text))
        Q_EMIT refused(tr("This datafile is set to hold no images; they were left out."));
    // Nothing in place of what is selected would delete it.
    if (text->isEmpty())
        return;
    QTextCursor cursor = textCursor();
    insertText(cursor, *text);
    setTextCursor(cursor);
    ensureCursorVisible();
}

void FreeformTextEdit::insertTyped(const QString &text)
{
    if (isReadOnly() || text.isEmpty())
        return;
    leaveLinkAndAttachment();
    QTextCursor cursor = textCursor();
    cursor.insertText(text, currentCharFormat());
    setTextCursor(cursor);
    ensureCursorVisible();
}

void FreeformTextEdit::pasteAsPlainText()
{
    const QMimeData *source = QApplication::clipboard()->mimeData();
    if (isReadOnly() || !source || !source->hasText())
        return;
    insertTyped(source->text());
}

void FreeformTextEdit::applyPaperColor()
{
    QPalette colors = QApplication::palette(this);
    if (g_paperColor.isValid() && g_paperColor != QColor(Qt::white)) {
        constexpr float middle = 0.45F;
        colors.setColor(QPalette::Base, g_paperColor);
        // Stored text is black unless it says otherwise; only on a dark paper would it vanish.
        colors.setColor(QPalette::Text, g_paperColor.lightnessF() > middle ? Qt::black : Qt::white);
    }
    colors.setColor(QPalette::Link, linkColorOn(colors.color(QPalette::Base)));
    setPalette(colors);
    g_linkColors->setColor(colors.color(QPalette::Link));
    if (!g_hits.isEmpty())
        applyHits();
}

} // namespace tavrin
