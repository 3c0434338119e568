// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

namespace tavrin {

class ExportSheetController;

/// Asks how a table is written, or what names the files of a folder.
class ExportDialog : public QDialog
{
    Q_OBJECT

public:
    /// The sheet outlives the dialog's last signal.
    ExportDialog(ExportSheetController &sheet, QWidget *parent);

private:
    void addTableOptions();
    void addNameField();

    ExportSheetController &g_sheet;
};

} // namespace tavrin
