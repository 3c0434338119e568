// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Which commands may run now: the one place that menus, toolbar and shortcuts ask.

#include "editor/EditorFormatting.h"
#include "editor/EditorFreeformText.h"
#include "editor/EditorLinks.h"
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

bool mayGoBack(const EditorWindowController &window)
{
    return window.viewedRecordList().canGoBack();
}

bool mayGoForward(const EditorWindowController &window)
{
    return window.viewedRecordList().canGoForward();
}

bool mayFormat(const EditorWindowController &window)
{
    return window.formatting().mayFormat();
}

bool mayFormatTable(const EditorWindowController &window)
{
    return mayFormat(window) && window.formatting().isInTable();
}

bool mayInsertTable(const EditorWindowController &window)
{
    return mayFormat(window) && !window.formatting().isInTable();
}

bool mayPasteStyle(const EditorWindowController &window)
{
    return mayFormat(window) && window.formatting().hasCopiedStyle();
}

bool mayPasteRuler(const EditorWindowController &window)
{
    return mayFormat(window) && window.formatting().hasCopiedRuler();
}

bool hasFormats(const EditorWindowController &window)
{
    return window.currentRecord() && window.text().mayHaveFormats();
}

bool mayActivateLinks(const EditorWindowController &window)
{
    return hasFormats(window) && window.isFreeformTextEditable();
}

bool mayLinkFile(const EditorWindowController &window)
{
    const EditorFocus focus = window.view().focus();
    if (!hasFormats(window) || focus == EditorFocus::Elsewhere)
        return false;
    return focus == EditorFocus::Table ? hasFields(window) && !window.currentRecordLocked()
                                       : window.isFreeformTextEditable();
}

bool mayRemoveLink(const EditorWindowController &window)
{
    const QTextCursor cursor = window.view().freeformCursor();
    return mayFormat(window) && !cursor.isNull() && cursor.hasSelection();
}

bool mayOpenLink(const EditorWindowController &window)
{
    return window.view().focus() == EditorFocus::FreeformText && !window.links().linkAtCaret().isEmpty();
}

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
    ActionRule{"insertFileLink:"_L1, mayLinkFile},
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
    ActionRule{"removeLink:"_L1, mayRemoveLink},
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
};

} // namespace

bool EditorWindowController::validateAction(const QString &selector) const
{
    // Synchronizing works on the records itself: nothing of this table may run meanwhile.
    if (g_nowSyncing)
        return false;
    // "addFontTrait:bold" is one of several commands that may run at the same times.
    const QString name = selector.left(selector.indexOf(u':') + 1);
    const auto rule = std::ranges::find(actionRules, name, &ActionRule::selector);
    return rule != actionRules.end() && rule->mayRun(*this);
}

} // namespace tavrin
