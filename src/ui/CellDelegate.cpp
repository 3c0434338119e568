// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/CellDelegate.h"

#include "editor/EditorTableController.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace tavrin {

CellDelegate::CellDelegate(EditorTableController &controller, QObject *parent)
    : HitDelegate(parent)
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
    Q_EMIT editingBegan(index);
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

void CellDelegate::paint(QPainter *painter,
                         const QStyleOptionViewItem &option,
                         const QModelIndex &index) const
{
    HitDelegate::paint(painter, option, index);
    // A hair line under each row, in whatever palette.
    QColor line = option.palette.color(QPalette::Text);
    constexpr float faint = 0.1F;
    line.setAlphaF(faint);
    painter->setPen(line);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
}

bool CellDelegate::eventFilter(QObject *object, QEvent *event)
{
    auto *editor = qobject_cast<QWidget *>(object);
    if (!editor || event->type() != QEvent::KeyPress)
        return HitDelegate::eventFilter(object, event);
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
        return HitDelegate::eventFilter(object, event);
    }
}

void CellDelegate::commitAndMove(QWidget *editor, bool forward, bool byReturn)
{
    Q_EMIT commitData(editor);
    Q_EMIT closeEditor(editor, QAbstractItemDelegate::NoHint);
    Q_EMIT moved(forward, byReturn);
}

QSize FieldNameDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    constexpr int besideValues = 28;
    return CellDelegate::sizeHint(option, index) + QSize(besideValues, 0);
}

void FieldNameDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    CellDelegate::initStyleOption(option, index);
    constexpr int margin = 10;
    option->displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
    option->rect.adjust(margin, 0, -margin, 0);
    if (!option->state.testFlag(QStyle::State_Selected))
        option->palette.setBrush(QPalette::Text, option->palette.placeholderText());
}

} // namespace tavrin
