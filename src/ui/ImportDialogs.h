// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

class QButtonGroup;
class QFormLayout;
class QLabel;
class QPushButton;
class QTableWidget;

namespace tavrin {

class ImportSheetController;

/// Asks how a file is imported, and shows its first rows.
class ImportDialog : public QDialog
{
    Q_OBJECT

public:
    /// The sheet outlives the dialog's last signal.
    ImportDialog(ImportSheetController &sheet, QWidget *parent);

private:
    void addDestinations(QFormLayout *form);
    void addOptions(QFormLayout *form);
    void showSheet();

    ImportSheetController &g_sheet;
    QButtonGroup *g_destinations;
    QLabel *g_current;
    QTableWidget *g_preview;
    QLabel *g_note;
    QPushButton *g_assistant;
};

} // namespace tavrin
