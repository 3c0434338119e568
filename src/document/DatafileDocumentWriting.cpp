// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Saving in all its forms. The file's safety is that of writeDurably(); here is decided what may be written.

#include "base/InternalInconsistency.h"
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
    if (g_updatingSettingsOnly)
        return {};
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

DatafileSnapshot DatafileDocument::snapshot()
{
    plist::Dictionary rootEntries = g_rootEntries;
    for (const QString &part : {RootKey::settings, RootKey::records, RootKey::catalog})
        rootEntries.insert(part, true);
    RecordsSnapshot records = g_records->snapshot();
    CatalogSnapshot catalog = g_catalog->snapshot(records.identifiers);
    return {rootEntries, g_settings->dictionary(), std::move(records), std::move(catalog)};
}

Result<> DatafileDocument::writeContents(const QString &path, plist::Format format)
{
    const bool own = isOwnFile(path);
    if (g_editing && isModified())
        g_editing->storeRecordBeingEdited();
    if (g_editing)
        g_editing->setNowSaving(true);
    const auto saved = qScopeGuard([this] {
        if (g_editing)
            g_editing->setNowSaving(false);
    });

    if (const Result<> written = writeDatafile(snapshot(), path, format); !written)
        return written;
    if (own)
        g_stamp = FileStamp::of(g_filePath);
    Q_EMIT fileWritten();
    return {};
}

Result<DatafileDocument::SaveOutcome> DatafileDocument::saveDocument()
{
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
    if (const Result<> saved = saveNormally(); !saved)
        return saved.error();
    return SaveOutcome::Saved;
}

Result<> DatafileDocument::forceSave()
{
    if (!canSaveChanges())
        return refused(tr("Changes to this datafile cannot be saved."), g_filePath);
    return saveNormally();
}

Result<> DatafileDocument::saveNormally()
{
    if (g_filePath.isEmpty())
        return refused(tr("The datafile has no file yet."), g_defaultDraftName);
    if (const Result<> written = writeToURL(g_filePath, typeNameOf(g_kind)); !written)
        return written;
    updateChangeCount(ChangeCount::Cleared);
    if (g_editing)
        g_editing->markCurrentRecordClean();
    return {};
}

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

DatafileDocument::SaveAsOutcome DatafileDocument::saveDocumentAs(const QString &path)
{
    SaveAsOutcome outcome;
    if (!canSaveChanges()) {
        outcome.failureReason = tr("Changes to this datafile cannot be saved.");
        return outcome;
    }
    if (!g_settings->deletedIdentifiers().isEmpty())
        g_settings->setDeletedIdentifiers({});
    g_filePath = path;
    g_stamp = FileStamp::of(path);
    g_openedReadOnly = false;
    Q_EMIT fileChanged();
    if (g_editing)
        g_editing->endListEditing();

    // The code stays 0: writing reports how it went by its result only.
    const Result<> written = writeToURL(path, typeNameOf(g_kind));
    outcome.written = written.has_value();
    if (written) {
        outcome.failureReason = tr("No error was reported, and the file was written to %1.").arg(path);
        return outcome;
    }
    outcome.failureReason = written.error().message;
    if (!isModified())
        updateChangeCount(ChangeCount::Done);
    return outcome;
}

Result<> DatafileDocument::saveCopyAs(const QString &path, plist::Format format)
{
    if (isOwnFile(path))
        return refused(tr("A copy cannot replace the datafile itself."), path);
    return writeContents(path, format);
}

Result<> DatafileDocument::updateSettingsOnly(plist::Format format)
{
    if (!canSaveChanges() || !g_settings->datafileSettingsDidChange() || g_filePath.isEmpty())
        return {};
    g_updatingSettingsOnly = true;
    const auto updated = qScopeGuard([this] { g_updatingSettingsOnly = false; });
    if (FileStamp::of(g_filePath).size >= 0) {
        // Records that somebody else has written meanwhile are as little ours to replace as unsaved ones are
        // to be saved here.
        const Result<> written = isModified() || changedOnDisk()
                                     ? writeSettingsIntoFile(format)
                                     : writeToURL(g_filePath, typeNameOf(g_kind), format);
        if (!written)
            return written;
    }
    g_settings->setDatafileSettingsDidChange(false);
    return {};
}

Result<> DatafileDocument::writeSettingsIntoFile(plist::Format format)
{
    const bool wasChangedOnDisk = changedOnDisk();
    Progress unwatched;
    const Result<DatafileContents> onDisk = readDatafile(g_filePath, unwatched);
    if (!onDisk)
        return onDisk.error();
    DatafileSnapshot snapshot{onDisk->rootEntries,
                              g_settings->dictionary(),
                              RecordsSnapshot::ofSource(onDisk->records, onDisk->identifiers),
                              {onDisk->catalogForms, {}}};
    snapshot.catalog.order.assign(onDisk->catalog);
    if (const Result<> written = writeDatafile(snapshot, g_filePath, format); !written)
        return written;
    // Otherwise the next save has to know, still, that the file holds what we never read.
    if (!wasChangedOnDisk)
        g_stamp = FileStamp::of(g_filePath);
    Q_EMIT fileWritten();
    return {};
}

} // namespace tavrin
