// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/Commands.h"

#include "editor/EditorWindowController.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace tavrin {

namespace {

using Controller = EditorWindowController;

constexpr Command separator{"", "", "", "", nullptr};

constexpr std::array fileTable{
    Command{"saveDocument:", QT_TRANSLATE_NOOP("Commands", "&Save"), "Ctrl+S", "", &Controller::saveDocument},
    Command{"saveDocumentAs:",
            QT_TRANSLATE_NOOP("Commands", "Save &As…"),
            "Ctrl+Shift+S",
            "",
            &Controller::saveDocumentAs},
    Command{
        "saveCopyAs:", QT_TRANSLATE_NOOP("Commands", "Save a Cop&y As…"), "", "", &Controller::saveCopyAs},
    Command{"revertDocumentToSaved:",
            QT_TRANSLATE_NOOP("Commands", "&Revert to Saved…"),
            "",
            "",
            &Controller::revertDocumentToSaved},
};

constexpr std::array recordTable{
    Command{"addRecord:",
            QT_TRANSLATE_NOOP("Commands", "&New Record"),
            "Ctrl+Shift+N",
            "TB_C_newRecord",
            &Controller::addRecord},
    Command{"deleteRecord:",
            QT_TRANSLATE_NOOP("Commands", "&Delete Record…"),
            "Ctrl+Shift+Backspace",
            "TB_C_deleteRecord",
            &Controller::deleteRecord},
    separator,
    Command{"goToFirstRecord:",
            QT_TRANSLATE_NOOP("Commands", "&First Record"),
            "Ctrl+Home",
            "TB_C_first",
            &Controller::goToFirstRecord},
    Command{"goToPreviousRecord:",
            QT_TRANSLATE_NOOP("Commands", "&Previous Record"),
            "Ctrl+PgUp",
            "TB_C_previous",
            &Controller::goToPreviousRecord},
    Command{"goToNextRecord:",
            QT_TRANSLATE_NOOP("Commands", "Ne&xt Record"),
            "Ctrl+PgDown",
            "TB_C_next",
            &Controller::goToNextRecord},
    Command{"goToLastRecord:",
            QT_TRANSLATE_NOOP("Commands", "&Last Record"),
            "Ctrl+End",
            "TB_C_last",
            &Controller::goToLastRecord},
    Command{"goToRecordNumber:",
            QT_TRANSLATE_NOOP("Commands", "&Go to Record Number…"),
            "Ctrl+J",
            "",
            &Controller::goToRecordNumber},
    separator,
    Command{"goBackOneRecord:",
            QT_TRANSLATE_NOOP("Commands", "&Back"),
            "Alt+Left",
            "TB_C_back",
            &Controller::goBackOneRecord},
    Command{"goForwardOneRecord:",
            QT_TRANSLATE_NOOP("Commands", "F&orward"),
            "Alt+Right",
            "TB_C_forward",
            &Controller::goForwardOneRecord},
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

const Command *commandForSelector(const QString &selector)
{
    const Command *command = find(fileTable, selector);
    return command ? command : find(recordTable, selector);
}

} // namespace tavrin
