// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorRecords.h"

#include "base/FilledIn.h"
#include "document/DatafileArrangement.h"
#include "document/DuplicateRemoval.h"
#include "document/RecordAdding.h"
#include "document/RecordOperations.h"
#include "document/TableOfContents.h"
#include "editor/AlertSheetController.h"
#include "editor/CopiedRecord.h"
#include "editor/EditorChanges.h"
#include "editor/EditorWindowController.h"
#include "editor/FormPreview.h"
#include "editor/GotoRecordSheetController.h"
#include "editor/LongWork.h"
#include "model/Preferences.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// Finding the records that say the same as others.
class DuplicatesWork : public LongWork
{
public:
    explicit DuplicatesWork(const DatafileDocument &document)
        : g_removal(document, DuplicateRemoval::Compare::RichTexts)
    {}

    QString title() const override { return EditorRecords::tr("Removing Duplicate Records..."); }
    void run(Progress &progress) override { g_removal.run(progress); }
    const DuplicateRemoval &removal() const { return g_removal; }

private:
    DuplicateRemoval g_removal;
};

class LockingWork : public LongWork
{
public:
    LockingWork(const DatafileDocument &document, RecordLocking::Kind kind) : g_locking(document, kind) {}

    QString title() const override { return g_locking.name() + u'…'; }
    void run(Progress &progress) override { g_locking.run(progress); }
    RecordLocking &locking() { return g_locking; }

private:
    RecordLocking g_locking;
};

class ContentsWork : public LongWork
{
public:
    explicit ContentsWork(const DatafileDocument &document) : g_contents(document) {}

    QString title() const override { return EditorRecords::tr("Making the table of contents…"); }
    void run(Progress &progress) override { g_contents.run(progress); }
    const TableOfContents &contents() const { return g_contents; }

private:
    TableOfContents g_contents;
};

} // namespace

EditorRecords::EditorRecords(EditorWindowController &window, SheetHost &sheets, WorkHost &work)
    : g_window(window)
    , g_sheets(sheets)
    , g_work(work)
{}

EditorRecords::~EditorRecords() = default;

// Adding.

bool EditorRecords::addEmptyRecord()
{
    const bool wasInTable = g_window.isTableFocused();
    if (!g_window.leaveEditingToChange())
        return false;
    if (g_window.isCurrentRecordEmpty()) {
        // Adding again and again must not pile up empty records.
        if (wasInTable)
            g_window.focusTable();
        return true;
    }
    g_window.showNewRecord(RecordAdding(g_window.document()).addRecord(g_window.currentIdentifier()));
    return true;
}

void EditorRecords::addAndPaste(bool plain)
{
    // An empty record that is there already takes what is pasted.
    if (addEmptyRecord() && !g_window.pasteIntoFreeformText(plain))
        showAlert(
            g_sheets,
            tr("Memory Error."),
            tr("It appears that the contents of the clipboard that were just pasted into Tavrin Pro may "
               "have caused a instability. We strongly suggest that you save changes, quit Tavrin Pro, "
               "and relaunch it.."));
}

void EditorRecords::addRecordWithToggle(bool toggled)
{
    if (toggled)
        addRecordWithPaste();
    else
        addRecord();
}

void EditorRecords::duplicateCurrentRecord()
{
    if (!g_window.leaveEditingToChange())
        return;
    const QString made = RecordAdding(g_window.document()).duplicateRecord(g_window.currentIdentifier());
    if (!made.isNull())
        g_window.showNewRecord(made);
}

void EditorRecords::addTOC()
{
    if (!g_window.leaveEditingToChange())
        return;
    auto work = std::make_unique<ContentsWork>(g_window.document());
    connect(work.get(), &LongWork::ended, this, [this, work = work.get()] {
        g_window.leaveEditing();
        if (const QString made = work->contents().apply(g_window.document()); !made.isNull())
            g_window.showRecord(made);
    });
    g_work.begin(std::move(work));
}

// Deleting.

void EditorRecords::deleteRecord()
{
    if (!g_window.validateAction(u"deleteRecord:"_s) || !g_window.permitsChange())
        return;
    auto alert =
        std::make_unique<AlertSheetController>(tr("Are you sure you want to delete the current record?"),
                                               QString(),
                                               QStringList{tr("OK"), tr("Cancel")});
    alert->setDestructiveButton(0);
    connect(alert.get(), &QVSheetController::finished, this, [this](int returnCode) {
        if (returnCode == QVSheetController::FirstButton)
            deleteRecordWithoutWarning();
    });
    g_sheets.begin(std::move(alert));
}

void EditorRecords::deleteRecordWithToggle(bool toggled)
{
    if (toggled)
        deleteRecordWithoutWarning();
    else
        deleteRecord();
}

void EditorRecords::deleteRecordWithoutWarning()
{
    // The last record of a datafile stays.
    if (!g_window.validateAction(u"deleteRecord:"_s) || !g_window.leaveEditingToChange())
        return;
    const qint64 index = g_window.indexOfCurrentRecord();
    const bool isLast = index == g_window.countSelected() - 1;
    const Result<qint64> deleted =
        RecordOperations(g_window.document()).deleteRecords({g_window.currentIdentifier()});
    if (deleted && *deleted > 0)
        g_window.showAfterDeletion(isLast ? 0 : index);
}

void EditorRecords::deleteAllSelectedRecords()
{
    if (!g_window.validateAction(u"deleteAllSelectedRecords:"_s) || !g_window.permitsChange())
        return;
    auto alert = std::make_unique<AlertSheetController>(
        tr("Delete All Selected Records?"),
        tr("Are you sure you want to delete all currently selected records?"),
        QStringList{tr("Delete"), tr("Cancel")});
    alert->setDestructiveButton(0);
    connect(alert.get(), &QVSheetController::finished, this, [this](int returnCode) {
        if (returnCode == QVSheetController::FirstButton)
            backUpAndDelete();
    });
    g_sheets.begin(std::move(alert));
}

void EditorRecords::backUpAndDelete()
{
    if (!g_window.leaveEditing())
        return;
    // Those that the person was asked about, whatever is selected when the backup stands.
    const std::vector<quint32> records = RecordOperations(g_window.document()).selectedRecords();
    const Preferences *preferences = g_window.document().services().preferences;
    if (preferences && preferences->integerForKey(u"NoBackupForDelectedSelectedRecords"_s) != 0)
        deleteRecords(records);
    else
        backUp([this, records] { deleteRecords(records); });
}

void EditorRecords::deleteRecords(const std::vector<quint32> &records)
{
    if (!g_window.leaveEditing())
        return;
    Result<std::unique_ptr<SteppedChange>> deletion =
        RecordOperations(g_window.document()).deletionOf(records);
    if (!deletion) {
        showAlert(g_sheets, deletion.error().message, {});
        return;
    }
    if (!*deletion)
        return;
    const qsizetype before = g_window.document().datafileRecords().count();
    g_window.changes().make(*std::move(deletion), [this, before](bool made) {
        if (!showAfterDeletions(made))
            return;
        const qsizetype count = before - g_window.document().datafileRecords().count();
        Q_EMIT g_window.statusMessage(tr("Records deleted: %1.").arg(count));
    });
}

/// Whether they were deleted.
bool EditorRecords::showAfterDeletions(bool made)
{
    if (made)
        g_window.showAfterDeletions();
    else
        g_window.loadCurrentRecord();
    return made;
}

void EditorRecords::removeDuplicateRecords()
{
    if (!g_window.leaveEditingToChange())
        return;
    g_window.autoSaveChanges(false);
    if (g_window.haveCurrentSelection())
        DatafileArrangement(g_window.document()).selectAll();
    beginRemovingDuplicates();
}

void EditorRecords::beginRemovingDuplicates()
{
    auto work = std::make_unique<DuplicatesWork>(g_window.document());
    connect(work.get(), &LongWork::ended, this, [this, work = work.get()] {
        if (work->removal().wasCancelled() || !g_window.leaveEditing())
            return;
        if (work->removal().isStale())
            beginRemovingDuplicates(); // Among the records as they are now.
        else
            removeDuplicates(work->removal());
    });
    g_work.begin(std::move(work));
}

void EditorRecords::removeDuplicates(const DuplicateRemoval &removal)
{
    std::unique_ptr<SteppedChange> change = removal.change(g_window.document());
    if (!change) {
        showAlert(g_sheets, tr("No duplicate records were removed."), {});
        return;
    }
    const QString count = QString::number(removal.duplicates().size());
    g_window.changes().make(std::move(change), [this, count](bool made) {
        if (showAfterDeletions(made))
            showAlert(g_sheets, filledIn(tr("%lu duplicate record(s) removed."), {count}), {});
    });
}

// Ordering.

void EditorRecords::move(bool toFirst)
{
    if (!g_window.currentRecord() || !g_window.leaveEditingToChange())
        return;
    const QString identifier = g_window.currentIdentifier();
    RecordOperations operations(g_window.document());
    const Result<bool> moved =
        toFirst ? operations.moveToFirst(identifier) : operations.moveToLast(identifier);
    if (moved && *moved)
        showMoved(identifier);
}

void EditorRecords::showMoved(const QString &identifier)
{
    g_window.showRecord(identifier);
    g_window.freshenWindowContentSettings();
}

void EditorRecords::makeThisTheFirstRecord()
{
    move(true);
}

void EditorRecords::makeThisTheLastRecord()
{
    move(false);
}

void EditorRecords::moveAfterRecordNumber()
{
    if (!g_window.currentRecord() || !g_window.validateAction(u"moveAfterRecordNumber:"_s)
        || !g_window.permitsChange())
        return;
    auto sheet = std::make_unique<GotoRecordSheetController>(g_window.countSelected(),
                                                             GotoRecordSheetController::Purpose::MoveAfter);
    connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int code) {
        if (code != QVSheetController::FirstButton || !g_window.leaveEditing())
            return;
        const QString identifier = g_window.currentIdentifier();
        const QString after = g_window.document().datafileCatalog().selectedIdentifierAtIndex(sheet->index());
        const Result<bool> moved = RecordOperations(g_window.document()).moveAfter(identifier, after);
        if (moved && *moved)
            showMoved(identifier);
    });
    g_sheets.begin(std::move(sheet));
}

// Locking.

void EditorRecords::lockAll(RecordLocking::Kind kind)
{
    if (!g_window.leaveEditingToChange())
        return;
    auto work = std::make_unique<LockingWork>(g_window.document(), kind);
    connect(work.get(), &LongWork::ended, this, [this, kind, work = work.get()] {
        if (work->locking().wasCancelled() || !g_window.leaveEditing())
            return;
        if (work->locking().isStale())
            lockAll(kind); // With the records as they are now.
        else if (std::unique_ptr<SteppedChange> change = work->locking().takeChange())
            g_window.changes().make(std::move(change), [this](bool) { g_window.loadCurrentRecord(); });
    });
    g_work.begin(std::move(work));
}

void EditorRecords::toggleRecordLocked()
{
    if (!g_window.currentRecord() || !g_window.leaveEditingToChange())
        return;
    RecordOperations(g_window.document())
        .setLocked(g_window.currentIdentifier(), !g_window.currentRecordLocked());
    g_window.loadCurrentRecord();
}

// Copying.

void EditorRecords::copyRecord()
{
    if (g_window.currentRecord() && g_window.leaveEditing())
        QGuiApplication::clipboard()->setMimeData(
            copiedRecord(*g_window.currentRecord(), g_window.document(), FieldNames::Without));
}

void EditorRecords::copyRecordWithFieldNames()
{
    if (g_window.currentRecord() && g_window.leaveEditing())
        QGuiApplication::clipboard()->setMimeData(
            copiedRecord(*g_window.currentRecord(), g_window.document(), FieldNames::With));
}

} // namespace tavrin
