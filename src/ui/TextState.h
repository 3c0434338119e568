// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

class QKeyEvent;
class QWidget;

namespace tavrin {

/// What can be done with a text that is typed into.
struct TextState
{
    bool canUndo;
    bool canRedo;
    bool hasSelection;
    bool writable;
};

/// Of whatever texts are typed into: a line, a field that is wrapped, or the Freeform Text Area. Nothing for
/// another widget.
std::optional<TextState> textStateOf(const QWidget *widget);

/// Whether the key is that of Undo or Redo, and the text has no typing of its own for it: then it is the
/// window's.
bool leavesKeyToWindow(const QWidget *text, const QKeyEvent &key);

} // namespace tavrin
