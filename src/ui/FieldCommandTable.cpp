// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// The commands of the Fields menu, and those on backups.

#include "editor/EditorFields.h"
#include "editor/EditorRecords.h"
#include "ui/Commands.h"

#include <QCoreApplication>

#include <array>

namespace tavrin {

namespace {

using Controller = EditorWindowController;

constexpr Command separator{"", "", "", "", nullptr};

constexpr std::array fieldTable{
    Command{"modifyFields:",
            QT_TRANSLATE_NOOP("Commands", "&Modify Fields…"),
            "Ctrl+Shift+M",
            "",
            [](Controller &window) { window.fields().modifyFields(); }},
    Command{"setVisible:",
            QT_TRANSLATE_NOOP("Commands", "&Show Fields as Columns…"),
            "",
            "",
            [](Controller &window) { window.fields().setVisible(); }},
    Command{"addFieldWithContent:",
            QT_TRANSLATE_NOOP("Commands", "&Add Field with Content…"),
            "",
            "",
            [](Controller &window) { window.fields().addFieldWithContent(); }},
    separator,
    Command{"fillEmptyFields:",
            QT_TRANSLATE_NOOP("Commands", "&Fill Empty Fields…"),
            "",
            "",
            [](Controller &window) { window.fields().fillEmptyFields(); }},
    Command{"replaceFieldContents:",
            QT_TRANSLATE_NOOP("Commands", "&Replace Field Contents…"),
            "",
            "",
            [](Controller &window) { window.fields().replaceFieldContents(); }},
    Command{"totalFieldContents:",
            QT_TRANSLATE_NOOP("Commands", "T&otal Field Contents…"),
            "",
            "",
            [](Controller &window) { window.fields().totalFieldContents(); }},
    Command{"transferFieldContents:",
            QT_TRANSLATE_NOOP("Commands", "Tra&nsfer Field Contents…"),
            "",
            "",
            [](Controller &window) { window.fields().transferFieldContents(); }},
    separator,
    Command{"moveCurrentFreeformTextIntoFields:",
            QT_TRANSLATE_NOOP("Commands", "Move Text of &This Record into Fields…"),
            "",
            "",
            [](Controller &window) { window.fields().moveCurrentFreeformTextIntoFields(); }},
    Command{"moveAllFreeformTextIntoFields:",
            QT_TRANSLATE_NOOP("Commands", "Move Text of A&ll Selected Records into Fields…"),
            "",
            "",
            [](Controller &window) { window.fields().moveAllFreeformTextIntoFields(); }},
    Command{"moveTextElements:",
            QT_TRANSLATE_NOOP("Commands", "Move Text &Elements…"),
            "",
            "",
            [](Controller &window) { window.fields().moveTextElements(); }},
};

constexpr std::array backupTable{
    Command{"saveCurrentDatafileToBackups:",
            QT_TRANSLATE_NOOP("Commands", "Back &Up Now"),
            "",
            "",
            [](Controller &window) { window.records().saveCurrentDatafileToBackups(); }},
    Command{"browseBackups:",
            QT_TRANSLATE_NOOP("Commands", "&Browse Backups…"),
            "",
            "",
            [](Controller &window) { window.records().browseBackups(); }},
};

} // namespace

std::span<const Command> fieldCommands()
{
    return fieldTable;
}

std::span<const Command> backupCommands()
{
    return backupTable;
}

} // namespace tavrin
