// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Saving in all its forms. The file's safety is that of writeDurably(); here is decided what may be written.

#include "base/InternalInconsistency.h"
#include "document/BackgroundSave.h"
#include "document/DatafileContents.h"
#include "document/DatafileDocument.h"
#include "document/DatafileSnapshot.h"

#include <QFileInfo>
#include <QScopeGuard>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

Error refused(const QString &message, const QString &path)
{
    return {Error::Kind::Refused, message, path};
}

Result<FileStamp> stampedAs(const Result<> &written, const QString &path)
{
    if (!written)
        return written.error();
    return FileStamp::of(path);
}

/// Writes the file anew with other settings, and everything else as it is there.
Result<> writeSettingsInto(const QString &path,
                           const plist::Dictionary &settings,
                           plist::Format format,
                           const FileStamp &known,
                           bool &isSomebodyElses)
{
    Progress unwatched;
    const Result<DatafileContents> onDisk = readDatafile(path, unwatched);
    if (!onDisk)
        return onDisk.error();
    // Somebody may have written it since the work was begun.
    isSomebodyElses = onDisk->stamp != known;
    DatafileSnapshot snapshot{onDisk->rootEntries,
                              settings,
                              RecordsSnapshot::ofSource(onDisk->records, onDisk->identifiers),
                              {onDisk->catalogForms, {}}};
    snapshot.catalog.order.assign(onDisk->catalog);
    return writeDatafile(snapshot, path, format);
}

} // namespace

Result<> DatafileDocument::writeToURL(const QString &path, const QString &typeName)
{
    return writeToURL(path, typeName, plist::Format::Xml);
}

Result<> DatafileDocument::writeToURL(const QString &path, const QString &typeName, plist::Format format)
{
    if (const Result<> allowed = mayWrite(typeName); !allowed)
        return allowed;
    if (const Result<> written = writeContents(path, format); !written)
        return written;
    g_settings->setDatafileSettingsDidChange(false);
    return {};
}

Result<> DatafileDocument::mayWrite(const QString &typeName) const
{
    if (!datafileKindOfTypeName(typeName))
        return Error{Error::Kind::Unsupported, tr("This is not a kind of datafile."), typeName};
    if (g_openedReadOnly)
        return refused(tr("This datafile was opened read-only."), g_filePath);
    if (g_settings->readOnly())
        return refused(tr("This datafile is set to always open read-only."), g_filePath);
    return {};
}

bool DatafileDocument::isOwnFile(const QString &path) const
{
    if (g_filePath.isEmpty())
        return false;
    if (path == g_filePath)
        return true;
    // The same file under another name, through a link or another way to its folder.
    const FileStamp own = FileStamp::of(g_filePath);
    const FileStamp other = FileStamp::of(path);
    return own.size >= 0 && own.device == other.device && own.inode == other.inode;
}

/// With what is being edited on screen; meanwhile the window leaves the records alone.
DatafileSnapshot DatafileDocument::snapshot()
{
    if (g_editing && isModified())
        g_editing->storeRecordBeingEdited();
    if (g_editing)
        g_editing->setNowSaving(true);
    const auto made = qScopeGuard([this] {
        if (g_editing)
            g_editing->setNowSaving(false);
    });
    plist::Dictionary rootEntries = g_rootEntries;
    for (const QString &part : {RootKey::settings, RootKey::records, RootKey::catalog})
        rootEntries.insert(part, true);
    RecordsSnapshot records = g_records->snapshot();
    CatalogSnapshot catalog = g_catalog->snapshot(records.identifiers);
    return {rootEntries, g_settings->dictionary(), std::move(records), std::move(catalog)};
}

Result<> DatafileDocument::writeContents(const QString &path, plist::Format format)
{
    waitForSaving();
    const bool own = isOwnFile(path);
    if (const Result<> written = writeDatafile(snapshot(), path, format); !written)
        return written;
    if (own)
        g_stamp = FileStamp::of(g_filePath);
    Q_EMIT fileWritten();
    return {};
}

Result<DatafileDocument::SaveOutcome> DatafileDocument::saveDocument()
{
    return saveBy(&DatafileDocument::saveNormally, SaveOutcome::Saved);
}

Result<DatafileDocument::SaveOutcome> DatafileDocument::beginSaving()
{
    return saveBy(&DatafileDocument::beginSavingNormally, SaveOutcome::Begun);
}

Result<DatafileDocument::SaveOutcome> DatafileDocument::saveBy(Result<> (DatafileDocument::*save)(),
                                                               SaveOutcome done)
{
    waitForSaving();
    if (isMobile())
        return SaveOutcome::NotByThisCommand;
    if (g_openedReadOnly)
        return SaveOutcome::NeedsSaveAs;
    if (!isModified() || !canSaveChanges() || (g_editing && g_editing->nowSyncing()))
        return SaveOutcome::NothingToSave;
    if (g_filePath.isEmpty())
        return SaveOutcome::NeedsSaveAs;
    if (g_editing)
        g_editing->endListEditing();
    if (const Result<> saved = (this->*save)(); !saved)
        return saved.error();
    return done;
}

Result<> DatafileDocument::mayForceSave() const
{
    if (!canSaveChanges())
        return refused(tr("Changes to this datafile cannot be saved."), g_filePath);
    if (g_filePath.isEmpty())
        return refused(tr("The datafile has no file yet."), g_defaultDraftName);
    return {};
}

Result<> DatafileDocument::forceSave()
{
    if (const Result<> allowed = mayForceSave(); !allowed)
        return allowed;
    return saveNormally();
}

Result<> DatafileDocument::beginForceSave()
{
    if (const Result<> allowed = mayForceSave(); !allowed)
        return allowed;
    return beginSavingNormally();
}

Result<> DatafileDocument::saveNormally()
{
    if (const Result<> written = writeToURL(g_filePath, typeNameOf(g_kind)); !written)
        return written;
    updateChangeCount(ChangeCount::Cleared);
    if (g_editing)
        g_editing->markCurrentRecordClean();
    return {};
}

// On another thread.

bool DatafileDocument::isSaving() const
{
    return g_save->isRunning();
}

void DatafileDocument::waitForSaving()
{
    // Who hears of the end of one save may begin the next.
    while (isSaving())
        g_save->wait();
}

Result<> DatafileDocument::beginSavingNormally()
{
    waitForSaving();
    if (const Result<> allowed = mayWrite(typeNameOf(g_kind)); !allowed)
        return allowed;
    Write write = snapshotWrite(g_filePath);
    g_save->changeCount = g_changeCount;
    beginWritingOwnFile(std::move(write), [this](const auto &written) { didSave(written); });
    return {};
}

/// Writes the document as it is now, whenever it runs.
DatafileDocument::Write DatafileDocument::snapshotWrite(const QString &path)
{
    return [write = copyWriting(path), path] { return stampedAs(write(), path); };
}

std::function<Result<>()> DatafileDocument::copyWriting(const QString &path)
{
    return [saved = snapshot(), path] { return writeDatafile(saved, path, plist::Format::Xml); };
}

void DatafileDocument::beginWriting(Write write, const Written &ended)
{
    g_save->begin(std::move(write), [this, ended](const Result<FileStamp> &written) {
        ended(written);
        if (written)
            Q_EMIT fileWritten();
        Q_EMIT savingFinished(written ? Result<>() : Result<>(written.error()));
    });
}

void DatafileDocument::beginWritingOwnFile(Write write, const Written &ended)
{
    g_save->settingsChanged = g_settings->datafileSettingsDidChange();
    g_settings->setDatafileSettingsDidChange(false);
    beginWriting(std::move(write), [this, ended](const Result<FileStamp> &written) {
        if (written)
            g_stamp = *written;
        else if (g_save->settingsChanged)
            g_settings->setDatafileSettingsDidChange(true);
        ended(written);
    });
}

void DatafileDocument::didSave(const Result<FileStamp> &written)
{
    if (!written)
        return;
    // What was changed since the snapshot was made is in no file yet.
    setChangeCount(g_changeCount - g_save->changeCount);
    if (g_editing && !isModified())
        g_editing->markCurrentRecordClean();
}

// Other files, and settings alone.

Result<> DatafileDocument::saveToFirstFile(const QString &path)
{
    if (!g_filePath.isEmpty())
        throw InternalInconsistency("-saveToFirstFile: -- The document has a file already.");
    if (g_editing)
        g_editing->endListEditing();
    g_filePath = path;
    if (const Result<> saved = forceSave(); !saved) {
        g_filePath.clear();
        return saved;
    }
    Q_EMIT fileChanged();
    return {};
}

Result<> DatafileDocument::beginSavingToFirstFile(const QString &path)
{
    if (!g_filePath.isEmpty())
        throw InternalInconsistency("-beginSavingToFirstFile: -- The document has a file already.");
    if (g_editing)
        g_editing->endListEditing();
    g_filePath = path;
    Result<> begun = mayForceSave();
    if (begun)
        begun = mayWrite(typeNameOf(g_kind));
    if (!begun) {
        g_filePath.clear();
        return begun;
    }
    Write write = snapshotWrite(path);
    g_save->changeCount = g_changeCount;
    beginWritingOwnFile(std::move(write), [this](const Result<FileStamp> &written) {
        didSave(written);
        if (!written)
            g_filePath.clear();
        Q_EMIT fileChanged();
    });
    return {};
}

/// Makes the path the document's file. Refused when nothing may be written there.
Result<> DatafileDocument::beginSaveAs(const QString &path)
{
    waitForSaving();
    if (!canSaveChanges())
        return refused(tr("Changes to this datafile cannot be saved."), path);
    if (!g_settings->deletedIdentifiers().isEmpty())
        g_settings->setDeletedIdentifiers({});
    g_filePath = path;
    g_stamp = FileStamp::of(path);
    g_openedReadOnly = false;
    Q_EMIT fileChanged();
    if (g_editing)
        g_editing->endListEditing();
    if (const Result<> allowed = mayWrite(typeNameOf(g_kind)); !allowed) {
        markUnsaved();
        return allowed;
    }
    return {};
}

DatafileDocument::SaveAsOutcome DatafileDocument::saveDocumentAs(const QString &path)
{
    Result<> written = beginSaveAs(path);
    if (written) {
        written = writeToURL(path, typeNameOf(g_kind));
        if (!written)
            markUnsaved();
    }
    return saveAsOutcome(written, path);
}

void DatafileDocument::beginSavingAs(const QString &path,
                                     const std::function<void(const SaveAsOutcome &)> &ended)
{
    if (const Result<> begun = beginSaveAs(path); !begun) {
        ended(saveAsOutcome(begun, path));
        return;
    }
    beginWritingOwnFile(snapshotWrite(path), [this, path, ended](const Result<FileStamp> &written) {
        if (!written)
            markUnsaved();
        ended(saveAsOutcome(written ? Result<>() : Result<>(written.error()), path));
    });
}

/// What the window shows stands in no file.
void DatafileDocument::markUnsaved()
{
    if (!isModified())
        updateChangeCount(ChangeCount::Done);
}

/// The code stays 0: writing reports how it went by its result only.
DatafileDocument::SaveAsOutcome DatafileDocument::saveAsOutcome(const Result<> &written, const QString &path)
{
    SaveAsOutcome outcome;
    outcome.written = written.has_value();
    outcome.failureReason = written ? tr("No error was reported, and the file was written to %1.").arg(path)
                                    : written.error().message;
    return outcome;
}

Result<> DatafileDocument::saveCopyAs(const QString &path, plist::Format format)
{
    waitForSaving();
    if (isOwnFile(path))
        return refused(tr("A copy cannot replace the datafile itself."), path);
    return writeContents(path, format);
}

Result<> DatafileDocument::beginSavingCopy(const QString &path)
{
    waitForSaving();
    if (isOwnFile(path))
        return refused(tr("A copy cannot replace the datafile itself."), path);
    beginWriting(snapshotWrite(path), [](const Result<FileStamp> &) {});
    return {};
}

bool DatafileDocument::hasSettingsToUpdate() const
{
    return canSaveChanges() && g_settings->datafileSettingsDidChange() && !g_filePath.isEmpty();
}

BackgroundSave::Write DatafileDocument::settingsWrite(plist::Format format)
{
    const QString path = g_filePath;
    // Records that somebody else has written meanwhile are as little ours to replace as unsaved ones are to
    // be saved here.
    const bool isSomebodyElses = changedOnDisk();
    if (!isModified() && !isSomebodyElses) {
        return [saved = snapshot(), path, format] {
            return stampedAs(writeDatafile(saved, path, format), path);
        };
    }
    return [settings = g_settings->dictionary(), path, format, known = g_stamp] {
        bool holdsOthers = false;
        const Result<> done = writeSettingsInto(path, settings, format, known, holdsOthers);
        const Result<FileStamp> written = stampedAs(done, path);
        // The next save has to know, still, that the file holds what we never read.
        return written && holdsOthers ? Result<FileStamp>(known) : written;
    };
}

Result<> DatafileDocument::updateSettingsOnly(plist::Format format)
{
    waitForSaving();
    if (!hasSettingsToUpdate())
        return {};
    if (FileStamp::of(g_filePath).size >= 0) {
        const Result<FileStamp> written = settingsWrite(format)();
        if (!written)
            return written.error();
        g_stamp = *written;
        Q_EMIT fileWritten();
    }
    g_settings->setDatafileSettingsDidChange(false);
    return {};
}

SaveOutcome DatafileDocument::beginUpdatingSettingsOnly()
{
    waitForSaving();
    if (!hasSettingsToUpdate() || FileStamp::of(g_filePath).size < 0)
        return SaveOutcome::NothingToSave;
    g_save->changeCount = 0;
    beginWritingOwnFile(settingsWrite(plist::Format::Xml), [this](const auto &written) { didSave(written); });
    return SaveOutcome::Begun;
}

} // namespace tavrin
