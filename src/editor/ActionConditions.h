// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

namespace tavrin {

class EditorWindowController;

// What commands depend on, each a question to a window. What they are called says what is asked.

bool always(const EditorWindowController &window);
bool hasFields(const EditorWindowController &window);
bool mayMoveText(const EditorWindowController &window);
bool permitsSaving(const EditorWindowController &window);
bool hasSavedVersion(const EditorWindowController &window);
bool hasOmittedRecords(const EditorWindowController &window);
bool hasRecord(const EditorWindowController &window);
bool hasSortTasks(const EditorWindowController &window);
bool hasSorted(const EditorWindowController &window);
bool mayDelete(const EditorWindowController &window);
bool mayGoBack(const EditorWindowController &window);
bool mayGoForward(const EditorWindowController &window);
bool mayChangeFindOptions(const EditorWindowController &window);
bool mayReorder(const EditorWindowController &window);
bool isInTable(const EditorWindowController &window);
bool mayWrapFields(const EditorWindowController &window);
bool entersFindClassically(const EditorWindowController &window);
bool mayEditText(const EditorWindowController &window);
bool mayChangeFont(const EditorWindowController &window);
bool mayPaste(const EditorWindowController &window);
bool mayFormat(const EditorWindowController &window);
bool mayFormatTable(const EditorWindowController &window);
bool mayInsertTable(const EditorWindowController &window);
bool mayPasteStyle(const EditorWindowController &window);
bool mayPasteRuler(const EditorWindowController &window);
bool hasFormats(const EditorWindowController &window);
bool mayActivateLinks(const EditorWindowController &window);
bool mayLinkFile(const EditorWindowController &window);
bool mayRemoveLink(const EditorWindowController &window);
bool mayOpenLink(const EditorWindowController &window);

} // namespace tavrin
