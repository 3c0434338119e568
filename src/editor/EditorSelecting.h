// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/SelectRecordsSheetController.h"

#include <QObject>

namespace tavrin {

class EditorWindowController;
class SheetHost;
class WorkHost;

/// Narrowing, widening and switching the selection as an editor window offers it.
///
/// What is being typed is stored first. Nothing happens while the datafile is synchronized.
class EditorSelecting : public QObject
{
    Q_OBJECT

public:
    EditorSelecting(EditorWindowController &window, SheetHost &sheets, WorkHost &work);

    /// Asks which of the selected records stay so.
    void selectRecords() { selectRecordsFrom(SelectRecordsSheetController::From::Selected); }
    /// Asks which of the omitted records join the selected ones.
    void selectFromOmitted() { selectRecordsFrom(SelectRecordsSheetController::From::Omitted); }
    void selectAllRecords();
    void revertToPreviousSelection();
    void switchToOmitted();
    /// The last selected record stays: a window always shows one.
    void deselectCurrentRecord();

private:
    void selectRecordsFrom(SelectRecordsSheetController::From from);
    void select(const SubsetSortCriteriaData &criteria, bool fromOmitted);

    EditorWindowController &g_window;
    SheetHost &g_sheets;
    WorkHost &g_work;
};

} // namespace tavrin
