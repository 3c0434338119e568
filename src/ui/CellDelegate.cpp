// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/CellDelegate.h"

#include "editor/BasicTableModel.h"
#include "editor/CellHits.h"
#include "editor/EditorTableController.h"
#include "text/TextMatcher.h"
#include "ui/CellEditor.h"
#include "ui/HitColors.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTextLayout>

#include <utility>

namespace tavrin {

namespace {

/// The hits that still lie within the cell's text.
QList<text::Match> hitsIn(const QModelIndex &index)
{
    auto hits = index.data(CellRole::hitRanges).value<QList<text::Match>>();
    if (!hits.isEmpty())
        hits.removeIf([size = index.data().toString().size()](const text::Match &hit) {
            return hit.start + hit.length > size;
        });
    return hits;
}

} // namespace

QWidget *CellDelegate::createEditor(QWidget *parent,
                                    const QStyleOptionViewItem & /*option*/,
                                    const QModelIndex &index) const
{
    QWidget *editor = nullptr;
    if (g_wraps) {
        auto *area = new WrappedCellEdit(parent);
        connect(area, &QPlainTextEdit::textChanged, this, [this, area] { typed(area); });
        editor = area;
    } else {
        auto *line = new QLineEdit(parent);
        line->setFrame(false);
        connect(line, &QLineEdit::textEdited, this, [this, line] { typed(line); });
        editor = line;
    }
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
    if (hitsIn(index).isEmpty())
        QStyledItemDelegate::paint(painter, option, index);
    else
        paintWithHits(painter, option, index);
    // A hair line under each row, in whatever palette.
    QColor line = option.palette.color(QPalette::Text);
    constexpr float faint = 0.1F;
    line.setAlphaF(faint);
    painter->setPen(line);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
}

/// As other cells, but hits have their colour, and the first of them can be seen.
void CellDelegate::paintWithHits(QPainter *painter,
                                 QStyleOptionViewItem option,
                                 const QModelIndex &index) const
{
    initStyleOption(&option, index);
    const QString text = std::exchange(option.text, {});
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);

    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QPalette::ColorGroup group =
        option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    // The row may be selected: the mark lifts the hit off its colour, too.
    const HitColors colors(index.data(CellRole::hitColor).value<QColor>(),
                           option.palette.color(group, QPalette::Base));
    QList<QTextLayout::FormatRange> formats;
    for (const text::Match &hit : hitsIn(index)) {
        QTextCharFormat format;
        format.setForeground(colors.text);
        format.setBackground(colors.mark);
        formats.append({static_cast<int>(hit.start), static_cast<int>(hit.length), format});
    }
    QTextLayout layout(text, option.font);
    QTextOption lines(option.displayAlignment);
    lines.setWrapMode(g_wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    lines.setTextDirection(option.direction);
    layout.setTextOption(lines);
    layout.setFormats(formats);

    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    const QRect room = option.rect.adjusted(margin, 0, -margin, 0);
    layout.beginLayout();
    qreal height = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        if (g_wraps)
            line.setLineWidth(room.width());
        line.setPosition(QPointF(0, height));
        height += line.height();
    }
    layout.endLayout();
    qreal shift = 0;
    if (!g_wraps && layout.lineCount() > 0) {
        const QTextLayout::FormatRange &first = formats.constFirst();
        shift = qMax(0.0, layout.lineAt(0).cursorToX(first.start + first.length) - room.width());
    }
    painter->save();
    painter->setClipRect(room);
    painter->setPen(option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));
    const qreal top = qMax<qreal>(room.top(), room.center().y() - height / 2 + 1);
    layout.draw(painter, QPointF(room.left() - shift, top));
    painter->restore();
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
