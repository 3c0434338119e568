// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/HitDelegate.h"

#include "editor/CellHits.h"
#include "text/TextMatcher.h"
#include "ui/HitColors.h"

#include <QApplication>
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

void HitDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    // The platform wraps between words alone, and cuts what is longer than a line.
    if (hitsIn(index).isEmpty() && !wraps())
        QStyledItemDelegate::paint(painter, option, index);
    else
        paintText(painter, option, index);
}

/// As other cells, but hits have their colour, and the first of them can be seen.
void HitDelegate::paintText(QPainter *painter, QStyleOptionViewItem option, const QModelIndex &index) const
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
    lines.setWrapMode(wrapMode());
    lines.setTextDirection(option.direction);
    layout.setTextOption(lines);
    layout.setFormats(formats);

    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    const QRect room = option.rect.adjusted(margin, 0, -margin, 0);
    layout.beginLayout();
    qreal height = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        if (wraps())
            line.setLineWidth(room.width());
        else
            line.setNumColumns(static_cast<int>(text.size())); // It has no height before it is laid out.
        line.setPosition(QPointF(0, height));
        height += line.height();
    }
    layout.endLayout();
    qreal shift = 0;
    if (!wraps() && layout.lineCount() > 0) {
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

} // namespace tavrin
