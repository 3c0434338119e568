// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

#include <array>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace tavrin {

class SelectRecordsSheetController;

/// Asks which records to select.
class SelectRecordsDialog : public QDialog
{
    Q_OBJECT

public:
    /// The sheet outlives the dialog's last signal.
    SelectRecordsDialog(SelectRecordsSheetController &sheet, QWidget *parent);

private:
    struct Row
    {
        QComboBox *basedOn;
        QComboBox *treatAs;
        QComboBox *where;
        QLineEdit *value;
    };

    Row makeRow(int number, QGridLayout *grid, int line);
    void showSheet();

    SelectRecordsSheetController &g_sheet;
    std::array<Row, 2> g_rows;
    QCheckBox *g_and;
    QCheckBox *g_or;
    QLabel *g_note;
};

} // namespace tavrin
