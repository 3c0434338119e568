// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// The clone window, which shows what the main window does to the records and does nothing to them itself; and
// the scale of the texts.

#include "editor/EditorFreeformText.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"

#include <variant>

namespace tavrin {

void EditorWindowController::openCloneWindow()
{
    if (!isClone())
        Q_EMIT cloneWindowRequested();
}

/// Takes over what the main window has on screen and not yet in the record, and shows it all anew. A text
/// that is still the same stays where the reader has scrolled it.
void EditorWindowController::reloadClone()
{
    g_mainWindow->saveIfDifferentRecord(nullptr);
    g_tableController->reload();
    if (!isValidRecord(g_currentRecord) || hasOldText())
        loadCurrentRecord();
}

bool EditorWindowController::hasOldText() const
{
    return g_currentRecord->textString() != g_cloneText || g_currentRecord->textRTFD() != g_cloneRTFD;
}

void EditorWindowController::showChangesInClone(const DatafileChange &change)
{
    if (std::holds_alternative<RecordAdded>(change) || std::holds_alternative<RecordDeleted>(change))
        reloadClone();
    else if (g_currentRecord && hasOldText())
        loadCurrentRecord();
}

void EditorWindowController::storeForClone()
{
    if (g_cloneWindow && g_currentRecord && !g_nowSaving && !nowSyncing())
        storeFreeformText();
}

void EditorWindowController::setEditingNonPrintableRecords(bool editing)
{
    g_editingNonPrintableRecords = editing;
    Q_EMIT operationsChanged();
}

void EditorWindowController::setTextScale(int tag)
{
    const int wanted = qBound(0, tag, lastTextScaleTag);
    if (wanted == g_textScaleTag)
        return;
    g_textScaleTag = wanted;
    setUpTables();
    g_view->setTextScale(textScale());
    Q_EMIT textScaleChanged();
}

} // namespace tavrin
