// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/UndoHistory.h"

#include "document/DatafileDocument.h"

namespace tavrin {

void UndoHistory::push(std::unique_ptr<UndoStep> step)
{
    g_steps.resize(g_done);
    g_steps.push_back(std::move(step));
    if (g_steps.size() > longest)
        g_steps.erase(g_steps.begin());
    g_done = g_steps.size();
    Q_EMIT changed();
}

void UndoHistory::forgetAddingOf(quint32 record)
{
    if (g_steps.empty() || canRedo() || !g_steps.back()->isAddingOf(record))
        return;
    g_steps.pop_back();
    --g_done;
    Q_EMIT changed();
}

void UndoHistory::clear()
{
    g_steps.clear();
    g_done = 0;
    Q_EMIT changed();
}

void UndoHistory::undo()
{
    if (!canUndo())
        return;
    g_steps[--g_done]->undo(g_document);
    g_document.updateChangeCount(DatafileDocument::ChangeCount::Undone);
    Q_EMIT changed();
}

void UndoHistory::redo()
{
    if (!canRedo())
        return;
    g_steps[g_done++]->redo(g_document);
    g_document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    Q_EMIT changed();
}

} // namespace tavrin
