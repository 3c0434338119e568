// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/ColumnSizing.h"

#include <QFont>
#include <QObject>
#include <QTextOption>

#include <memory>

namespace tavrin {

class BasicTableModel;
class ContentChange;
class EditorWindowController;
class ListTableModel;
class RecordData;

/// What the two tables of an editor window show and how their cells take edits.
class EditorTableController : public QObject
{
    Q_OBJECT

public:
    explicit EditorTableController(EditorWindowController &window);
    ~EditorTableController() override;

    /// Rows are the fields of the current record: column 0 the name, column 1 the value.
    BasicTableModel &basicTableModel() { return *g_basicTableModel; }
    /// Rows are the selected records; a column for each shown field, then the text.
    ListTableModel &listTableModel() { return *g_listTableModel; }

    /// Reads the field definitions anew.
    void setupTables();
    /// Reads the visible table's data anew.
    void reload();

    /// In Basic View the row that is a field's index, in List View the column.
    int currentField() const { return g_currentField; }
    void setCurrentField(int field) { g_currentField = qMax(0, field); }

    /// The current record may be edited: it is there, not locked, and the document allows it.
    bool mayEdit() const;
    bool mayEditRecord(const RecordData *record) const;

    QFont fieldsFont() const { return g_fieldsFont; }

    /// A value as a field may hold it: line ends, tabs and separators become spaces.
    static QString cleanedFieldValue(const QString &value);
    /// Stores what was typed into a cell, cleaned. False when the record may not be edited.
    bool editFieldValue(const RecordData *record, const QString &fieldIdentifier, const QString &value);

    /// The person selected a row of List View.
    void listRowSelected(int row);

    /// Where Return or Tab (forward) or Backtab goes from a field of Basic View, wrapping around.
    int fieldAfter(int field, bool forward) const;

    /// The List View column of a field and back; hidden fields count for the column before them.
    int listColumnForField(int field) const;
    int fieldForListColumn(int column) const;

    /// Width in points of a List View column as it is shown, and its new width as the person dragged it.
    double columnWidth(int column) const;
    void columnDidResize(int column, double width);
    /// The person clicked a column's header, or chose in its menu.
    void headerClicked(int column, HeaderClick click);

    /// Height of a List View row in points.
    double listViewRowHeight() const;
    /// How the values of Basic View are wrapped: between words, or where the datafile prefers that between
    /// any characters; or not at all.
    QTextOption::WrapMode wrapMode() const;
    /// Height in points of a value's text in that width, on as many lines as it takes; at least one line.
    double wrappedHeight(const QString &value, double width) const;

    /// Puts a dropped text into the field in place of what was there, as a step that can be undone. False
    /// when the record may not be edited.
    bool dropText(const RecordData *record, const QString &fieldIdentifier, const QString &text);

Q_SIGNALS:
    void columnWidthsChanged();

private:
    std::unique_ptr<ContentChange> contentOf(const RecordData *record,
                                             const QString &fieldIdentifier,
                                             const QString &content,
                                             const QString &name) const;

    EditorWindowController &g_window;
    std::unique_ptr<BasicTableModel> g_basicTableModel;
    std::unique_ptr<ListTableModel> g_listTableModel;
    QFont g_fieldsFont; ///< As of setupTables(): looking a family up is too slow for every cell.
    int g_currentField = 0;
};

} // namespace tavrin
