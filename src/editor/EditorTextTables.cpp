// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// The Format menu's commands on tables.

#include "editor/EditorFormatting.h"
#include "editor/EditorWindowController.h"
#include "editor/TextBridge.h"
#include "editor/TextSheetController.h"
#include "editor/TextTables.h"

#include <QTextCursor>
#include <QTextTable>

namespace tavrin {

using namespace richtext;

namespace {

/// An empty table with thin lines.
AttributedText emptyTable(int rows, int columns, const CharacterFormat &look, int width)
{
    constexpr qint32 thin = 20;
    constexpr qint32 beside = 100;
    constexpr qint32 above = 20;
    CellStyle style;
    style.width = width / columns;
    for (CellSide &side : style.sides)
        side = {thin, above, richtext::Color{170, 170, 170}};
    style.sides[static_cast<size_t>(Side::Left)].padding = beside;
    style.sides[static_cast<size_t>(Side::Right)].padding = beside;
    AttributedText table(QString(rows * columns, u'\n'), look);
    for (int cell = 0; cell < rows * columns; ++cell) {
        table.applyToParagraphs(cell, 1, [&](ParagraphFormat &paragraph) {
            paragraph.cell = {1, cell / columns, cell % columns, style};
        });
    }
    return table;
}

struct CellPlace
{
    int row = 0;
    int rows = 1;
    int column = 0;
    int columns = 1;
};

/// Gives a cell the look of another, but not its merging. A cell that another one covers stays as it is.
void likeCell(const QTextTable &table, std::pair<int, int> place, std::pair<int, int> model)
{
    QTextTableCell cell = table.cellAt(place.first, place.second);
    if (cell.row() != place.first || cell.column() != place.second)
        return;
    QTextCharFormat look = table.cellAt(model.first, model.second).format();
    look.setProperty(QTextFormat::TableCellRowSpan, cell.rowSpan());
    look.setProperty(QTextFormat::TableCellColumnSpan, cell.columnSpan());
    cell.setFormat(look);
}

/// What is selected of a table.
CellPlace placeIn(const QTextTable &table, const QTextCursor &cursor)
{
    CellPlace place;
    if (cursor.hasComplexSelection()) {
        cursor.selectedTableCells(&place.row, &place.rows, &place.column, &place.columns);
        return place;
    }
    const QTextTableCell cell = table.cellAt(cursor);
    return {cell.row(), 1, cell.column(), 1};
}

} // namespace

void insertTableRow(QTextTable &table, int row)
{
    QTextCursor(table.document()).beginEditBlock();
    table.insertRows(row, 1);
    for (int column = 0; column < table.columns(); ++column)
        likeCell(table, {row, column}, {row > 0 ? row - 1 : 1, column});
    QTextCursor(table.document()).endEditBlock();
}

void insertTableColumn(QTextTable &table, int column)
{
    QTextCursor(table.document()).beginEditBlock();
    table.insertColumns(column, 1);
    for (int row = 0; row < table.rows(); ++row)
        likeCell(table, {row, column}, {row, column > 0 ? column - 1 : 1});
    QTextCursor(table.document()).endEditBlock();
}

bool EditorFormatting::isInTable() const
{
    const QTextCursor edited = cursor();
    return !edited.isNull() && edited.currentTable();
}

void EditorFormatting::insertTable()
{
    constexpr int mostRows = 500;
    constexpr int mostColumns = 50;
    using Number = NumbersSheetController::Number;
    auto sheet = std::make_unique<NumbersSheetController>(
        tr("Insert Table"),
        tr("Insert"),
        QList<Number>{{tr("Rows:"), 3, 1, mostRows}, {tr("Columns:"), 2, 1, mostColumns}});
    connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int returnCode) {
        QTextCursor edited = cursor();
        if (returnCode != QVSheetController::FirstButton || edited.isNull() || edited.currentTable()
            || !g_window.isFreeformTextEditable())
            return;
        // About as wide as a page.
        constexpr int width = 9000;
        CharacterFormat look = lookAt(edited);
        look.attachment.reset();
        look.link.clear();
        const int start = edited.selectionStart();
        insertText(edited, emptyTable(qRound(sheet->value(0)), qRound(sheet->value(1)), look, width));
        // Into the first cell.
        edited.setPosition(start);
        while (!edited.currentTable() && edited.movePosition(QTextCursor::NextCharacter)) {
        }
        setCursor(edited);
    });
    g_sheets.begin(std::move(sheet));
}

void EditorFormatting::insertRow(bool below)
{
    const QTextCursor edited = cursor();
    if (QTextTable *table = edited.isNull() ? nullptr : edited.currentTable()) {
        const CellPlace place = placeIn(*table, edited);
        insertTableRow(*table, below ? place.row + place.rows : place.row);
    }
}

void EditorFormatting::insertColumn(bool right)
{
    const QTextCursor edited = cursor();
    if (QTextTable *table = edited.isNull() ? nullptr : edited.currentTable()) {
        const CellPlace place = placeIn(*table, edited);
        insertTableColumn(*table, right ? place.column + place.columns : place.column);
    }
}

void EditorFormatting::removeRows()
{
    const QTextCursor edited = cursor();
    if (QTextTable *table = edited.isNull() ? nullptr : edited.currentTable()) {
        const CellPlace place = placeIn(*table, edited);
        table->removeRows(place.row, place.rows);
    }
}

void EditorFormatting::removeColumns()
{
    const QTextCursor edited = cursor();
    if (QTextTable *table = edited.isNull() ? nullptr : edited.currentTable()) {
        const CellPlace place = placeIn(*table, edited);
        table->removeColumns(place.column, place.columns);
    }
}

} // namespace tavrin
