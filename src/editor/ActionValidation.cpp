// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Which commands may run now: the one place that menus, toolbar and shortcuts ask.
//
// The general limits come first, then the rule of the command itself. A command that has none may run while
// there is one window on the datafile: beside a clone, nothing else may change what both show.

#include "editor/EditorSearchController.h"
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
    bool besideClone = false; ///< May also run while there is a clone window.
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

bool mayChangeFindOptions(const EditorWindowController &window)
{
    return !window.search().areOptionsLocked();
}

bool mayReorder(const EditorWindowController &window)
{
    return !window.haveCurrentSelection();
}

bool isInTable(const EditorWindowController &window)
{
    return window.view().focus() == EditorFocus::Table;
}

bool hasTextSelected(const EditorWindowController &window)
{
    return window.view().focus() == EditorFocus::FreeformText
           && window.view().freeformTextCursor().hasSelection();
}

bool mayWrapFields(const EditorWindowController &window)
{
    return window.isBasicView() && window.document().datafileSettings().fieldWrapping();
}

bool entersFindClassically(const EditorWindowController &window)
{
    return window.document().datafileSettings().findEntryMode() == 0;
}

bool mayInsertFileLink(const EditorWindowController &window)
{
    const EditorFocus focus = window.view().focus();
    return !window.document().isMobile() && focus != EditorFocus::Elsewhere
           && (focus == EditorFocus::FreeformText || hasFields(window));
}

bool mayEditText(const EditorWindowController &window)
{
    return window.isFreeformTextEditable();
}

bool mayChangeFont(const EditorWindowController &window)
{
    return hasRecord(window) && !window.currentRecordLocked();
}

constexpr std::array actionRules{
    ActionRule{"addRecord:"_L1, always},
    ActionRule{"deleteRecord:"_L1, mayDelete, true},
    ActionRule{"deselectCurrentRecord:"_L1, hasRecord},
    ActionRule{"editFreeformTextAsPlain:"_L1, mayEditAsPlain},
    ActionRule{"editSortTasks:"_L1, hasSortTasks},
    ActionRule{"goBackOneRecord:"_L1, mayGoBack, true},
    ActionRule{"goForwardOneRecord:"_L1, mayGoForward, true},
    ActionRule{"goToFirstRecord:"_L1, always},
    ActionRule{"goToLastRecord:"_L1, always},
    ActionRule{"goToNextRecord:"_L1, always},
    ActionRule{"goToPreviousRecord:"_L1, always},
    ActionRule{"goToRecordNumber:"_L1, always},
    ActionRule{"revertDocumentToSaved:"_L1, hasSavedVersion},
    ActionRule{"revertToPreviousSelection:"_L1, always},
    ActionRule{"saveCopyAs:"_L1, permitsSaving},
    ActionRule{"saveDocument:"_L1, permitsSave, true},
    ActionRule{"saveDocumentAs:"_L1, permitsSaving},
    ActionRule{"saveSortTask:"_L1, hasSorted},
    ActionRule{"selectAllRecords:"_L1, hasOmittedRecords, true},
    ActionRule{"selectFromOmitted:"_L1, hasOmittedRecords, true},
    ActionRule{"selectRecords:"_L1, hasRecord},
    ActionRule{"sortByCreatedDate:"_L1, hasRecord},
    ActionRule{"sortByFields:"_L1, hasRecord},
    ActionRule{"sortByFreeformText:"_L1, hasRecord},
    ActionRule{"sortByModifiedDate:"_L1, hasRecord},
    ActionRule{"sortDatafileByWholeRecord:"_L1, hasRecord},
    ActionRule{"sortTask:"_L1, hasSortTasks},
    ActionRule{"switchToOmitted:"_L1, hasOmittedRecords, true},
    ActionRule{"switchView:"_L1, hasFields, true},
    // Finding.
    ActionRule{"activateFindBox:"_L1, always},
    ActionRule{"forwardSearch:"_L1, always},
    ActionRule{"forwardSearchAfterRecord:"_L1, always},
    ActionRule{"forwardSearchToHit:"_L1, always},
    ActionRule{"quickSelectAll:"_L1, hasOmittedRecords},
    ActionRule{"reverseSearch:"_L1, always},
    ActionRule{"toggleCaseSensitivity:"_L1, mayChangeFindOptions},
    ActionRule{"toggleEntryStyle:"_L1, mayChangeFindOptions},
    ActionRule{"toggleFindOptionsLock:"_L1, always},
    ActionRule{"toggleSelectMode:"_L1, mayChangeFindOptions},
    ActionRule{"useSelectionForFind:"_L1, always},
    // What the window itself offers.
    ActionRule{"changeAllToDefaultFont:"_L1, hasRecord},
    ActionRule{"changeCurrentRecordToDefaultFont:"_L1, mayChangeFont},
    ActionRule{"customizeToolbar:"_L1, always},
    ActionRule{"insertAmpersand:"_L1, entersFindClassically, true},
    ActionRule{"insertDateTime:"_L1, hasRecord},
    ActionRule{"openCloneWindow:"_L1, always, true},
    ActionRule{"pasteAsPlainText:"_L1, hasRecord},
    ActionRule{"removeBlankLines:"_L1, mayEditText},
    ActionRule{"showRecordInfo:"_L1, always, true},
    ActionRule{"toggleHighlighter:"_L1, mayEditText},
    ActionRule{"toggleSpellChecking:"_L1, always, true},
    ActionRule{"toggleToolbarShown:"_L1, always, true},
    ActionRule{"toggleToolbarStyle:"_L1, always},
    ActionRule{"updateLineWrapping:"_L1, mayWrapFields, true},
    // Exporting.
    ActionRule{"copyRecordsAsText:"_L1, hasRecord, true},
    ActionRule{"exportAsFolderofHTMLFiles:"_L1, hasRecord, true},
    ActionRule{"exportAsFolderofRTFDFiles:"_L1, hasRecord, true},
    ActionRule{"exportAsFolderofTextFiles:"_L1, hasRecord, true},
    ActionRule{"exportAsHTML:"_L1, hasRecord, true},
    ActionRule{"exportAsJSON:"_L1, hasRecord, true},
    ActionRule{"exportAsMarkdown:"_L1, hasRecord, true},
    ActionRule{"exportAsRTFD:"_L1, hasRecord, true},
    ActionRule{"exportAsTextFile:"_L1, hasRecord, true},
    // Commands with a rule of their own, whoever builds them.
    ActionRule{"addFieldWithContent:"_L1, always, true},
    ActionRule{"copyRecordWithFieldNames:"_L1, hasFields, true},
    ActionRule{"deactivateFieldLink:"_L1, isInTable, true},
    ActionRule{"deleteAllSelectedRecords:"_L1, hasOmittedRecords, true},
    ActionRule{"deleteRecordWithToggle:"_L1, mayDelete, true},
    ActionRule{"deleteRecordWithoutWarning:"_L1, mayDelete, true},
    ActionRule{"exportAsCSV:"_L1, always, true},
    ActionRule{"exportAsFreeformDatafile:"_L1, hasFields, true},
    ActionRule{"exportAsTabDelimited:"_L1, always, true},
    ActionRule{"fillEmptyFields:"_L1, hasFields, true},
    ActionRule{"insertFileLink:"_L1, mayInsertFileLink, true},
    ActionRule{"makeThisTheFirstRecord:"_L1, mayReorder, true},
    ActionRule{"makeThisTheLastRecord:"_L1, mayReorder, true},
    ActionRule{"moveAfterRecordNumber:"_L1, mayReorder, true},
    ActionRule{"moveAllFreeformTextIntoFields:"_L1, hasFields, true},
    ActionRule{"moveCurrentFreeformTextIntoFields:"_L1, hasFields, true},
    ActionRule{"moveTextElements:"_L1, always, true},
    ActionRule{"printAllListViewRecords:"_L1, hasFields, true},
    ActionRule{"removeLink:"_L1, hasTextSelected, true},
    ActionRule{"replaceFieldContents:"_L1, hasFields, true},
    ActionRule{"save:"_L1, permitsSaving, true},
    ActionRule{"synchronizeDatafiles:"_L1, always, true},
    ActionRule{"totalFieldContents:"_L1, hasFields, true},
    ActionRule{"transferFieldContents:"_L1, hasFields, true},
};

/// When a command may not run, whatever its own rule says.
enum Limit : unsigned {
    NotWhileSpecial = 1, ///< While records are edited that nobody prints.
    NotInClone = 2,
    OnlyInText = 4, ///< The freeform text has to have the focus.
    NotInMobile = 8 ///< The text of a mobile datafile has no formats.
};

struct ActionLimit
{
    QLatin1StringView selector;
    unsigned limits;
};

constexpr unsigned NotNow = NotWhileSpecial | NotInClone;
constexpr unsigned Formatting = OnlyInText | NotInMobile;

constexpr std::array actionLimits{
    ActionLimit{"activateLinks:"_L1, NotInClone},
    ActionLimit{"addFieldWithContent:"_L1, NotInClone},
    ActionLimit{"addFontTrait:"_L1, Formatting},
    ActionLimit{"addRecord:"_L1, NotNow},
    ActionLimit{"addRecordWithPaste:"_L1, NotNow},
    ActionLimit{"addRecordWithPasteAsPlainText:"_L1, NotInClone},
    ActionLimit{"addRecordWithToggle:"_L1, NotInClone},
    ActionLimit{"addTOC:"_L1, NotNow},
    ActionLimit{"alignCenter:"_L1, Formatting},
    ActionLimit{"alignJustified:"_L1, Formatting},
    ActionLimit{"alignLeft:"_L1, Formatting},
    ActionLimit{"alignRight:"_L1, Formatting},
    ActionLimit{"changeAllToDefaultFont:"_L1, NotInMobile},
    ActionLimit{"changeCurrentRecordToDefaultFont:"_L1, NotInMobile},
    ActionLimit{"customizeToolbar:"_L1, NotWhileSpecial},
    ActionLimit{"deleteAllSelectedRecords:"_L1, NotNow},
    ActionLimit{"deleteRecord:"_L1, NotNow},
    ActionLimit{"deleteRecordWithoutWarning:"_L1, NotNow},
    ActionLimit{"deleteRecordWithToggle:"_L1, NotNow},
    ActionLimit{"deselectCurrentRecord:"_L1, NotNow},
    ActionLimit{"duplicateCurrentRecord:"_L1, NotNow},
    ActionLimit{"editDatafileSettings:"_L1, NotNow},
    ActionLimit{"exportAsCSV:"_L1, NotNow},
    ActionLimit{"exportAsTabDelimited:"_L1, NotNow},
    ActionLimit{"exportAsTextFile:"_L1, NotNow},
    ActionLimit{"fillEmptyFields:"_L1, NotNow},
    ActionLimit{"goToRecordNumber:"_L1, NotWhileSpecial},
    ActionLimit{"grabURL:"_L1, NotNow},
    ActionLimit{"grabURLPastePlainText:"_L1, NotNow},
    ActionLimit{"grabURLWithoutPaste:"_L1, NotNow},
    ActionLimit{"grabURLWithPaste:"_L1, NotNow},
    ActionLimit{"grabURLWithPasteboard:"_L1, NotNow},
    ActionLimit{"grabURLWithToggle:"_L1, NotNow},
    ActionLimit{"insertDateTime:"_L1, NotInClone},
    ActionLimit{"insertFileLink:"_L1, NotInClone},
    ActionLimit{"loosenKerning:"_L1, Formatting},
    ActionLimit{"lowerBaseline:"_L1, Formatting},
    ActionLimit{"makeThisTheFirstRecord:"_L1, NotNow},
    ActionLimit{"makeThisTheLastRecord:"_L1, NotNow},
    ActionLimit{"mergeDatafiles:"_L1, NotNow},
    ActionLimit{"modifyFields:"_L1, NotNow},
    ActionLimit{"modifyFont:"_L1, Formatting},
    ActionLimit{"moveAfterRecordNumber:"_L1, NotInClone},
    ActionLimit{"moveAllFreeformTextIntoFields:"_L1, NotInClone},
    ActionLimit{"moveCurrentFreeformTextIntoFields:"_L1, NotInClone},
    ActionLimit{"openCloneWindow:"_L1, NotInClone},
    ActionLimit{"orderFrontColorPanel:"_L1, NotInClone},
    ActionLimit{"orderFrontFontPanel:"_L1, NotInClone | Formatting},
    ActionLimit{"orderFrontLinkPanel:"_L1, NotInClone | NotInMobile},
    ActionLimit{"orderFrontListPanel:"_L1, NotInClone | NotInMobile},
    ActionLimit{"orderFrontSpacingPanel:"_L1, NotInClone | Formatting},
    ActionLimit{"orderFrontTablePanel:"_L1, NotInClone | NotInMobile},
    ActionLimit{"paste:"_L1, NotInClone},
    ActionLimit{"pasteAsPlainText:"_L1, NotInClone},
    ActionLimit{"pasteFTARuler:"_L1, Formatting},
    ActionLimit{"pasteFTAStyle:"_L1, NotInClone | Formatting},
    ActionLimit{"pastePlainText:"_L1, NotInClone},
    ActionLimit{"raiseBaseline:"_L1, Formatting},
    ActionLimit{"removeBlankLines:"_L1, NotInClone},
    ActionLimit{"removeDuplicateRecords:"_L1, NotNow},
    ActionLimit{"replaceFieldContents:"_L1, NotNow},
    ActionLimit{"revertToPreviousSelection:"_L1, NotWhileSpecial},
    ActionLimit{"save:"_L1, NotInClone},
    ActionLimit{"saveCopyAs:"_L1, NotInClone},
    ActionLimit{"saveDocument:"_L1, NotInClone},
    ActionLimit{"saveDocumentAs:"_L1, NotNow},
    ActionLimit{"selectAllRecords:"_L1, NotNow},
    ActionLimit{"selectFromOmitted:"_L1, NotNow},
    ActionLimit{"selectRecords:"_L1, NotNow},
    ActionLimit{"setVisible:"_L1, NotNow},
    ActionLimit{"sortByCreatedDate:"_L1, NotNow},
    ActionLimit{"sortByFields:"_L1, NotNow},
    ActionLimit{"sortByFreeformText:"_L1, NotNow},
    ActionLimit{"sortByModifiedDate:"_L1, NotNow},
    ActionLimit{"sortDatafile:"_L1, NotNow},
    ActionLimit{"sortDatafileByWholeRecord:"_L1, NotNow},
    ActionLimit{"sortTask:"_L1, NotNow},
    ActionLimit{"startMultiFileFind:"_L1, NotNow},
    ActionLimit{"subscript:"_L1, Formatting},
    ActionLimit{"superscript:"_L1, Formatting},
    ActionLimit{"switchToOmitted:"_L1, NotNow},
    ActionLimit{"tightenKerning:"_L1, Formatting},
    ActionLimit{"toggleFreeformRuler:"_L1, NotInMobile},
    ActionLimit{"toggleHighlighter:"_L1, NotInClone},
    ActionLimit{"toggleToolbarStyle:"_L1, NotWhileSpecial},
    ActionLimit{"totalFieldContents:"_L1, NotInClone},
    ActionLimit{"transferFieldContents:"_L1, NotInClone},
    ActionLimit{"turnOffKerning:"_L1, Formatting},
    ActionLimit{"turnOffLigatures:"_L1, Formatting},
    ActionLimit{"underline:"_L1, Formatting},
    ActionLimit{"unscript:"_L1, Formatting},
    ActionLimit{"useAllLigatures:"_L1, Formatting},
    ActionLimit{"useStandardKerning:"_L1, Formatting},
    ActionLimit{"useStandardLigatures:"_L1, Formatting},
};

} // namespace

bool EditorWindowController::validateAction(const QString &selector) const
{
    const auto limit = std::ranges::find(actionLimits, selector, &ActionLimit::selector);
    const unsigned limits = limit == actionLimits.end() ? 0 : limit->limits;
    const auto isLimited = [limits](Limit one) { return (limits & one) != 0; };
    if ((g_editingNonPrintableRecords && isLimited(NotWhileSpecial)) || (isClone() && isLimited(NotInClone)))
        return false;
    // Synchronizing works on the records itself: nothing of this table may run meanwhile.
    if (g_nowSyncing)
        return selector == "copy:"_L1 || selector == "terminate:"_L1;
    if (isLimited(OnlyInText) && g_view->focus() != EditorFocus::FreeformText)
        return false;
    if (g_document.isMobile() && isLimited(NotInMobile))
        return false;
    const auto rule = std::ranges::find(actionRules, selector, &ActionRule::selector);
    if (rule == actionRules.end())
        return limit != actionLimits.end() && windowControllerCount() < 2;
    return (rule->besideClone || windowControllerCount() < 2) && rule->mayRun(*this);
}

QStringList EditorWindowController::knownActions()
{
    QStringList actions;
    for (const ActionRule &rule : actionRules)
        actions.append(rule.selector);
    for (const ActionLimit &limit : actionLimits)
        actions.append(limit.selector);
    actions.removeDuplicates();
    return actions;
}

} // namespace tavrin
