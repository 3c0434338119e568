// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/CellDelegate.h"

#include "editor/EditorTableController.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace tavrin {

CellDelegate::CellDelegate(EditorTableController &controller, QObject *parent)
    : QStyledItemDelegate(parent)
    , g_controller(controller)
{}

QWidget *CellDelegate::createEditor(QWidget *parent,
                                    const QStyleOptionViewItem & /*option*/,
                                    const QModelIndex &index) const
{
    auto *editor = new QLineEdit(parent);
    editor->setFrame(false);
    editor->setAutoFillBackground(true);
    editor->setFont(index.data(Qt::FontRole).value<QFont>());
    connect(editor, &QLineEdit::textEdited, this, &CellDelegate::textEdited);
    return editor;
}

void CellDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *line = static_cast<QLineEdit *>(editor);
    const QString value = index.data(Qt::EditRole).toString();
    // Called again whenever the model says that the cell changed: what the person is typing stays.
    if (!line->isModified() && line->text() != value)
        line->setText(value);
}

void CellDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    const auto *line = static_cast<QLineEdit *>(editor);
    // Looking at a value and leaving it must not change it, not even to its cleaned form.
    if (line->isModified())
        model->setData(index, g_controller.cleanedFieldValue(line->text()), Qt::EditRole);
}

bool CellDelegate::eventFilter(QObject *object, QEvent *event)
{
    auto *editor = qobject_cast<QWidget *>(object);
    if (!editor || event->type() != QEvent::KeyPress)
        return QStyledItemDelegate::eventFilter(object, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        commitAndMove(editor, true, true);
        return true;
    case Qt::Key_Tab:
        commitAndMove(editor, true, false);
        return true;
    case Qt::Key_Backtab:
        commitAndMove(editor, false, false);
        return true;
    default:
        return QStyledItemDelegate::eventFilter(object, event);
    }
}

void CellDelegate::commitAndMove(QWidget *editor, bool forward, bool byReturn)
{
    Q_EMIT commitData(editor);
    Q_EMIT closeEditor(editor, QAbstractItemDelegate::NoHint);
    Q_EMIT moved(forward, byReturn);
}

} // namespace tavrin
