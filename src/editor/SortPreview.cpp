// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/SortPreview.h"

#include "document/DatafileDocument.h"
#include "document/StoredTexts.h"
#include "editor/SortSheetController.h"
#include "sorting/RecordSort.h"

#include <chrono>

namespace tavrin {

namespace {

/// What a record is sorted by, as a person would read it.
QStringList partsOf(quint32 record, const RecordTerms &terms, const SortCriteriaData &criteria)
{
    const auto rawText = [&](const QString &identifier) {
        QString buffer;
        return terms.termForField(identifier)(record, buffer).toString();
    };
    switch (static_cast<SortKind>(criteria.compareSelector())) {
    case SortKind::FreeformName:
        return rawText(QStringLiteral("Name")).split(u'\t');
    case SortKind::FreeformWord:
        return {rawText(QStringLiteral("Word"))};
    case SortKind::PostalCode:
        return {rawText(QStringLiteral("Postal"))};
    case SortKind::FreeformText:
        return {rawText(QStringLiteral("Text"))};
    default:
        break;
    }
    QStringList parts{rawText(criteria.primaryFieldIdentifier())};
    if (const QString second = criteria.secondaryFieldIdentifier(); !second.isEmpty())
        parts.append(rawText(second));
    return parts;
}

QString lineOf(quint32 record, const RecordTerms &terms, const SortCriteriaData &criteria)
{
    constexpr qsizetype longest = 200;
    QStringList shown;
    for (const QString &part : partsOf(record, terms, criteria)) {
        if (const QString text = part.left(longest).simplified(); !text.isEmpty())
            shown.append(text);
    }
    return shown.isEmpty() ? SortPreview::tr("(empty)") : shown.join(QStringLiteral(", "));
}

} // namespace

/// One look at the first records: what is asked, and what came out.
struct SortPreview::Look
{
    SubsetSortCriteriaData criteria;
    SortSettings settings;
    SharedProgress progress;
    QStringList lines;

    void run(const RecordTexts &texts, const CatalogRecords &catalog)
    {
        const auto order = sortedRecords(catalog.records, criteria, texts, settings, progress);
        if (!order) {
            if (order.error().error.kind != Error::Kind::Cancelled)
                lines.append(SortPreview::tr("Some dates could not be read."));
            return;
        }
        const RecordTerms terms(criteria, texts, settings);
        for (const quint32 place : *order) {
            // All records are sorted, but the selected ones are what the person will see.
            const quint32 record = catalog.records[place];
            if (record == RecordTexts::noRecord || !catalog.entries[place].currentlySelected())
                continue;
            lines.append(QStringLiteral("%1. %2").arg(lines.size() + 1).arg(lineOf(record, terms, criteria)));
            if (lines.size() == shownCount)
                break;
        }
    }
};

SortPreview::SortPreview(const DatafileDocument &document, SortSheetController &sheet)
    : g_sheet(&sheet)
    , g_texts(std::make_shared<StoredTexts>(document.datafileRecords(), document.datafileSettings()))
    , g_catalog(std::make_shared<CatalogRecords>(document.datafileCatalog().catalogRecords()))
{
    using namespace std::chrono_literals;
    g_delay.setSingleShot(true);
    g_delay.setInterval(120ms);
    connect(&g_delay, &QTimer::timeout, this, &SortPreview::begin);
    connect(&sheet, &SortSheetController::criteriaChanged, &g_delay, qOverload<>(&QTimer::start));
    begin();
}

SortPreview::~SortPreview()
{
    if (g_look)
        g_look->progress.cancel();
}

void SortPreview::begin()
{
    if (!g_sheet)
        return;
    if (g_work.isRunning()) {
        g_isStale = true;
        g_look->progress.cancel();
        return;
    }
    g_isStale = false;
    g_look = std::make_shared<Look>();
    g_look->criteria = g_sheet->criteria();
    g_look->settings = {.titles = g_sheet->titles(), .locale = QLocale()};
    g_work.begin([look = g_look, texts = g_texts, catalog = g_catalog] { look->run(*texts, *catalog); },
                 [this] { ended(); });
}

void SortPreview::ended()
{
    if (g_isStale)
        begin();
    else if (g_sheet)
        g_sheet->setFirstResults(g_look->lines);
}

} // namespace tavrin
