// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Which commands may run now: the one place that menus, toolbar and shortcuts ask.
//
// The general limits come first, then the rule of the command itself. A command that has none may run while
// there is one window on the datafile: beside a clone, nothing else may change what both show.

#include "editor/ActionConditions.h"
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

constexpr std::array actionRules{
    ActionRule{"addRecord:"_L1, always},
    ActionRule{"deleteRecord:"_L1, mayDelete},
    ActionRule{"deselectCurrentRecord:"_L1, hasRecord},
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
    ActionRule{"saveDocument:"_L1, permitsSaving},
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
    // Records and fields.
    ActionRule{"addRecordWithPaste:"_L1, always},
    ActionRule{"addRecordWithPasteAsPlainText:"_L1, always},
    ActionRule{"addRecordWithToggle:"_L1, always},
    ActionRule{"addTOC:"_L1, hasRecord},
    ActionRule{"browseBackups:"_L1, always},
    ActionRule{"copyRecord:"_L1, hasRecord},
    ActionRule{"duplicateCurrentRecord:"_L1, hasRecord},
    ActionRule{"lockAllRecords:"_L1, hasRecord},
    ActionRule{"removeDuplicateRecords:"_L1, hasRecord},
    ActionRule{"revertAllRecordsLockedState:"_L1, hasRecord},
    ActionRule{"saveCurrentDatafileToBackups:"_L1, hasRecord},
    ActionRule{"toggleRecordLocked:"_L1, hasRecord},
    ActionRule{"unlockAllRecords:"_L1, hasRecord},
    ActionRule{"modifyFields:"_L1, always},
    ActionRule{"setVisible:"_L1, hasFields},
    // The freeform text's looks and links.
    ActionRule{"activateLinks:"_L1, mayActivateLinks},
    ActionRule{"addFontTrait:"_L1, mayFormat},
    ActionRule{"alignCenter:"_L1, mayFormat},
    ActionRule{"alignJustified:"_L1, mayFormat},
    ActionRule{"alignLeft:"_L1, mayFormat},
    ActionRule{"alignRight:"_L1, mayFormat},
    ActionRule{"clearFormatting:"_L1, mayFormat},
    ActionRule{"copyFont:"_L1, mayFormat},
    ActionRule{"copyRecordLink:"_L1, hasRecord},
    ActionRule{"copyRuler:"_L1, mayFormat},
    ActionRule{"loosenKerning:"_L1, mayFormat},
    ActionRule{"lowerBaseline:"_L1, mayFormat},
    ActionRule{"modifyFont:"_L1, mayFormat},
    ActionRule{"openLink:"_L1, mayOpenLink},
    ActionRule{"orderFrontColorPanel:"_L1, mayFormat},
    ActionRule{"orderFrontFontPanel:"_L1, mayFormat},
    ActionRule{"orderFrontLinkPanel:"_L1, mayFormat},
    ActionRule{"orderFrontListPanel:"_L1, mayFormat},
    ActionRule{"orderFrontSpacingPanel:"_L1, mayFormat},
    ActionRule{"orderFrontTablePanel:"_L1, mayInsertTable},
    ActionRule{"pasteFTARuler:"_L1, mayPasteRuler},
    ActionRule{"pasteFTAStyle:"_L1, mayPasteStyle},
    ActionRule{"raiseBaseline:"_L1, mayFormat},
    ActionRule{"strikethrough:"_L1, mayFormat},
    ActionRule{"subscript:"_L1, mayFormat},
    ActionRule{"superscript:"_L1, mayFormat},
    ActionRule{"tableColumns:"_L1, mayFormatTable},
    ActionRule{"tableRows:"_L1, mayFormatTable},
    ActionRule{"tightenKerning:"_L1, mayFormat},
    ActionRule{"toggleFreeformRuler:"_L1, hasFormats},
    ActionRule{"turnOffKerning:"_L1, mayFormat},
    ActionRule{"turnOffLigatures:"_L1, mayFormat},
    ActionRule{"underline:"_L1, mayFormat},
    ActionRule{"unscript:"_L1, mayFormat},
    ActionRule{"useAllLigatures:"_L1, mayFormat},
    ActionRule{"useStandardKerning:"_L1, mayFormat},
    ActionRule{"useStandardLigatures:"_L1, mayFormat},
    // What the window itself offers.
    ActionRule{"changeAllToDefaultFont:"_L1, hasRecord},
    ActionRule{"changeCurrentRecordToDefaultFont:"_L1, mayChangeFont},
    ActionRule{"customizeToolbar:"_L1, always},
    ActionRule{"insertAmpersand:"_L1, entersFindClassically},
    ActionRule{"insertDateTime:"_L1, hasRecord},
    ActionRule{"openCloneWindow:"_L1, always},
    ActionRule{"pasteAsPlainText:"_L1, mayPaste},
    ActionRule{"removeBlankLines:"_L1, mayEditText},
    ActionRule{"showRecordInfo:"_L1, always},
    ActionRule{"toggleHighlighter:"_L1, mayEditText},
    ActionRule{"toggleSpellChecking:"_L1, always},
    ActionRule{"toggleToolbarShown:"_L1, always},
    ActionRule{"toggleToolbarStyle:"_L1, always},
    ActionRule{"updateLineWrapping:"_L1, mayWrapFields},
    // Exporting.
    ActionRule{"copyRecordsAsText:"_L1, hasRecord},
    ActionRule{"exportAsFolderofHTMLFiles:"_L1, hasRecord},
    ActionRule{"exportAsFolderofRTFDFiles:"_L1, hasRecord},
    ActionRule{"exportAsFolderofTextFiles:"_L1, hasRecord},
    ActionRule{"exportAsHTML:"_L1, hasRecord},
    ActionRule{"exportAsJSON:"_L1, hasRecord},
    ActionRule{"exportAsMarkdown:"_L1, hasRecord},
    ActionRule{"exportAsRTFD:"_L1, hasRecord},
    ActionRule{"exportAsTextFile:"_L1, hasRecord},
    // Commands with a rule of their own that nobody has built yet.
    ActionRule{"addFieldWithContent:"_L1, always},
    ActionRule{"copyRecordWithFieldNames:"_L1, hasFields},
    ActionRule{"deactivateFieldLink:"_L1, isInTable},
    ActionRule{"deleteAllSelectedRecords:"_L1, hasOmittedRecords},
    ActionRule{"deleteRecordWithToggle:"_L1, mayDelete},
    ActionRule{"deleteRecordWithoutWarning:"_L1, mayDelete},
    ActionRule{"exportAsCSV:"_L1, always},
    ActionRule{"exportAsFreeformDatafile:"_L1, hasFields},
    ActionRule{"exportAsTabDelimited:"_L1, always},
    ActionRule{"fillEmptyFields:"_L1, hasFields},
    ActionRule{"insertFileLink:"_L1, mayLinkFile},
    ActionRule{"makeThisTheFirstRecord:"_L1, mayReorder},
    ActionRule{"makeThisTheLastRecord:"_L1, mayReorder},
    ActionRule{"moveAfterRecordNumber:"_L1, mayReorder},
    ActionRule{"moveAllFreeformTextIntoFields:"_L1, hasFields},
    ActionRule{"moveCurrentFreeformTextIntoFields:"_L1, mayMoveText},
    ActionRule{"moveTextElements:"_L1, always},
    ActionRule{"printAllListViewRecords:"_L1, hasFields},
    ActionRule{"removeLink:"_L1, mayRemoveLink},
    ActionRule{"replaceFieldContents:"_L1, hasFields},
    ActionRule{"save:"_L1, permitsSaving},
    ActionRule{"synchronizeDatafiles:"_L1, always},
    ActionRule{"totalFieldContents:"_L1, hasFields},
    ActionRule{"transferFieldContents:"_L1, hasFields},
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

/// What may also run while there is a clone window.
constexpr std::array actionsBesideClone{
    "addFieldWithContent:"_L1,
    "copyRecordWithFieldNames:"_L1,
    "deactivateFieldLink:"_L1,
    "deleteAllSelectedRecords:"_L1,
    "deleteRecord:"_L1,
    "deleteRecordWithoutWarning:"_L1,
    "deleteRecordWithToggle:"_L1,
    "exportAsCSV:"_L1,
    "exportAsFreeformDatafile:"_L1,
    "exportAsTabDelimited:"_L1,
    "fillEmptyFields:"_L1,
    "goBackOneRecord:"_L1,
    "goForwardOneRecord:"_L1,
    "insertAmpersand:"_L1,
    "insertFileLink:"_L1,
    "makeThisTheFirstRecord:"_L1,
    "makeThisTheLastRecord:"_L1,
    "moveAfterRecordNumber:"_L1,
    "moveAllFreeformTextIntoFields:"_L1,
    "moveCurrentFreeformTextIntoFields:"_L1,
    "moveTextElements:"_L1,
    "openCloneWindow:"_L1,
    "openLink:"_L1,
    "printAllListViewRecords:"_L1,
    "removeLink:"_L1,
    "replaceFieldContents:"_L1,
    "save:"_L1,
    "saveDocument:"_L1,
    "selectAllRecords:"_L1,
    "selectFromOmitted:"_L1,
    "switchToOmitted:"_L1,
    "switchView:"_L1,
    "synchronizeDatafiles:"_L1,
    "toggleSpellChecking:"_L1,
    "toggleToolbarShown:"_L1,
    "totalFieldContents:"_L1,
    "transferFieldContents:"_L1,
    "updateLineWrapping:"_L1,
};

} // namespace

bool EditorWindowController::validateAction(const QString &selector) const
{
    // "addFontTrait:bold" is one of several commands that may run at the same times.
    const QString name = selector.left(selector.indexOf(u':') + 1);
    const auto limit = std::ranges::find(actionLimits, name, &ActionLimit::selector);
    const unsigned limits = limit == actionLimits.end() ? 0 : limit->limits;
    const auto isLimited = [limits](Limit one) { return (limits & one) != 0; };
    if ((g_editingNonPrintableRecords && isLimited(NotWhileSpecial)) || (isClone() && isLimited(NotInClone)))
        return false;
    // Synchronizing works on the records itself: nothing of this table may run meanwhile.
    if (nowSyncing())
        return selector == "copy:"_L1 || selector == "terminate:"_L1;
    if (isLimited(OnlyInText) && g_view->focus() != EditorFocus::FreeformText)
        return false;
    if (g_document.isMobile() && isLimited(NotInMobile))
        return false;
    if (windowControllerCount() > 1
        && std::ranges::find(actionsBesideClone, name) == actionsBesideClone.end())
        return false;
    const auto rule = std::ranges::find(actionRules, name, &ActionRule::selector);
    return rule == actionRules.end() ? limit != actionLimits.end() : rule->mayRun(*this);
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
