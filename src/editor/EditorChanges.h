// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/SteppedChange.h"
#include "editor/LongWork.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tavrin {

class ChangeWork;
class EditorWindowController;

/// Makes the changes of many records, takes them back and makes them again, as an editor window offers it:
/// small ones at once, large ones bit by bit with progress and Cancel. Until then the window does nothing
/// else.
class EditorChanges : public QObject
{
    Q_OBJECT

public:
    /// `made` is false when it was cancelled, and all is as it was.
    using Ended = std::function<void(bool made)>;

    EditorChanges(EditorWindowController &window, WorkHost &work) : g_window(window), g_work(work) {}

    /// Makes a new change, as one step of Undo that marks the document as changed.
    void make(std::unique_ptr<SteppedChange> change, const Ended &ended);
    /// Shows then what was touched: the one record that it was about, if it was one.
    void undo();
    void redo();

    bool isChanging() const { return g_isChanging; }

Q_SIGNALS:
    void isChangingChanged();

private:
    using Step = std::shared_ptr<UndoStep>;

    /// What undoing and doing again have in common.
    struct Way
    {
        Step step;
        void (UndoStep::*whole)(DatafileDocument &document);
        void (UndoHistory::*did)(const UndoStep *step);
    };

    void walk(const Way &way);
    void carryOut(const std::shared_ptr<SteppedChange> &change, const Ended &ended);
    void
    begin(const std::shared_ptr<SteppedChange> &change, std::unique_ptr<ChangeWork> work, const Ended &ended);
    void workEnded(const std::shared_ptr<SteppedChange> &change, const ChangeWork &work, const Ended &ended);
    void setChanging(bool changing);

    EditorWindowController &g_window;
    WorkHost &g_work;
    bool g_isChanging = false;
    bool g_wasCancelled = false;
};

} // namespace tavrin
