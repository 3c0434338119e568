// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QTableWidget;

namespace tavrin {

class ModifyFieldsSheetController;

/// Lists the fields of a datafile, to be added, renamed in place, dragged into another order, shown as
/// columns or not, and deleted.
class ModifyFieldsDialog : public QDialog
{
    Q_OBJECT

public:
    /// The sheet outlives the dialog's last signal.
    ModifyFieldsDialog(ModifyFieldsSheetController &sheet, QWidget *parent);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *makeCommands();
    void makeTable();
    void fill(int currentRow);
    void cellEdited(int row, int column);
    void moveRow(int from, int to);
    void chooseDatafile();
    void showNotes();

    ModifyFieldsSheetController &g_sheet;
    QTableWidget *g_table = nullptr;
    QPushButton *g_delete = nullptr;
    QPushButton *g_up = nullptr;
    QPushButton *g_down = nullptr;
    QLabel *g_note = nullptr;
    QString g_failure;
};

} // namespace tavrin
