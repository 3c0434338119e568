// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorChanges.h"

#include "editor/ChangeWork.h"
#include "editor/EditorWindowController.h"

#include <algorithm>
#include <utility>

namespace tavrin {

namespace {

/// So many are done before anybody notices.
constexpr size_t mostPartsAtOnce = 4000;

/// Hears which record a change is about.
class TouchedRecord
{
public:
    explicit TouchedRecord(const DatafileDocument &document)
    {
        QObject::connect(
            &document, &DatafileDocument::changed, &g_receiver, [this](const DatafileChange &change) {
                if (const auto *added = std::get_if<RecordAdded>(&change))
                    g_identifier = added->identifier;
                else if (const auto *changed = std::get_if<RecordChanged>(&change))
                    g_identifier = changed->identifier;
            });
    }

    /// Empty when it is about none, or about many.
    const QString &identifier() const { return g_identifier; }

private:
    QString g_identifier;
    QObject g_receiver;
};

} // namespace

void EditorChanges::make(std::unique_ptr<SteppedChange> change, const Ended &ended)
{
    const std::shared_ptr<SteppedChange> made = std::move(change);
    carryOut(made, [this, made, ended](bool isMade) {
        if (isMade) {
            g_window.document().undoHistory().push(made);
            g_window.document().updateChangeCount(DatafileDocument::ChangeCount::Done);
        }
        ended(isMade);
    });
}

void EditorChanges::undo()
{
    walk({g_window.document().undoHistory().stepToUndo(), &UndoStep::undo, &UndoHistory::didUndo});
}

void EditorChanges::redo()
{
    walk({g_window.document().undoHistory().stepToRedo(), &UndoStep::redo, &UndoHistory::didRedo});
}

void EditorChanges::walk(const Way &way)
{
    if (!way.step || !g_window.leaveEditing())
        return;
    DatafileDocument &document = g_window.document();
    const qint64 index = g_window.indexOfCurrentRecord();
    const auto touched = std::make_shared<TouchedRecord>(document);
    const auto ended = [this, way, index, touched](bool isMade) {
        if (isMade)
            (g_window.document().undoHistory().*way.did)(way.step.get());
        if (const QString &record = touched->identifier();
            !record.isEmpty() && record != g_window.currentIdentifier())
            g_window.showRecord(record);
        else if (g_window.currentRecord())
            g_window.loadCurrentRecord();
        else
            g_window.loadRecordAtIndex(
                std::min(index, g_window.document().datafileCatalog().countSelected() - 1));
        // In place of what was said when it was done.
        const bool isUndo = way.did == &UndoHistory::didUndo;
        if (isMade)
            Q_EMIT g_window.statusMessage(
                (isUndo ? tr("Undone: %1") : tr("Done again: %1")).arg(way.step->name()));
    };
    if (const auto change = std::dynamic_pointer_cast<SteppedChange>(way.step)) {
        carryOut(change, ended);
        return;
    }
    ((*way.step).*way.whole)(document);
    ended(true);
}

void EditorChanges::carryOut(const std::shared_ptr<SteppedChange> &change, const Ended &ended)
{
    DatafileDocument &document = g_window.document();
    if (change->partCount() <= mostPartsAtOnce) {
        change->exchange(document);
        ended(true);
        return;
    }
    g_wasCancelled = false;
    change->begin(document);
    setChanging(true);
    begin(change, std::make_unique<ChangeWork>(document, change, 0, ChangeWork::Way::On), ended);
}

void EditorChanges::begin(const std::shared_ptr<SteppedChange> &change,
                          std::unique_ptr<ChangeWork> work,
                          const Ended &ended)
{
    connect(work.get(), &LongWork::ended, this, [this, change, ended, work = work.get()] {
        workEnded(change, *work, ended);
    });
    g_work.begin(std::move(work));
}

void EditorChanges::workEnded(const std::shared_ptr<SteppedChange> &change,
                              const ChangeWork &work,
                              const Ended &ended)
{
    if (!work.isDone()) {
        // What is half made is taken back, however often that is cancelled; unless it had gone too far before
        // the work saw that it was cancelled.
        g_wasCancelled = g_wasCancelled || work.made() <= change->reversiblePartCount();
        const auto way = g_wasCancelled ? ChangeWork::Way::Back : ChangeWork::Way::On;
        begin(change, std::make_unique<ChangeWork>(g_window.document(), change, work.made(), way), ended);
        return;
    }
    if (!g_wasCancelled)
        change->conclude(g_window.document());
    setChanging(false);
    ended(!g_wasCancelled);
}

void EditorChanges::setChanging(bool changing)
{
    g_isChanging = changing;
    Q_EMIT isChangingChanged();
}

} // namespace tavrin
