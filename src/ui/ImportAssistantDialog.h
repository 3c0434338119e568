// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

class QButtonGroup;
class QComboBox;
class QFormLayout;
class QLabel;
class QVBoxLayout;

namespace tavrin {

class ColumnTable;
class ImportAssistantSheetController;
class ImportDifferencesSheetController;
class TargetList;

/// The Import Assistant: how the text is read, what becomes of each column, and the first rows.
class ImportAssistantDialog : public QDialog
{
    Q_OBJECT

public:
    /// The sheet outlives the dialog's last signal.
    ImportAssistantDialog(ImportAssistantSheetController &sheet, QWidget *parent);

private:
    void addColumns(QVBoxLayout *layout);
    void addReading(QFormLayout *form);
    void addDestinations(QFormLayout *form);
    void showSheet();
    void showColumns();
    QComboBox *targetBox(int column);

    ImportAssistantSheetController &g_sheet;
    QButtonGroup *g_destinations;
    QComboBox *g_key;
    TargetList *g_targets;
    ColumnTable *g_preview;
    QLabel *g_note;
};

/// Shows what an update would change.
class ImportDifferencesDialog : public QDialog
{
    Q_OBJECT

public:
    ImportDifferencesDialog(ImportDifferencesSheetController &sheet, QWidget *parent);
};

} // namespace tavrin
