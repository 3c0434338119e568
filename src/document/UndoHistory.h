// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

namespace tavrin {

class DatafileDocument;

/// Something done to a datafile that can be taken back and done again. It names records by their identifiers:
/// the ones that went meanwhile are passed over.
class UndoStep
{
public:
    UndoStep() = default;
    UndoStep(const UndoStep &) = delete;
    UndoStep &operator=(const UndoStep &) = delete;
    virtual ~UndoStep() = default;

    /// What was done, as a menu names it behind "Undo": "Sort".
    virtual QString name() const = 0;
    virtual void undo(DatafileDocument &document) = 0;
    virtual void redo(DatafileDocument &document) = 0;
    /// Whether all that was done is that a record came in.
    virtual bool isAddingOf(quint32 /*record*/) const { return false; }
};

/// What can be undone in a datafile beside the typing, in the order in which it was done.
class UndoHistory : public QObject
{
    Q_OBJECT

public:
    static constexpr qsizetype longest = 50; ///< Older steps are forgotten.

    explicit UndoHistory(DatafileDocument &document) : g_document(document) {}

    /// Remembers a step that was just done. What was undone before can no longer be done again.
    void push(std::shared_ptr<UndoStep> step);
    /// Forgets the last step when all it did was to add that record, which is gone again.
    void forgetAddingOf(quint32 record);
    void clear();

    bool canUndo() const { return g_done > 0; }
    bool canRedo() const { return g_done < g_steps.size(); }
    /// Null when there is nothing.
    QString undoName() const { return canUndo() ? g_steps[g_done - 1]->name() : QString(); }
    QString redoName() const { return canRedo() ? g_steps[g_done]->name() : QString(); }

    /// Nothing when there is nothing. The document's unsaved mark follows.
    void undo();
    void redo();

    // The same in steps, for those who do it themselves. Null when there is nothing.
    std::shared_ptr<UndoStep> stepToUndo() const;
    std::shared_ptr<UndoStep> stepToRedo() const;
    /// It was undone, or done again. Nothing when meanwhile it is no longer the one to be.
    void didUndo(const UndoStep *step);
    void didRedo(const UndoStep *step);

Q_SIGNALS:
    void changed();

private:
    DatafileDocument &g_document;
    std::vector<std::shared_ptr<UndoStep>> g_steps;
    size_t g_done = 0; ///< Steps before it are done, the others undone.
};

} // namespace tavrin
