// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/ActionConditions.h"

#include "editor/EditorFormatting.h"
#include "editor/EditorFreeformText.h"
#include "editor/EditorLinks.h"
#include "editor/EditorSearchController.h"
#include "editor/EditorSorting.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"

namespace tavrin {

bool always(const EditorWindowController & /*window*/)
{
    return true;
}

bool hasFields(const EditorWindowController &window)
{
    return !window.document().datafileSettings().fields().isEmpty();
}

bool mayMoveText(const EditorWindowController &window)
{
    return hasFields(window) && hasRecord(window) && !window.currentRecordLocked();
}

bool permitsSaving(const EditorWindowController &window)
{
    return window.canSaveChanges();
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

bool mayWrapFields(const EditorWindowController &window)
{
    return window.isBasicView() && window.document().datafileSettings().fieldWrapping();
}

bool entersFindClassically(const EditorWindowController &window)
{
    return window.document().datafileSettings().findEntryMode() == 0;
}

bool mayEditText(const EditorWindowController &window)
{
    return window.isFreeformTextEditable();
}

bool mayPaste(const EditorWindowController &window)
{
    return hasRecord(window)
           && (window.view().focus() == EditorFocus::Elsewhere || !window.currentRecordLocked());
}

bool mayChangeFont(const EditorWindowController &window)
{
    return hasRecord(window) && !window.currentRecordLocked();
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
    return !window.links().linkAtCaret().isEmpty();
}

} // namespace tavrin
