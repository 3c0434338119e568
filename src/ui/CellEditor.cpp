// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/CellEditor.h"

#include <QLineEdit>
#include <QTextDocument>

namespace tavrin {

namespace {

WrappedCellEdit *wrapped(const QWidget *editor)
{
    return qobject_cast<WrappedCellEdit *>(const_cast<QWidget *>(editor));
}

QLineEdit *line(const QWidget *editor)
{
    return qobject_cast<QLineEdit *>(const_cast<QWidget *>(editor));
}

} // namespace

WrappedCellEdit::WrappedCellEdit(QTextOption::WrapMode mode, QWidget *parent) : QPlainTextEdit(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(mode);
    // The caret's own pixel of room is all there is beside the text.
    document()->setDocumentMargin(2);
    // That was an edit, to the document.
    document()->clearUndoRedoStacks();
    document()->setModified(false);
    setTabChangesFocus(true);
}

bool isCellEditor(const QWidget *widget)
{
    return line(widget) || wrapped(widget);
}

QString cellText(const QWidget *editor)
{
    if (const QLineEdit *edit = line(editor))
        return edit->text();
    const WrappedCellEdit *edit = wrapped(editor);
    return edit ? edit->document()->toRawText() : QString();
}

bool isCellTextModified(const QWidget *editor)
{
    if (const QLineEdit *edit = line(editor))
        return edit->isModified();
    const WrappedCellEdit *edit = wrapped(editor);
    return edit && edit->document()->isModified();
}

void setCellText(QWidget *editor, const QString &text)
{
    if (QLineEdit *edit = line(editor)) {
        edit->setText(text);
    } else if (WrappedCellEdit *area = wrapped(editor)) {
        const QSignalBlocker quiet(area);
        area->setPlainText(text);
        area->document()->setModified(false);
    }
}

void insertInCell(QWidget *editor, const QString &text)
{
    if (QLineEdit *edit = line(editor))
        edit->insert(text);
    else if (WrappedCellEdit *area = wrapped(editor))
        area->insertPlainText(text);
}

std::pair<int, int> cellSelection(const QWidget *editor)
{
    if (const QLineEdit *edit = line(editor))
        return edit->hasSelectedText() ? std::pair(edit->selectionStart(), edit->selectionLength())
                                       : std::pair(edit->cursorPosition(), 0);
    const WrappedCellEdit *area = wrapped(editor);
    if (!area)
        return {-1, 0};
    const QTextCursor cursor = area->textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

void selectInCell(QWidget *editor, int start, int length)
{
    if (QLineEdit *edit = line(editor)) {
        edit->setCursorPosition(start);
        if (length > 0)
            edit->setSelection(start, length);
        else
            edit->deselect();
    } else if (WrappedCellEdit *area = wrapped(editor)) {
        const int last = qMax(0, area->document()->characterCount() - 1);
        QTextCursor cursor(area->document());
        cursor.setPosition(qBound(0, start, last));
        cursor.setPosition(qBound(0, start + length, last), QTextCursor::KeepAnchor);
        area->setTextCursor(cursor);
    }
}

void selectAllInCell(QWidget *editor)
{
    if (QLineEdit *edit = line(editor))
        edit->selectAll();
    else if (WrappedCellEdit *area = wrapped(editor))
        area->selectAll();
}

int cellPositionAt(const QWidget *editor, const QPoint &position)
{
    if (QLineEdit *edit = line(editor))
        return edit->cursorPositionAt(position);
    const WrappedCellEdit *area = wrapped(editor);
    return area ? area->cursorForPosition(position).position() : -1;
}

void placeCaretInCell(QWidget *editor, const QPoint &position)
{
    if (isCellEditor(editor))
        selectInCell(editor, cellPositionAt(editor, position), 0);
}

void replaceTypedText(QWidget *editor, const QString &cleaned)
{
    if (cellText(editor) == cleaned)
        return;
    const auto [start, length] = cellSelection(editor);
    selectAllInCell(editor);
    insertInCell(editor, cleaned);
    selectInCell(editor, start, length);
}

} // namespace tavrin
