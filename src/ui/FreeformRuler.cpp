// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FreeformRuler.h"

#include <QLocale>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tavrin {

using namespace richtext;

namespace {

constexpr int rulerHeight = 24;
constexpr double grasp = 5;
constexpr qint32 step = 20; ///< What is dragged stays on whole points.
constexpr double twipsPerInch = 1440;
constexpr double twipsPerCentimetre = 567;

QPolygonF triangle(double x, double tip, double base)
{
    return QPolygonF({{x, tip}, {x - grasp, base}, {x + grasp, base}});
}

} // namespace

FreeformRuler::FreeformRuler(QWidget *parent) : QWidget(parent)
{
    setFixedHeight(rulerHeight);
    setMouseTracking(true);
    setAccessibleName(tr("Ruler"));
    setToolTip(tr("Drag indents and tab stops; click to set a tab stop, double-click to change its kind.\n"
                  "By keyboard: Format > Text > Spacing."));
}

QSize FreeformRuler::sizeHint() const
{
    return {200, rulerHeight};
}

void FreeformRuler::show(const ParagraphFormat &paragraph, double left, double right, double scale)
{
    if (g_grip)
        return;
    g_paragraph = paragraph;
    g_left = left;
    g_right = right;
    g_scale = scale;
    update();
}

qint32 FreeformRuler::twipsAt(double x) const
{
    return static_cast<qint32>(std::lround((x - g_left) / g_scale / step)) * step;
}

std::optional<FreeformRuler::Grip> FreeformRuler::gripAt(const QPointF &position) const
{
    const auto isNear = [&position](double x) { return std::abs(position.x() - x) <= grasp; };
    const bool isAbove = position.y() < rulerHeight / 2.0;
    // The first line's mark hangs from above, that of the others stands below it.
    if (isAbove && isNear(xOf(g_paragraph.headIndent + g_paragraph.firstLineIndent)))
        return Grip{Part::FirstLine};
    if (!isAbove) {
        for (qsizetype i = 0; i < g_paragraph.tabStops.size(); ++i) {
            if (isNear(xOf(g_paragraph.tabStops[i].position)))
                return Grip{Part::TabStop, i};
        }
        if (isNear(xOf(g_paragraph.headIndent)))
            return Grip{Part::Head};
    }
    if (isNear(g_right - g_paragraph.tailIndent * g_scale))
        return Grip{Part::Tail};
    return {};
}

void FreeformRuler::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().window());
    painter.fillRect(QRectF(g_left, 0, g_right - g_left, rulerHeight - 1), palette().base());
    drawTicks(painter);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().highlight());
    painter.drawPolygon(triangle(xOf(g_paragraph.headIndent + g_paragraph.firstLineIndent), 9, 1));
    painter.drawPolygon(triangle(xOf(g_paragraph.headIndent), rulerHeight - 10, rulerHeight - 2));
    painter.drawPolygon(
        triangle(g_right - g_paragraph.tailIndent * g_scale, rulerHeight - 10, rulerHeight - 2));
    for (const TabStop &tab : g_paragraph.tabStops)
        drawTab(painter, tab);
}

void FreeformRuler::drawTicks(QPainter &painter) const
{
    const bool isMetric = QLocale().measurementSystem() == QLocale::MetricSystem;
    const double unit = (isMetric ? twipsPerCentimetre : twipsPerInch) * g_scale;
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.75);
    painter.setFont(small);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    constexpr int parts = 4;
    for (int i = 1; g_left + i * unit / parts < g_right; ++i) {
        const double x = g_left + i * unit / parts;
        if (i % parts == 0)
            painter.drawText(
                QRectF(x - 20, 0, 40, rulerHeight - 1), Qt::AlignCenter, QString::number(i / parts));
        else
            painter.drawLine(QPointF(x, 10), QPointF(x, 13));
    }
}

void FreeformRuler::drawTab(QPainter &painter, const TabStop &tab) const
{
    const double x = xOf(tab.position);
    const double bottom = rulerHeight - 3;
    painter.setPen(QPen(palette().color(QPalette::Text), 1.6));
    painter.drawLine(QPointF(x, bottom), QPointF(x, bottom - 8));
    if (tab.kind != TabKind::Right)
        painter.drawLine(QPointF(x, bottom), QPointF(x + 5, bottom));
    if (tab.kind != TabKind::Left)
        painter.drawLine(QPointF(x, bottom), QPointF(x - 5, bottom));
    if (tab.kind == TabKind::Decimal)
        painter.drawPoint(QPointF(x + 4, bottom - 5));
}

void FreeformRuler::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    g_grip = gripAt(event->position());
    const qint32 place = twipsAt(event->position().x());
    if (g_grip || place <= 0 || event->position().x() >= g_right)
        return;
    g_paragraph.tabStops.append({place, TabKind::Left});
    g_grip = Grip{Part::TabStop, g_paragraph.tabStops.size() - 1};
    update();
}

void FreeformRuler::mouseMoveEvent(QMouseEvent *event)
{
    if (!g_grip) {
        setCursor(gripAt(event->position()) ? Qt::SizeHorCursor : Qt::ArrowCursor);
        return;
    }
    const qint32 place = qMax(0, twipsAt(event->position().x()));
    switch (g_grip->part) {
    case Part::FirstLine:
        g_paragraph.firstLineIndent = place - g_paragraph.headIndent;
        break;
    case Part::Head:
        // The first line stays where it is.
        g_paragraph.firstLineIndent += g_paragraph.headIndent - place;
        g_paragraph.headIndent = place;
        break;
    case Part::Tail:
        g_paragraph.tailIndent = qMax(0, twipsAt(g_left + g_right - event->position().x()));
        break;
    case Part::TabStop:
        g_paragraph.tabStops[g_grip->tab].position = place;
        g_isAway = event->position().y() > 2 * rulerHeight || event->position().y() < -rulerHeight;
        break;
    }
    update();
}

void FreeformRuler::mouseReleaseEvent(QMouseEvent * /*event*/)
{
    const auto grip = std::exchange(g_grip, {});
    const bool isAway = std::exchange(g_isAway, false);
    if (!grip)
        return;
    if (grip->part == Part::TabStop) {
        QList<TabStop> tabs = g_paragraph.tabStops;
        if (isAway)
            tabs.removeAt(grip->tab);
        applyTabs(tabs);
        return;
    }
    Q_EMIT changed([moved = g_paragraph](ParagraphFormat &paragraph) {
        paragraph.headIndent = moved.headIndent;
        paragraph.firstLineIndent = moved.firstLineIndent;
        paragraph.tailIndent = moved.tailIndent;
    });
}

void FreeformRuler::mouseDoubleClickEvent(QMouseEvent *event)
{
    const auto grip = gripAt(event->position());
    if (!grip || grip->part != Part::TabStop)
        return;
    constexpr int kinds = 4;
    QList<TabStop> tabs = g_paragraph.tabStops;
    tabs[grip->tab].kind = static_cast<TabKind>((static_cast<int>(tabs[grip->tab].kind) + 1) % kinds);
    applyTabs(tabs);
}

void FreeformRuler::applyTabs(const QList<TabStop> &tabs)
{
    QList<TabStop> sorted = tabs;
    std::ranges::stable_sort(sorted, {}, &TabStop::position);
    g_paragraph.tabStops = sorted;
    update();
    Q_EMIT changed([sorted](ParagraphFormat &paragraph) { paragraph.tabStops = sorted; });
}

} // namespace tavrin
