// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QTextOption>

namespace tavrin {

class CellDelegate;
class EditorTableController;
class RecordTableView;

/// How high the rows of Basic View are: one line, or where fields are wrapped as many as the value takes.
class FieldWrapping : public QObject
{
    Q_OBJECT

public:
    /// All three outlive it.
    FieldWrapping(EditorTableController &controller, RecordTableView &table, CellDelegate &delegate);

    /// How values are wrapped, if they are, and then whether rows grow while one types.
    void setWrapping(QTextOption::WrapMode mode, bool live);
    /// Measures every row anew.
    void update();

private:
    void cellTyped();
    void setRowHeight(int row, const QString &value);

    EditorTableController &g_controller;
    RecordTableView &g_table;
    CellDelegate &g_delegate;
    QTextOption::WrapMode g_mode = QTextOption::NoWrap;
    bool g_live = false;
};

} // namespace tavrin
