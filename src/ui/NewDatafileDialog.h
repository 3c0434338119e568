// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

namespace tavrin {

class NewDatafileSheetController;

/// Asks for the fields of a new datafile, the name of its text and its kind.
class NewDatafileDialog : public QDialog
{
    Q_OBJECT

public:
    /// The sheet outlives the dialog's last signal.
    NewDatafileDialog(NewDatafileSheetController &sheet, QWidget *parent);

private:
    void showProblem();

    NewDatafileSheetController &g_sheet;
    QLabel *g_problem;
    QPushButton *g_create;
};

} // namespace tavrin
