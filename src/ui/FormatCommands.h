// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/Commands.h"

namespace tavrin {

/// A submenu of the Format menu; without a title its commands stand in the menu itself.
struct CommandMenu
{
    const char *title; ///< With its mnemonic; translated in the context "Commands".
    std::span<const Command> commands;
};

/// The commands on the freeform text's looks and links.
std::span<const CommandMenu> formatMenus();

} // namespace tavrin
