// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileDocument.h"

#include "base/InternalInconsistency.h"
#include "base/Log.h"
#include "document/BackgroundSave.h"
#include "document/DatafileContents.h"
#include "document/StoredTexts.h"
#include "document/UndoHistory.h"

#include <QFileInfo>

namespace tavrin {

DatafileDocument::DatafileDocument(const DocumentServices &services, DatafileKind kind)
    : g_services(services)
    , g_kind(kind)
    , g_settings(std::make_unique<DatafileSettingsData>(services.preferences))
    , g_records(std::make_unique<DatafileRecordsData>())
    , g_defaultDraftName(tr("New Datafile"))
    , g_save(std::make_unique<BackgroundSave>())
    , g_undoHistory(std::make_unique<UndoHistory>(*this))
{
    setCatalog(CatalogForms(g_records->sharedIdentifiers()), {});
}

DatafileDocument::~DatafileDocument() = default;

std::unique_ptr<DatafileDocument> DatafileDocument::newDocument(const DocumentServices &services,
                                                                DatafileKind kind)
{
    return std::unique_ptr<DatafileDocument>(new DatafileDocument(services, kind));
}

std::unique_ptr<DatafileDocument> DatafileDocument::newDatafile(const DocumentServices &services,
                                                                DatafileKind kind,
                                                                const QStringList &fieldNames,
                                                                const QString &textName)
{
    std::unique_ptr<DatafileDocument> document = newDocument(services, kind);
    document->addFieldNamesToDocument(fieldNames);
    if (!textName.isEmpty())
        document->g_settings->setTextName(textName);
    document->addRecord({});
    document->updateChangeCount(ChangeCount::Done);
    return document;
}

void DatafileDocument::setOpenedReadOnly(bool readOnly)
{
    if (g_openedReadOnly == readOnly)
        return;
    g_openedReadOnly = readOnly;
    Q_EMIT fileChanged();
}

QString DatafileDocument::displayName() const
{
    return g_filePath.isEmpty() ? g_defaultDraftName : QFileInfo(g_filePath).fileName();
}

bool DatafileDocument::changedOnDisk() const
{
    if (isSaving())
        return false;
    // A file that is gone has nothing that we could overwrite.
    const FileStamp now = FileStamp::of(g_filePath);
    return now.size >= 0 && now != g_stamp;
}

void DatafileDocument::updateChangeCount(ChangeCount change)
{
    switch (change) {
    case ChangeCount::Done:
        setChangeCount(g_changeCount + 1);
        break;
    case ChangeCount::Undone:
        setChangeCount(g_changeCount - 1);
        break;
    case ChangeCount::Cleared:
        g_save->changeCount = 0;
        setChangeCount(0);
        break;
    }
}

void DatafileDocument::setChangeCount(qint64 count)
{
    const bool wasModified = isModified();
    g_changeCount = count;
    if (isModified() != wasModified)
        Q_EMIT modifiedChanged(isModified());
}

void DatafileDocument::announceCatalogChange()
{
    announce(CatalogChanged{});
}

void DatafileDocument::storeFieldValue(const QString &recordIdentifier,
                                       const QString &fieldIdentifier,
                                       const QString &value)
{
    recordToChange(recordIdentifier).setFieldValue(value, fieldIdentifier);
    announce(RecordChanged{recordIdentifier});
}

void DatafileDocument::storeText(const QString &recordIdentifier, const QString &text)
{
    recordToChange(recordIdentifier).setTextString(text);
    announce(RecordChanged{recordIdentifier});
}

void DatafileDocument::storeFormattedText(const QString &recordIdentifier,
                                          const QString &text,
                                          const QByteArray &textRTFD)
{
    RecordData &record = recordToChange(recordIdentifier);
    record.setTextString(text);
    record.setTextRTFD(textRTFD);
    announce(RecordChanged{recordIdentifier});
}

void DatafileDocument::storePlainText(const QString &recordIdentifier, const QString &text)
{
    storeFormattedText(recordIdentifier, text, {});
}

void DatafileDocument::markRecordModified(const QString &recordIdentifier)
{
    recordToChange(recordIdentifier).modified(g_services.environment);
    announce(RecordChanged{recordIdentifier});
}

QString DatafileDocument::addRecord(const QString &afterIdentifier)
{
    return addRecord(std::make_unique<RecordData>(g_services.environment), afterIdentifier);
}

QString DatafileDocument::addRecord(std::unique_ptr<RecordData> record, const QString &afterIdentifier)
{
    const QString identifier = record->identifier();
    g_records->setRecord(std::move(record), identifier);
    if (afterIdentifier.isEmpty())
        g_catalog->insertIdentifierAtBeginning(identifier);
    else
        g_catalog->insertIdentifier(identifier, afterIdentifier);
    announce(RecordAdded{identifier, afterIdentifier});
    Q_EMIT didAddRecord(identifier, afterIdentifier);
    return identifier;
}

void DatafileDocument::deleteRecord(const QString &identifier)
{
    if (!g_records->contains(identifier))
        return;
    announce(RecordWillBeDeleted{identifier});
    Q_EMIT willDeleteRecord(identifier);
    g_catalog->deleteIdentifier(identifier);
    g_records->removeRecordForIdentifier(identifier);
    announce(RecordDeleted{identifier});
    Q_EMIT didDeleteRecord(identifier);
}

QString DatafileDocument::contentOfField(const QString &name, qint64 catalogIndex) const
{
    const RecordData *record = g_records->recordForIdentifier(g_catalog->identifierAtIndex(catalogIndex));
    return record ? tavrin::contentOfField(name, *record, *g_settings) : QString();
}

QList<FieldDefinition> DatafileDocument::arrayForFieldNames(const QStringList &names) const
{
    return tavrin::arrayForFieldNames(names, g_services.environment);
}

void DatafileDocument::addFieldNamesToDocument(const QStringList &names)
{
    if (names.isEmpty())
        return;
    g_settings->setFields(g_settings->fields() + arrayForFieldNames(names));
    updateChangeCount(ChangeCount::Done);
    announce(FieldFormatChanged{});
    Q_EMIT datafileFieldFormatChanged();
}

void DatafileDocument::announce(const DatafileChange &change)
{
    Q_EMIT changed(change);
}

void DatafileDocument::setCatalog(CatalogForms forms, std::vector<CatalogEntry> entries)
{
    const bool isMissing = entries.empty() && g_records->count() > 0;
    g_catalog = std::make_unique<SubsetSortedData>(
        SubsetSortedData::catalogWithEntries(std::move(forms),
                                             std::move(entries),
                                             *g_records,
                                             g_settings->criteria<SubsetSortCriteriaData>(),
                                             g_selectionOnOpening));
    if (isMissing)
        sortAnew();
    g_catalog->observeSelectionWouldBeEmptyErrorNotification([this] { Q_EMIT selectionWouldBeEmptyError(); });
}

// A datafile without an order of its own gets the one that its criteria say. Where a date cannot be read, the
// records stay as they come.
void DatafileDocument::sortAnew()
{
    Progress progress;
    if (const auto sorted = g_catalog->sort(
            StoredTexts(*g_records, *g_settings), sortSettings(g_services.preferences), progress);
        !sorted)
        qCWarning(log) << sorted.error().error.message;
}

RecordData &DatafileDocument::recordToChange(const QString &identifier) const
{
    RecordData *record = g_records->recordForIdentifier(identifier);
    if (!record)
        throw InternalInconsistency("DatafileDocument: a change of a record that does not exist");
    return *record;
}

} // namespace tavrin
