// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/Commands.h"

#include "editor/EditorRecords.h"
#include "editor/EditorSearchController.h"
#include "editor/EditorSelecting.h"
#include "editor/EditorSorting.h"
#include "editor/EditorWindowController.h"
#include "ui/FormatCommands.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>

namespace tavrin {

namespace {

using Controller = EditorWindowController;

constexpr Command separator{"", "", "", "", nullptr};

/// Alt, held while a command is chosen, makes it the other one of its kind.
bool isToggled()
{
    return QGuiApplication::keyboardModifiers().testFlag(Qt::AltModifier);
}

constexpr std::array fileTable{
    Command{"saveDocument:",
            QT_TRANSLATE_NOOP("Commands", "&Save"),
            "Ctrl+S",
            "",
            [](Controller &window) { window.saveDocument(); }},
    Command{"saveDocumentAs:",
            QT_TRANSLATE_NOOP("Commands", "Save &As…"),
            "Ctrl+Shift+S",
            "",
            [](Controller &window) { window.saveDocumentAs(); }},
    Command{"saveCopyAs:",
            QT_TRANSLATE_NOOP("Commands", "Save a Cop&y As…"),
            "",
            "",
            [](Controller &window) { window.saveCopyAs(); }},
    Command{"revertDocumentToSaved:",
            QT_TRANSLATE_NOOP("Commands", "&Revert to Saved…"),
            "",
            "",
            [](Controller &window) { window.revertDocumentToSaved(); }},
};

constexpr std::array recordTable{
    Command{"addRecord:",
            QT_TRANSLATE_NOOP("Commands", "&New Record"),
            "Ctrl+Shift+N",
            "TB_C_newRecord",
            [](Controller &window) { window.records().addRecordWithToggle(isToggled()); }},
    Command{"addRecordWithPaste:",
            QT_TRANSLATE_NOOP("Commands", "New Record with Past&e"),
            "Ctrl+Alt+Shift+V",
            "",
            [](Controller &window) { window.records().addRecordWithPaste(); }},
    Command{"addRecordWithPasteAsPlainText:",
            QT_TRANSLATE_NOOP("Commands", "New Record with Paste a&s Plain Text"),
            "",
            "",
            [](Controller &window) { window.records().addRecordWithPasteAsPlainText(); }},
    Command{"duplicateCurrentRecord:",
            QT_TRANSLATE_NOOP("Commands", "D&uplicate Record"),
            "Ctrl+Alt+D",
            "",
            [](Controller &window) { window.records().duplicateCurrentRecord(); }},
    Command{"addTOC:",
            QT_TRANSLATE_NOOP("Commands", "New &Table of Contents"),
            "",
            "",
            [](Controller &window) { window.records().addTOC(); }},
    separator,
    Command{"copyRecord:",
            QT_TRANSLATE_NOOP("Commands", "&Copy Record"),
            "Ctrl+Shift+C",
            "",
            [](Controller &window) { window.records().copyRecord(); }},
    Command{"copyRecordWithFieldNames:",
            QT_TRANSLATE_NOOP("Commands", "Copy Record with Field Na&mes"),
            "",
            "",
            [](Controller &window) { window.records().copyRecordWithFieldNames(); }},
    separator,
    Command{"deleteRecord:",
            QT_TRANSLATE_NOOP("Commands", "&Delete Record…"),
            "Ctrl+Shift+Backspace",
            "TB_C_deleteRecord",
            [](Controller &window) { window.records().deleteRecordWithToggle(isToggled()); }},
    Command{"deleteRecordWithoutWarning:",
            QT_TRANSLATE_NOOP("Commands", "Delete Record without &Warning"),
            "Ctrl+Alt+Shift+Backspace",
            "",
            [](Controller &window) { window.records().deleteRecordWithoutWarning(); }},
    Command{"deleteAllSelectedRecords:",
            QT_TRANSLATE_NOOP("Commands", "Delete &All Selected Records…"),
            "",
            "",
            [](Controller &window) { window.records().deleteAllSelectedRecords(); }},
    Command{"removeDuplicateRecords:",
            QT_TRANSLATE_NOOP("Commands", "&Remove Duplicate Records"),
            "",
            "",
            [](Controller &window) { window.records().removeDuplicateRecords(); }},
    separator,
    Command{"toggleRecordLocked:",
            QT_TRANSLATE_NOOP("Commands", "Loc&k or Unlock Record"),
            "Ctrl+Alt+L",
            "",
            [](Controller &window) { window.records().toggleRecordLocked(); }},
    Command{"lockAllRecords:",
            QT_TRANSLATE_NOOP("Commands", "Lock All Records"),
            "",
            "",
            [](Controller &window) { window.records().lockAllRecords(); }},
    Command{"unlockAllRecords:",
            QT_TRANSLATE_NOOP("Commands", "Unlock All Records"),
            "",
            "",
            [](Controller &window) { window.records().unlockAllRecords(); }},
    Command{"revertAllRecordsLockedState:",
            QT_TRANSLATE_NOOP("Commands", "Re&vert Locked State"),
            "",
            "",
            [](Controller &window) { window.records().revertAllRecordsLockedState(); }},
    separator,
    Command{"makeThisTheFirstRecord:",
            QT_TRANSLATE_NOOP("Commands", "Make T&his the First Record"),
            "",
            "",
            [](Controller &window) { window.records().makeThisTheFirstRecord(); }},
    Command{"makeThisTheLastRecord:",
            QT_TRANSLATE_NOOP("Commands", "Make This the Last Record"),
            "",
            "",
            [](Controller &window) { window.records().makeThisTheLastRecord(); }},
    Command{"moveAfterRecordNumber:",
            QT_TRANSLATE_NOOP("Commands", "Move A&fter Record Number…"),
            "",
            "",
            [](Controller &window) { window.records().moveAfterRecordNumber(); }},
    separator,
    Command{"goToFirstRecord:",
            QT_TRANSLATE_NOOP("Commands", "F&irst Record"),
            "Ctrl+Home",
            "TB_C_first",
            [](Controller &window) { window.goToFirstRecord(); }},
    Command{"goToPreviousRecord:",
            QT_TRANSLATE_NOOP("Commands", "&Previous Record"),
            "Ctrl+PgUp",
            "TB_C_previous",
            [](Controller &window) { window.goToPreviousRecord(); }},
    Command{"goToNextRecord:",
            QT_TRANSLATE_NOOP("Commands", "Ne&xt Record"),
            "Ctrl+PgDown",
            "TB_C_next",
            [](Controller &window) { window.goToNextRecord(); }},
    Command{"goToLastRecord:",
            QT_TRANSLATE_NOOP("Commands", "&Last Record"),
            "Ctrl+End",
            "TB_C_last",
            [](Controller &window) { window.goToLastRecord(); }},
    Command{"goToRecordNumber:",
            QT_TRANSLATE_NOOP("Commands", "&Go to Record Number…"),
            "Ctrl+J",
            "",
            [](Controller &window) { window.goToRecordNumber(); }},
    separator,
    Command{"goBackOneRecord:",
            QT_TRANSLATE_NOOP("Commands", "&Back"),
            "Alt+Left",
            "TB_C_back",
            [](Controller &window) { window.goBackOneRecord(); }},
    Command{"goForwardOneRecord:",
            QT_TRANSLATE_NOOP("Commands", "F&orward"),
            "Alt+Right",
            "TB_C_forward",
            [](Controller &window) { window.goForwardOneRecord(); }},
};

constexpr std::array selectTable{
    Command{"selectRecords:",
            QT_TRANSLATE_NOOP("Commands", "Select &Records…"),
            "Ctrl+Shift+E",
            "TB_C_select",
            [](Controller &window) { window.selecting().selectRecords(); }},
    Command{"selectFromOmitted:",
            QT_TRANSLATE_NOOP("Commands", "Select from &Omitted…"),
            "Ctrl+Shift+O",
            "",
            [](Controller &window) { window.selecting().selectFromOmitted(); }},
    Command{"selectAllRecords:",
            QT_TRANSLATE_NOOP("Commands", "Select &All Records"),
            "Ctrl+Shift+A",
            "TB_C_selectAll",
            [](Controller &window) { window.selecting().selectAllRecords(); }},
    separator,
    Command{"revertToPreviousSelection:",
            QT_TRANSLATE_NOOP("Commands", "Re&vert to Previous Selection"),
            "Ctrl+Shift+B",
            "",
            [](Controller &window) { window.selecting().revertToPreviousSelection(); }},
    Command{"switchToOmitted:",
            QT_TRANSLATE_NOOP("Commands", "&Switch to Omitted"),
            "Ctrl+Shift+X",
            "TB_C_omitted",
            [](Controller &window) { window.selecting().switchToOmitted(); }},
    Command{"deselectCurrentRecord:",
            QT_TRANSLATE_NOOP("Commands", "&Deselect Current Record"),
            "Ctrl+Shift+D",
            "",
            [](Controller &window) { window.selecting().deselectCurrentRecord(); }},
};

constexpr std::array sortTable{
    Command{"sortByFields:",
            QT_TRANSLATE_NOOP("Commands", "Sort by &Fields…"),
            "Ctrl+Shift+T",
            "TB_C_sort",
            [](Controller &window) { window.sorting().sortByFields(); }},
    Command{"sortByFreeformText:",
            QT_TRANSLATE_NOOP("Commands", "Sort by Freeform &Text…"),
            "",
            "",
            [](Controller &window) { window.sorting().sortByFreeformText(); }},
    separator,
    Command{"sortDatafileByWholeRecord:",
            QT_TRANSLATE_NOOP("Commands", "Sort by &Whole Record"),
            "",
            "",
            [](Controller &window) { window.sorting().sortDatafileByWholeRecord(); }},
    Command{"sortByCreatedDate:",
            QT_TRANSLATE_NOOP("Commands", "Sort by &Created Date"),
            "",
            "",
            [](Controller &window) { window.sorting().sortByCreatedDate(); }},
    Command{"sortByModifiedDate:",
            QT_TRANSLATE_NOOP("Commands", "Sort by &Modified Date"),
            "",
            "",
            [](Controller &window) { window.sorting().sortByModifiedDate(); }},
    separator,
    Command{"saveSortTask:",
            QT_TRANSLATE_NOOP("Commands", "&Save as Sort Task…"),
            "",
            "",
            [](Controller &window) { window.sorting().saveSortTask(); }},
    Command{"editSortTasks:",
            QT_TRANSLATE_NOOP("Commands", "&Edit Sort Tasks…"),
            "",
            "",
            [](Controller &window) { window.sorting().editSortTasks(); }},
};

constexpr std::array findTable{
    Command{"activateFindBox:",
            QT_TRANSLATE_NOOP("Commands", "&Find"),
            "Ctrl+F",
            "",
            [](Controller &window) { window.search().activateFindBox(); }},
    // The keys of these are not the keys that are held down with a button: those are commands here.
    Command{"forwardSearch:",
            QT_TRANSLATE_NOOP("Commands", "Find &Next"),
            "Ctrl+G; F3",
            "TB_C_findFwd",
            [](Controller &window) { window.search().forwardSearch({}); }},
    Command{"reverseSearch:",
            QT_TRANSLATE_NOOP("Commands", "Find &Previous"),
            "Ctrl+Shift+G; Shift+F3",
            "TB_C_findBwd",
            [](Controller &window) { window.search().reverseSearch({}); }},
    Command{"forwardSearchAfterRecord:",
            QT_TRANSLATE_NOOP("Commands", "Find Behind This &Record"),
            "Ctrl+Alt+G; Alt+F3",
            "",
            [](Controller &window) { window.search().forwardSearch({.option = true}); }},
    Command{"forwardSearchToHit:",
            QT_TRANSLATE_NOOP("Commands", "Find Next and &Go There"),
            "Ctrl+F3",
            "",
            [](Controller &window) { window.search().forwardSearch({.control = true}); }},
    Command{"useSelectionForFind:",
            QT_TRANSLATE_NOOP("Commands", "&Use Selection for Find"),
            "Ctrl+E",
            "",
            [](Controller &window) { window.search().useSelectionForFind(); }},
    Command{"insertAmpersand:",
            QT_TRANSLATE_NOOP("Commands", "&Insert &&&& Between Keys"),
            "Ctrl+7",
            "",
            [](Controller &window) { window.search().insertAmpersand(); }},
    separator,
    Command{"toggleSelectMode:",
            QT_TRANSLATE_NOOP("Commands", "&Select Instead of Finding"),
            "",
            "",
            [](Controller &window) { window.search().toggleSelectMode(); },
            [](const Controller &window) { return window.search().isSelectMode(); }},
    Command{"toggleEntryStyle:",
            QT_TRANSLATE_NOOP("Commands", "Keys Between &Blanks, Phrases in Quotes"),
            "",
            "",
            [](Controller &window) { window.search().toggleEntryStyle(); },
            [](const Controller &window) { return window.search().isInternetStyle(); }},
    Command{"toggleCaseSensitivity:",
            QT_TRANSLATE_NOOP("Commands", "&Case Sensitive"),
            "",
            "",
            [](Controller &window) { window.search().toggleCaseSensitivity(); },
            [](const Controller &window) { return window.search().isCaseSensitive(); }},
    Command{"toggleFindOptionsLock:",
            QT_TRANSLATE_NOOP("Commands", "&Lock These Options"),
            "",
            "",
            [](Controller &window) { window.search().toggleOptionsLock(); },
            [](const Controller &window) { return window.search().areOptionsLocked(); }},
};

const Command *find(std::span<const Command> table, const QString &selector)
{
    const auto found = std::ranges::find_if(table, [&selector](const Command &command) {
        return selector == QLatin1StringView(command.selector);
    });
    return found == table.end() ? nullptr : &*found;
}

} // namespace

std::span<const Command> fileCommands()
{
    return fileTable;
}

std::span<const Command> recordCommands()
{
    return recordTable;
}

std::span<const Command> selectCommands()
{
    return selectTable;
}

std::span<const Command> sortCommands()
{
    return sortTable;
}

std::span<const Command> findCommands()
{
    return findTable;
}

const Command *commandForSelector(const QString &selector)
{
    for (const std::span<const Command> table : {fileCommands(),
                                                 recordCommands(),
                                                 fieldCommands(),
                                                 backupCommands(),
                                                 selectCommands(),
                                                 sortCommands(),
                                                 findCommands(),
                                                 viewCommands(),
                                                 textCommands(),
                                                 exportCommands()}) {
        if (const Command *command = find(table, selector))
            return command;
    }
    for (const CommandMenu &menu : formatMenus()) {
        if (const Command *command = find(menu.commands, selector))
            return command;
    }
    return nullptr;
}

} // namespace tavrin
