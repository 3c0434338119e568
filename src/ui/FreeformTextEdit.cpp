// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FreeformTextEdit.h"

#include "ui/DatafileDrop.h"
#include "ui/HitColors.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTextDocument>

namespace tavrin {

FreeformTextEdit::FreeformTextEdit(QWidget *parent) : QTextEdit(parent)
{
    setAcceptRichText(false);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(8);
    connect(this, &QTextEdit::textChanged, this, [this] {
        if (!g_loading)
            Q_EMIT edited();
    });
}

QString FreeformTextEdit::plainCharacters() const
{
    // toPlainText() would turn no-break spaces into spaces and line separators into line ends.
    QString text = document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, u'\n');
}

void FreeformTextEdit::setPlainCharacters(const QString &text)
{
    g_loading = true;
    setPlainText(text);
    document()->setModified(false);
    moveCursor(QTextCursor::Start);
    verticalScrollBar()->setValue(0);
    g_loading = false;
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
    const auto end = static_cast<qsizetype>(document()->characterCount() - 1);
    g_hits.clear();
    g_hitColor = color;
    for (const text::Match &hit : hits) {
        if (hit.start < 0 || hit.start + hit.length > end)
            continue;
        QTextCursor cursor(document());
        cursor.setPosition(static_cast<int>(hit.start));
        cursor.setPosition(static_cast<int>(hit.start + hit.length), QTextCursor::KeepAnchor);
        g_hits.append(cursor);
    }
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
    setExtraSelections(shown);
}

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
    return QTextEdit::event(event);
}

void FreeformTextEdit::keyPressEvent(QKeyEvent *event)
{
    // Tab belongs to the text; with Ctrl it leaves.
    if (event->key() == Qt::Key_Tab && event->modifiers() == Qt::ControlModifier) {
        focusNextPrevChild(true);
        return;
    }
    QTextEdit::keyPressEvent(event);
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

bool FreeformTextEdit::canInsertFromMimeData(const QMimeData *source) const
{
    // A datafile that is dropped goes to the window, which opens it.
    return source->hasText() && droppedDatafiles(*source).isEmpty();
}

void FreeformTextEdit::insertFromMimeData(const QMimeData *source)
{
    if (source->hasText())
        insertPlainText(source->text());
}

void FreeformTextEdit::applyPaperColor()
{
    QPalette colors = QApplication::palette(this);
    if (g_paperColor.isValid() && g_paperColor != QColor(Qt::white)) {
        colors.setColor(QPalette::Base, g_paperColor);
        // Stored text is black unless it says otherwise; only on a dark paper would it vanish.
        colors.setColor(QPalette::Text, g_paperColor.lightnessF() > 0.45F ? Qt::black : Qt::white);
    }
    setPalette(colors);
    if (!g_hits.isEmpty())
        applyHits();
}

} // namespace tavrin
