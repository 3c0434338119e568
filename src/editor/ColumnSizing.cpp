// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/ColumnSizing.h"

#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"
#include "editor/ListTableModel.h"

#include <QFontInfo>
#include <QFontMetricsF>

namespace tavrin {

HeaderClick headerClickFor(Qt::KeyboardModifiers modifiers)
{
    // Qt's Control is the platform's command key, Alt its option key, Meta its control key.
    const bool command = modifiers.testFlag(Qt::ControlModifier);
    const bool option = modifiers.testFlag(Qt::AltModifier);
    const bool control = modifiers.testFlag(Qt::MetaModifier);
    const bool shift = modifiers.testFlag(Qt::ShiftModifier);
    if (!option)
        return command ? HeaderClick::AllToLarger : HeaderClick::Nothing;
    if (control)
        return shift ? HeaderClick::AllToTitle : HeaderClick::AllToContent;
    if (shift)
        return HeaderClick::ThisToTitle;
    return command ? HeaderClick::AllToLarger : HeaderClick::ThisToContent;
}

bool ColumnSizing::click(int column, HeaderClick click)
{
    switch (click) {
    case HeaderClick::Nothing:
        return false;
    case HeaderClick::ThisToContent:
        adjustColumnWidthToFieldContent(column);
        break;
    case HeaderClick::ThisToTitle:
        adjustColumnWidthToHeaderContent(column);
        break;
    case HeaderClick::AllToContent:
        adjustAllColumnsToMaximumContent();
        break;
    case HeaderClick::AllToTitle:
        for (int each = 0; each < columnCount(); ++each)
            adjustColumnWidthToHeaderContent(each);
        break;
    case HeaderClick::AllToLarger:
        adjustAllColumnsToLargerOfFieldOrHeaderContent();
        break;
    }
    return true;
}

void ColumnSizing::adjustColumnWidthToHeaderContent(int column)
{
    setWidth(column, titleWidth(column));
}

void ColumnSizing::adjustColumnWidthToFieldContent(int column)
{
    setWidth(column, contentWidth(column));
}

void ColumnSizing::adjustColumnWidthToLargerOfFieldOrHeaderContent(int column)
{
    constexpr double usualTextWidth = 300;
    if (g_window.tableController().listTableModel().isTextColumn(column))
        setWidth(column, usualTextWidth * g_window.textScale());
    else if (const double needed = titleWidth(column);
             g_window.tableController().columnWidth(column) <= needed)
        setWidth(column, needed);
}

void ColumnSizing::adjustAllColumnsToMaximumContent()
{
    for (int column = 0; column < columnCount(); ++column)
        adjustColumnWidthToFieldContent(column);
}

void ColumnSizing::adjustAllColumnsToLargerOfFieldOrHeaderContent()
{
    adjustAllColumnsToMaximumContent();
    for (int column = 0; column < columnCount(); ++column)
        adjustColumnWidthToLargerOfFieldOrHeaderContent(column);
}

double ColumnSizing::titleWidth(int column) const
{
    const ListTableModel &model = g_window.tableController().listTableModel();
    const QFont font = g_window.tableController().fieldsFont();
    const QString title = model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    // Half a character's size, and what a header's own margins take.
    constexpr double margins = 10;
    return QFontInfo(font).pixelSize() / 2 + QFontMetricsF(font).horizontalAdvance(title) + margins;
}

double ColumnSizing::contentWidth(int column) const
{
    constexpr int mostMeasured = 5000;
    constexpr double margins = 12;
    constexpr double least = 40;
    constexpr double most = 1200;
    const ListTableModel &model = g_window.tableController().listTableModel();
    const QFontMetricsF metrics(g_window.tableController().fieldsFont());
    const int rows = model.rowCount();
    const int step = qMax(1, rows / mostMeasured);
    double widest = 0;
    for (int row = 0; row < rows; row += step) {
        const QString shown = model.data(model.index(row, column), Qt::DisplayRole).toString();
        if (!shown.isEmpty())
            widest = qMax(widest, metrics.horizontalAdvance(shown));
    }
    return qBound(least, widest + margins, most);
}

int ColumnSizing::columnCount() const
{
    return g_window.tableController().listTableModel().columnCount();
}

void ColumnSizing::setWidth(int column, double width)
{
    g_window.tableController().columnDidResize(column, width);
}

} // namespace tavrin
