// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/TextState.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace tavrin {

namespace {

template <typename Text>
TextState stateOfText(const Text &text)
{
    return {text.document()->isUndoAvailable(),
            text.document()->isRedoAvailable(),
            text.textCursor().hasSelection(),
            !text.isReadOnly()};
}

} // namespace

std::optional<TextState> textStateOf(const QWidget *widget)
{
    if (const auto *line = qobject_cast<const QLineEdit *>(widget))
        return TextState{
            line->isUndoAvailable(), line->isRedoAvailable(), line->hasSelectedText(), !line->isReadOnly()};
    if (const auto *plain = qobject_cast<const QPlainTextEdit *>(widget))
        return stateOfText(*plain);
    if (const auto *text = qobject_cast<const QTextEdit *>(widget))
        return stateOfText(*text);
    return {};
}

bool leavesKeyToWindow(const QWidget *text, const QKeyEvent &key)
{
    const auto state = textStateOf(text);
    return state
           && ((key.matches(QKeySequence::Undo) && !state->canUndo)
               || (key.matches(QKeySequence::Redo) && !state->canRedo));
}

} // namespace tavrin
