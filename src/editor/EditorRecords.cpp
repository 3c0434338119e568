// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorRecords.h"

#include "base/FilledIn.h"
#include "document/DatafileArrangement.h"
#include "document/DatafileBackups.h"
#include "document/DuplicateRemoval.h"
#include "document/RecordAdding.h"
#include "document/RecordOperations.h"
#include "document/TableOfContents.h"
#include "editor/AlertSheetController.h"
#include "editor/CopiedRecord.h"
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
    if (g_window.nowSyncing())
        return false;
    const bool wasInTable = g_window.isTableFocused();
    g_window.leaveEditing();
    if (g_window.currentRecordMayVanish()) {
        // Adding again and again must not pile up empty records.
        if (wasInTable)
            g_window.focusTable();
        return false;
    }
    g_window.showNewRecord(RecordAdding(g_window.document()).addRecord(g_window.currentIdentifier()));
    return true;
}

void EditorRecords::addAndPaste(bool plain)
{
    if (g_window.nowSyncing())
        return;
    // An empty record that is there already takes what is pasted.
    addEmptyRecord();
    g_window.pasteIntoFreeformText(plain);
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
    if (!g_window.leaveEditing())
        return;
    const QString made = RecordAdding(g_window.document()).duplicateRecord(g_window.currentIdentifier());
    if (!made.isNull())
        g_window.showNewRecord(made);
}

void EditorRecords::addTOC()
{
    if (!g_window.leaveEditing())
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
    if (!g_window.validateAction(u"deleteRecord:"_s))
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
    if (!g_window.validateAction(u"deleteRecord:"_s) || !g_window.leaveEditing())
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
    if (!g_window.validateAction(u"deleteAllSelectedRecords:"_s))
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
    const Preferences *preferences = g_window.document().services().preferences;
    if (preferences && preferences->integerForKey(u"NoBackupForDelectedSelectedRecords"_s) != 0)
        deleteSelected();
    else
        backUp([this] { deleteSelected(); });
}

void EditorRecords::deleteSelected()
{
    if (!g_window.leaveEditing())
        return;
    const Result<qint64> deleted = RecordOperations(g_window.document()).deleteAllSelected();
    if (!deleted) {
        showAlert(g_sheets, deleted.error().message, {});
        return;
    }
    g_window.showAfterDeletion(0);
    Q_EMIT g_window.statusMessage(tr("Records deleted: %1.").arg(*deleted));
}

void EditorRecords::removeDuplicateRecords()
{
    if (!g_window.leaveEditing())
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
        g_window.leaveEditing();
        if (work->removal().wasCancelled())
            return;
        if (work->removal().isStale()) {
            beginRemovingDuplicates(); // Among the records as they are now.
            return;
        }
        const qsizetype count = work->removal().apply(g_window.document()).size();
        if (count > 0)
            g_window.loadRecordAtIndex(0);
        showAlert(g_sheets,
                  count > 0 ? filledIn(tr("%lu duplicate record(s) removed."), {QString::number(count)})
                            : tr("No duplicate records were removed."),
                  {});
    });
    g_work.begin(std::move(work));
}

// Ordering.

void EditorRecords::move(bool toFirst)
{
    if (!g_window.currentRecord() || !g_window.leaveEditing())
        return;
    const QString identifier = g_window.currentIdentifier();
    RecordOperations operations(g_window.document());
    const Result<bool> moved =
        toFirst ? operations.moveToFirst(identifier) : operations.moveToLast(identifier);
    if (moved && *moved)
        g_window.showRecord(identifier);
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
    if (!g_window.currentRecord() || !g_window.validateAction(u"moveAfterRecordNumber:"_s))
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
            g_window.showRecord(identifier);
    });
    g_sheets.begin(std::move(sheet));
}

// Locking.

void EditorRecords::setAllLocked(bool locked)
{
    if (!g_window.leaveEditing())
        return;
    RecordOperations(g_window.document()).setAllLocked(locked);
    g_window.loadCurrentRecord();
}

void EditorRecords::revertAllRecordsLockedState()
{
    if (!g_window.leaveEditing())
        return;
    RecordOperations(g_window.document()).revertAllLocked();
    g_window.loadCurrentRecord();
}

void EditorRecords::toggleRecordLocked()
{
    if (!g_window.currentRecord() || !g_window.leaveEditing())
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

// Backups.

void EditorRecords::backUp(const std::function<void()> &done)
{
    DatafileDocument &document = g_window.document();
    const Result<QString> path = DatafileBackups(document).newPath();
    const Result<> begun = path ? document.beginSavingCopy(*path) : Result<>(path.error());
    if (!begun) {
        tellBackupFailure(begun.error().message);
        return;
    }
    g_backup = std::make_unique<QObject>();
    connect(
        &document, &DatafileDocument::savingFinished, g_backup.get(), [this, done](const Result<> &saved) {
            g_backup.release()->deleteLater();
            if (!saved) {
                tellBackupFailure(saved.error().message);
                return;
            }
            DatafileBackups(g_window.document()).removeOld();
            done();
        });
}

void EditorRecords::tellBackupFailure(const QString &message)
{
    showAlert(g_sheets, tr("The backup could not be written."), message);
}

void EditorRecords::saveCurrentDatafileToBackups()
{
    if (g_window.leaveEditing())
        backUp([this] { Q_EMIT g_window.statusMessage(tr("A backup was written.")); });
}

} // namespace tavrin
