// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QList>

class QFormLayout;
class QLabel;
class QTableWidget;
class QVBoxLayout;

namespace tavrin {

class FormSheetController;

/// Shows a form: its rows, what is wrong with them, and a look at what would come of it.
class FormDialog : public QDialog
{
    Q_OBJECT

public:
    /// The sheet outlives the dialog's last signal.
    FormDialog(FormSheetController &sheet, QWidget *parent);

private:
    QWidget *makeRow(qsizetype row, QFormLayout *layout);
    void addPreview(QVBoxLayout *layout);
    void showSheet();
    void showPreview();

    FormSheetController &g_sheet;
    QList<QWidget *> g_rows;
    QLabel *g_note = nullptr;
    QLabel *g_summary = nullptr;
    QTableWidget *g_preview = nullptr;
};

} // namespace tavrin
