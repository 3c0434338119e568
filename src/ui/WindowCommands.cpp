// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// The commands of a window's looks, and the small ones on its text.

#include "editor/EditorTextCommands.h"
#include "editor/EditorWindowController.h"
#include "ui/Commands.h"

#include <QCoreApplication>

#include <array>

namespace tavrin {

namespace {

using Controller = EditorWindowController;

constexpr Command separator{"", "", "", "", nullptr};

template <const auto &Selector>
void askView(Controller &window)
{
    window.askView(QString::fromLatin1(Selector));
}

constexpr char customizeToolbar[] = "customizeToolbar:";
constexpr char toggleToolbarStyle[] = "toggleToolbarStyle:";
constexpr char toggleToolbarShown[] = "toggleToolbarShown:";
constexpr char showRecordInfo[] = "showRecordInfo:";
constexpr char toggleSpellChecking[] = "toggleSpellChecking:";
constexpr char updateLineWrapping[] = "updateLineWrapping:";

constexpr std::array viewTable{
    Command{"switchView:",
            QT_TRANSLATE_NOOP("Commands", "Switch &View"),
            "Ctrl+3",
            "",
            [](Controller &window) { window.switchView(); }},
    Command{updateLineWrapping,
            QT_TRANSLATE_NOOP("Commands", "Wrap Fields Ane&w"),
            "",
            "",
            askView<updateLineWrapping>},
    separator,
    Command{showRecordInfo,
            QT_TRANSLATE_NOOP("Commands", "Record &Information"),
            "Ctrl+Alt+I",
            "TB_C_recordInfo",
            askView<showRecordInfo>},
    Command{"openCloneWindow:",
            QT_TRANSLATE_NOOP("Commands", "Open &Clone Window"),
            "",
            "TB_C_cloneWindow",
            [](Controller &window) { window.openCloneWindow(); }},
    separator,
    Command{
        toggleToolbarShown, QT_TRANSLATE_NOOP("Commands", "&Toolbar"), "", "", askView<toggleToolbarShown>},
    Command{toggleToolbarStyle,
            QT_TRANSLATE_NOOP("Commands", "Colored Toolbar Ima&ges"),
            "",
            "",
            askView<toggleToolbarStyle>},
    Command{customizeToolbar,
            QT_TRANSLATE_NOOP("Commands", "C&ustomize Toolbar…"),
            "",
            "",
            askView<customizeToolbar>},
};

constexpr std::array textTable{
    Command{"pasteAsPlainText:",
            QT_TRANSLATE_NOOP("Commands", "Paste as Plain Te&xt"),
            "Ctrl+Shift+V",
            "",
            [](Controller &window) { window.textCommands().pasteAsPlainText(); }},
    separator,
    Command{"insertDateTime:",
            QT_TRANSLATE_NOOP("Commands", "Insert &Date"),
            "Ctrl+Shift+;",
            "TB_C_dateStamp",
            [](Controller &window) { window.textCommands().insertDateTime(); }},
    Command{"removeBlankLines:",
            QT_TRANSLATE_NOOP("Commands", "Remove &Blank Lines"),
            "",
            "",
            [](Controller &window) { window.textCommands().removeBlankLines(); }},
    separator,
    Command{"toggleHighlighter:",
            QT_TRANSLATE_NOOP("Commands", "&Highlighter"),
            "Ctrl+Shift+H",
            "TB_C_highlighter",
            [](Controller &window) { window.textCommands().toggleHighlighter(); }},
    Command{"changeCurrentRecordToDefaultFont:",
            QT_TRANSLATE_NOOP("Commands", "Change This Record to Default &Font"),
            "",
            "",
            [](Controller &window) { window.textCommands().changeCurrentRecordToDefaultFont(); }},
    Command{"changeAllToDefaultFont:",
            QT_TRANSLATE_NOOP("Commands", "Change Selected Records to Default F&ont…"),
            "",
            "",
            [](Controller &window) { window.textCommands().changeAllToDefaultFont(); }},
    separator,
    Command{toggleSpellChecking,
            QT_TRANSLATE_NOOP("Commands", "Check &Spelling while Typing"),
            "",
            "",
            askView<toggleSpellChecking>},
};

} // namespace

std::span<const Command> viewCommands()
{
    return viewTable;
}

std::span<const Command> textCommands()
{
    return textTable;
}

} // namespace tavrin
