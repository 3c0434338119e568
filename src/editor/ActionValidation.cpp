// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Which commands may run now: the one place that menus, toolbar and shortcuts ask.

#include "editor/EditorSorting.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"

#include <algorithm>
#include <array>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

struct ActionRule
{
    QLatin1StringView selector;
    bool (*mayRun)(const EditorWindowController &window);
};

bool always(const EditorWindowController & /*window*/)
{
    return true;
}

bool hasFields(const EditorWindowController &window)
{
    return !window.document().datafileSettings().fields().isEmpty();
}

bool permitsSaving(const EditorWindowController &window)
{
    return window.canSaveChanges();
}

bool permitsSave(const EditorWindowController &window)
{
    return window.canSaveChanges() && !window.document().isMobile();
}

bool hasSavedVersion(const EditorWindowController &window)
{
    return !window.document().filePath().isEmpty() && window.document().isModified();
}

bool hasOmittedRecords(const EditorWindowController &window)
{
    return window.haveCurrentSelection();
}

bool hasRecord(const EditorWindowController &window)
{
    return window.currentRecord() != nullptr;
}

bool hasSortTasks(const EditorWindowController &window)
{
    return !window.sorting().sortTaskNames().isEmpty();
}

bool hasSorted(const EditorWindowController &window)
{
    return window.sorting().hasSorted();
}

bool mayDelete(const EditorWindowController &window)
{
    return window.currentRecord() && window.document().datafileCatalog().count() >= 2;
}

bool mayReorder(const EditorWindowController &window)
{
    return window.currentRecord() && !window.haveCurrentSelection();
}

bool hasRecordWithFields(const EditorWindowController &window)
{
    return window.currentRecord() && hasFields(window);
}

bool mayEditAsPlain(const EditorWindowController &window)
{
    return window.isFreeformTextFormatted() && !window.currentRecordLocked();
}

bool mayGoBack(const EditorWindowController &window)
{
    return window.viewedRecordList().canGoBack();
}

bool mayGoForward(const EditorWindowController &window)
{
    return window.viewedRecordList().canGoForward();
}

constexpr std::array actionRules{
    ActionRule{"addRecord:"_L1, always},
    ActionRule{"deleteRecord:"_L1, mayDelete},
    ActionRule{"deselectCurrentRecord:"_L1, hasRecord},
    ActionRule{"editFreeformTextAsPlain:"_L1, mayEditAsPlain},
    ActionRule{"editSortTasks:"_L1, hasSortTasks},
    ActionRule{"goBackOneRecord:"_L1, mayGoBack},
    ActionRule{"goForwardOneRecord:"_L1, mayGoForward},
    ActionRule{"goToFirstRecord:"_L1, always},
    ActionRule{"goToLastRecord:"_L1, always},
    ActionRule{"goToNextRecord:"_L1, always},
    ActionRule{"goToPreviousRecord:"_L1, always},
    ActionRule{"goToRecordNumber:"_L1, always},
    ActionRule{"revertDocumentToSaved:"_L1, hasSavedVersion},
    ActionRule{"revertToPreviousSelection:"_L1, always},
    ActionRule{"saveCopyAs:"_L1, permitsSaving},
    ActionRule{"saveDocument:"_L1, permitsSave},
    ActionRule{"saveDocumentAs:"_L1, permitsSaving},
    ActionRule{"saveSortTask:"_L1, hasSorted},
    ActionRule{"selectAllRecords:"_L1, hasOmittedRecords},
    ActionRule{"selectFromOmitted:"_L1, hasOmittedRecords},
    ActionRule{"selectRecords:"_L1, hasRecord},
    ActionRule{"sortByCreatedDate:"_L1, hasRecord},
    ActionRule{"sortByFields:"_L1, hasRecord},
    ActionRule{"sortByFreeformText:"_L1, hasRecord},
    ActionRule{"sortByModifiedDate:"_L1, hasRecord},
    ActionRule{"sortDatafileByWholeRecord:"_L1, hasRecord},
    ActionRule{"sortTask:"_L1, hasSortTasks},
    ActionRule{"switchToOmitted:"_L1, hasOmittedRecords},
    ActionRule{"switchView:"_L1, hasFields},

    // Records
    ActionRule{"addRecordWithPaste:"_L1, always},
    ActionRule{"addRecordWithPasteAsPlainText:"_L1, always},
    ActionRule{"addRecordWithToggle:"_L1, always},
    ActionRule{"addTOC:"_L1, hasRecord},
    ActionRule{"browseBackups:"_L1, always},
    ActionRule{"copyRecord:"_L1, hasRecord},
    ActionRule{"copyRecordWithFieldNames:"_L1, hasRecordWithFields},
    ActionRule{"deleteAllSelectedRecords:"_L1, hasOmittedRecords},
    ActionRule{"deleteRecordWithToggle:"_L1, mayDelete},
    ActionRule{"deleteRecordWithoutWarning:"_L1, mayDelete},
    ActionRule{"duplicateCurrentRecord:"_L1, hasRecord},
    ActionRule{"lockAllRecords:"_L1, hasRecord},
    ActionRule{"makeThisTheFirstRecord:"_L1, mayReorder},
    ActionRule{"makeThisTheLastRecord:"_L1, mayReorder},
    ActionRule{"moveAfterRecordNumber:"_L1, mayReorder},
    ActionRule{"removeDuplicateRecords:"_L1, hasRecord},
    ActionRule{"revertAllRecordsLockedState:"_L1, hasRecord},
    ActionRule{"saveCurrentDatafileToBackups:"_L1, hasRecord},
    ActionRule{"toggleRecordLocked:"_L1, hasRecord},
    ActionRule{"unlockAllRecords:"_L1, hasRecord},

    // Fields
    ActionRule{"addFieldWithContent:"_L1, always},
    ActionRule{"fillEmptyFields:"_L1, hasFields},
    ActionRule{"modifyFields:"_L1, always},
    ActionRule{"moveAllFreeformTextIntoFields:"_L1, hasRecordWithFields},
    ActionRule{"moveCurrentFreeformTextIntoFields:"_L1, hasRecordWithFields},
    ActionRule{"moveTextElements:"_L1, hasRecordWithFields},
    ActionRule{"replaceFieldContents:"_L1, hasFields},
    ActionRule{"setVisible:"_L1, hasFields},
    ActionRule{"totalFieldContents:"_L1, hasFields},
    ActionRule{"transferFieldContents:"_L1, hasFields},
};

} // namespace

bool EditorWindowController::validateAction(const QString &selector) const
{
    // Synchronizing works on the records itself: nothing of this table may run meanwhile.
    if (g_nowSyncing)
        return false;
    const auto rule = std::ranges::find(actionRules, selector, &ActionRule::selector);
    return rule != actionRules.end() && rule->mayRun(*this);
}

} // namespace tavrin
