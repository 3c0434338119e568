// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

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

    /// Whether values are wrapped, and then whether rows grow while one types.
    void setWrapping(bool wraps, bool live);
    /// Measures every row anew.
    void update();

private:
    void cellTyped();
    void setRowHeight(int row, const QString &value);

    EditorTableController &g_controller;
    RecordTableView &g_table;
    CellDelegate &g_delegate;
    bool g_wraps = false;
    bool g_live = false;
};

} // namespace tavrin
