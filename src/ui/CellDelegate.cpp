// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/CellDelegate.h"

#include "editor/BasicTableModel.h"
#include "editor/EditorTableController.h"
#include "ui/CellEditor.h"
#include "ui/CellLinks.h"
#include "ui/TextState.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace tavrin {

QWidget *CellDelegate::createEditor(QWidget *parent,
                                    const QStyleOptionViewItem & /*option*/,
                                    const QModelIndex &index) const
{
    QWidget *editor = nullptr;
    if (wraps()) {
        auto *area = new WrappedCellEdit(wrapMode(), parent);
        connect(area, &QPlainTextEdit::textChanged, this, [this, area] { typed(area); });
        editor = area;
    } else {
        auto *line = new QLineEdit(parent);
        line->setFrame(false);
        connect(line, &QLineEdit::textEdited, this, [this, line] { typed(line); });
        editor = line;
    }
    const auto *links = new CellLinks(editor);
    // Following may lead to another record, and the editor goes.
    connect(links, &CellLinks::followed, this, &CellDelegate::linkFollowed, Qt::QueuedConnection);
    connect(links, &CellLinks::caretLinkChanged, this, &CellDelegate::caretLinkChanged);
    editor->setAutoFillBackground(true);
    editor->setFont(index.data(Qt::FontRole).value<QFont>());
    editor->setAccessibleName(accessibleName(index));
    Q_EMIT editingBegan(index);
    return editor;
}

/// The field's name: in Basic View it stands before the value, in List View over it.
QString CellDelegate::accessibleName(const QModelIndex &index)
{
    const auto *basic = qobject_cast<const BasicTableModel *>(index.model());
    return basic ? index.siblingAtColumn(BasicTableModel::FieldColumn).data().toString()
                 : index.model()->headerData(index.column(), Qt::Horizontal).toString();
}

void CellDelegate::typed(QWidget *editor) const
{
    replaceTypedText(editor, EditorTableController::cleanedFieldValue(cellText(editor)));
    Q_EMIT textEdited();
}

void CellDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QString value = index.data(Qt::EditRole).toString();
    // Called again whenever the model says that the cell changed: what the person is typing stays.
    if (!isCellTextModified(editor) && cellText(editor) != value)
        setCellText(editor, value);
}

void CellDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    // Looking at a value and leaving it must not change it, not even to its cleaned form.
    if (isCellTextModified(editor))
        model->setData(index, EditorTableController::cleanedFieldValue(cellText(editor)), Qt::EditRole);
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
    if (event->type() == QEvent::FocusOut) {
        // A menu's commands are for the cell that is being edited: it stays open for them.
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason == Qt::MenuBarFocusReason || reason == Qt::PopupFocusReason)
            return false;
    }
    if (event->type() == QEvent::ShortcutOverride
        && leavesKeyToWindow(editor, *static_cast<QKeyEvent *>(event))) {
        event->ignore();
        return true;
    }
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
