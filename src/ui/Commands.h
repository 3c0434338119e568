// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QKeySequence>
#include <QString>

#include <span>

namespace tavrin {

class EditorWindowController;

/// One command of an editor window: where it stands, how it is called, what it does.
///
/// The menus, the toolbar and the shortcuts are built from the one table of commands, so that a command is
/// called, enabled and run the same way from everywhere.
struct Command
{
    const char *selector; ///< As validateAction() knows it.
    const char *text;     ///< Menu text with its mnemonic; translated in the context "Commands".
    const char *shortcut; ///< Portable key text, several separated by ";"; empty for none.
    const char *icon;     ///< Image name; empty for none.
    void (*run)(EditorWindowController &window);
    /// Whether a check mark stands before it; null for a command that has none.
    bool (*isOn)(const EditorWindowController &window) = nullptr;
};

/// A menu's commands in order; a command without a selector is a separator.
std::span<const Command> fileCommands();
std::span<const Command> recordCommands();
std::span<const Command> fieldCommands();
std::span<const Command> backupCommands();
std::span<const Command> selectCommands();
std::span<const Command> sortCommands();
std::span<const Command> findCommands();
std::span<const Command> exportCommands();
// Of the window's looks, and the small ones on the text.
std::span<const Command> viewCommands();
std::span<const Command> textCommands();

/// Every command of an editor window by its selector; null for an unknown one.
const Command *commandForSelector(const QString &selector);

} // namespace tavrin
