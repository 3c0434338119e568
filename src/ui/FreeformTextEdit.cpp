// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FreeformTextEdit.h"

#include "ui/DatafileDrop.h"

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
}

} // namespace tavrin
