// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/UndoHistory.h"

#include "document/DatafileDocument.h"

namespace tavrin {

void UndoHistory::push(std::shared_ptr<UndoStep> step)
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

std::shared_ptr<UndoStep> UndoHistory::stepToUndo() const
{
    return canUndo() ? g_steps[g_done - 1] : nullptr;
}

std::shared_ptr<UndoStep> UndoHistory::stepToRedo() const
{
    return canRedo() ? g_steps[g_done] : nullptr;
}

void UndoHistory::didUndo(const UndoStep *step)
{
    if (!step || stepToUndo().get() != step)
        return;
    --g_done;
    g_document.updateChangeCount(DatafileDocument::ChangeCount::Undone);
    Q_EMIT changed();
}

void UndoHistory::didRedo(const UndoStep *step)
{
    if (!step || stepToRedo().get() != step)
        return;
    ++g_done;
    g_document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    Q_EMIT changed();
}

void UndoHistory::undo()
{
    if (const std::shared_ptr<UndoStep> step = stepToUndo()) {
        step->undo(g_document);
        didUndo(step.get());
    }
}

void UndoHistory::redo()
{
    if (const std::shared_ptr<UndoStep> step = stepToRedo()) {
        step->redo(g_document);
        didRedo(step.get());
    }
}

} // namespace tavrin
