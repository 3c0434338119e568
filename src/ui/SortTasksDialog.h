// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QTableWidget;

namespace tavrin {

class SortTasksSheetController;

/// Lists the sort tasks, to be renamed in place, duplicated and deleted.
class SortTasksDialog : public QDialog
{
    Q_OBJECT

public:
    /// The sheet outlives the dialog's last signal.
    SortTasksDialog(SortTasksSheetController &sheet, QWidget *parent);

private:
    void fill(int currentRow);
    void nameEdited(int row, int column);

    SortTasksSheetController &g_sheet;
    QTableWidget *g_table;
    QPushButton *g_rename;
    QPushButton *g_duplicate;
    QPushButton *g_useLastSort;
    QPushButton *g_delete;
    QLabel *g_note;
};

} // namespace tavrin
