// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Opening, reverting and the repair of the catalog.

#include "base/FilledIn.h"
#include "document/DatafileContents.h"
#include "document/DatafileDocument.h"
#include "document/UndoHistory.h"

#include <QFileInfo>

#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

Result<std::unique_ptr<DatafileDocument>> DatafileDocument::open(const DocumentServices &services,
                                                                 const QString &path,
                                                                 SelectionOnOpening selection,
                                                                 std::optional<DatafileKind> kind)
{
    Progress unwatched;
    Result<DatafileContents> contents = readDatafile(path, unwatched);
    if (!contents)
        return contents.error();
    return openContents(services, *std::move(contents), selection, kind);
}

std::unique_ptr<DatafileDocument> DatafileDocument::openContents(const DocumentServices &services,
                                                                 DatafileContents contents,
                                                                 SelectionOnOpening selection,
                                                                 std::optional<DatafileKind> kind)
{
    if (!kind)
        kind = datafileKindOfPath(contents.path).value_or(DatafileKind::Pro);
    std::unique_ptr<DatafileDocument> document = newDocument(services, *kind);
    document->g_selectionOnOpening = selection;
    document->takeContents(std::move(contents));
    return document;
}

QString DatafileDocument::tooNewMessage(const QString &fileName)
{
    return filledIn(tr("\"%@\" was made by a newer version."), {fileName});
}

QString DatafileDocument::tooNewInformativeText()
{
    return tr("It can be opened only with that version or later.");
}

Result<> DatafileDocument::readFromURL(const QString &path, const QString &typeName)
{
    waitForSaving();
    const std::optional<DatafileKind> kind = datafileKindOfTypeName(typeName);
    if (!kind) {
        g_filePath = path;
        g_correctedCatalog = false;
        return {};
    }
    Progress unwatched;
    Result<DatafileContents> contents = readDatafile(path, unwatched);
    if (!contents)
        return contents.error();
    g_kind = *kind;
    takeContents(*std::move(contents));
    return {};
}

void DatafileDocument::takeContents(DatafileContents contents)
{
    g_filePath = contents.path;
    g_stamp = contents.stamp;
    g_correctedCatalog = false;
    g_formatRead = contents.format;
    g_rootEntries = std::move(contents.rootEntries);
    *g_settings =
        DatafileSettingsData::settingsWithDictionary(contents.settings, g_services.preferences).value();
    g_settings->setDatafileSettingsDidChange(false);
    const CatalogMismatch counts{static_cast<qsizetype>(contents.catalog.size()),
                                 static_cast<qsizetype>(contents.records->count())};
    if (counts.catalogCount == counts.recordCount)
        g_catalogMismatch.reset();
    else
        g_catalogMismatch = counts;
    // The old catalog knows the old records, so they go after it.
    const std::unique_ptr<DatafileRecordsData> oldRecords = std::exchange(
        g_records,
        std::make_unique<DatafileRecordsData>(
            std::move(contents.records), std::move(contents.identifiers), g_services.environment));
    setCatalog(std::move(contents.catalogForms), std::move(contents.catalog));
    g_undoHistory->clear();
}

Result<> DatafileDocument::revertToContents()
{
    waitForSaving();
    Progress unwatched;
    Result<DatafileContents> contents = readDatafile(g_filePath, unwatched);
    if (!contents)
        return contents.error();
    revertToContents(*std::move(contents));
    return {};
}

void DatafileDocument::revertToContents(DatafileContents contents)
{
    waitForSaving();
    takeContents(std::move(contents));
    // First of all: the old records are gone, and nobody may look at them for any other news.
    announce(DatafileReverted{});
    Q_EMIT revertedDatafileWindow();
    updateChangeCount(ChangeCount::Cleared);
}

void DatafileDocument::makeUntitled(const QString &name)
{
    g_filePath.clear();
    g_stamp = {};
    g_defaultDraftName = name;
    Q_EMIT fileChanged();
}

std::optional<CatalogMismatch> DatafileDocument::catalogMismatch() const
{
    return g_catalogMismatch;
}

QString DatafileDocument::catalogMismatchMessage() const
{
    return catalogMismatchMessage(displayName(), g_catalogMismatch.value_or(CatalogMismatch()));
}

QString DatafileDocument::catalogMismatchMessage(const QString &fileName, const CatalogMismatch &counts)
{
    return filledIn(tr("%@ shows %U records, but actually contains %U."),
                    {fileName, QString::number(counts.catalogCount), QString::number(counts.recordCount)});
}

void DatafileDocument::correctCatalog()
{
    CatalogForms forms(g_records->sharedIdentifiers());
    std::vector<CatalogEntry> entries;
    entries.reserve(static_cast<size_t>(g_records->count()));
    for (const QString &identifier : g_records->allIdentifiers()) {
        // Repaired entries have always been stored with texts for flags.
        entries.push_back(forms.entryWithValue(plist::Dictionary{{u"Identifier"_s, identifier},
                                                                 {u"CurrentlySelected"_s, u"YES"_s},
                                                                 {u"PreviouslySelected"_s, u"YES"_s}}));
    }
    setCatalog(std::move(forms), std::move(entries));
    g_undoHistory->clear();
    g_catalogMismatch.reset();
    g_correctedCatalog = true;
    updateChangeCount(ChangeCount::Done);
    announce(CatalogChanged{});
}

void DatafileDocument::keepCatalog()
{
    g_catalogMismatch.reset();
}

} // namespace tavrin
