// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordSorting.h"

#include "document/DatafileDocument.h"

#include <QCoreApplication>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

void storeCriteria(DatafileDocument &document, const SortCriteriaData &sortCriteria)
{
    auto stored = document.datafileSettings().criteria<SubsetSortCriteriaData>();
    stored.setSortCriteria(sortCriteria);
    document.datafileSettings().setCriteria(stored);
    document.datafileSettings().setDatafileSettingsDidChange(true);
    SubsetSortCriteriaData used = document.datafileCatalog().criteria();
    used.setSortCriteria(sortCriteria);
    document.datafileCatalog().setCriteria(used);
}

} // namespace

QString SortChange::name() const
{
    return QCoreApplication::translate("RecordSorting", "Sort");
}

void SortChange::exchange(DatafileDocument &document)
{
    SubsetSortedData &catalog = document.datafileCatalog();
    const std::vector<CatalogEntry> order = std::exchange(g_otherOrder, catalog.entries());
    catalog.restoreOrder(order);
    const SortCriteriaData stored =
        document.datafileSettings().criteria<SubsetSortCriteriaData>().sortCriteria();
    storeCriteria(document, std::exchange(g_otherCriteria, stored));
    document.announceCatalogChange();
}

RecordSorting::RecordSorting(const DatafileDocument &document, const SortCriteriaData &criteria)
    : g_criteria(criteria)
    , g_settings(sortSettings(document.services().preferences))
    , g_catalog(document.datafileCatalog().catalogRecords())
    , g_texts(document.datafileRecords(), document.datafileSettings())
{}

void RecordSorting::run(Progress &progress)
{
    g_places = sortedRecords(g_catalog.records, g_criteria, g_texts, g_settings, progress);
}

std::vector<quint32> RecordSorting::firstPlaces(size_t count) const
{
    if (!g_places)
        return {};
    const auto end = std::min(count, g_places->size());
    return {g_places->begin(), g_places->begin() + static_cast<std::ptrdiff_t>(end)};
}

tl::expected<std::unique_ptr<SortChange>, SortRefusal> RecordSorting::apply(DatafileDocument &document) const
{
    SubsetSortedData &catalog = document.datafileCatalog();
    if (!g_places || catalog.entries() != g_catalog.entries)
        return tl::unexpected(refusal(document));
    auto change = std::make_unique<SortChange>(
        g_catalog.entries, document.datafileSettings().criteria<SubsetSortCriteriaData>().sortCriteria());
    catalog.arrange(*g_places);
    storeCriteria(document, g_criteria);
    document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    document.announceCatalogChange();
    return change;
}

SortRefusal RecordSorting::refusal(const DatafileDocument &document) const
{
    constexpr const char *context = "RecordSorting";
    if (g_places)
        return {{Error::Kind::Refused, notSortedText()},
                QCoreApplication::translate(context, "The records have changed meanwhile."),
                {}};
    const SortFailure &failure = g_places.error();
    if (failure.place == RecordTexts::noRecord)
        return {failure.error, {}, {}};
    // The number is that which the window shows. An omitted record has none.
    const SubsetSortedData &catalog = document.datafileCatalog();
    const QString identifier =
        document.datafileRecords().identifiers().text(g_catalog.records[failure.place]);
    const qint64 index = catalog.indexOfSelectedIdentifier(identifier);
    return {failure.error,
            index == NotFound
                ? QCoreApplication::translate(context, "An omitted record has a date that could not be read.")
                : unreadableDateText(index + 1),
            identifier};
}

} // namespace tavrin
