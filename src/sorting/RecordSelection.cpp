// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/RecordSelection.h"

#include "sorting/WorkSteps.h"

#include <algorithm>

namespace tavrin {

namespace {

/// Looks for keys in the text and in every field of a record.
class KeyFinder
{
public:
    KeyFinder(const QStringList &keys, bool caseSensitive, const RecordTexts &texts)
    {
        for (const QString &key : keys)
            g_matchers.emplace_back(key, text::Sameness{.caseInsensitive = !caseSensitive, .literal = true});
        g_readers.push_back(texts.textReader());
        for (const QString &identifier : texts.fieldIdentifiers())
            g_readers.push_back(texts.fieldReader(identifier));
    }

    bool areAllIn(quint32 record)
    {
        return !g_matchers.empty() && std::ranges::all_of(g_matchers, [&](const text::TextMatcher &key) {
            return isKeyIn(key, record);
        });
    }

private:
    bool isKeyIn(const text::TextMatcher &key, quint32 record)
    {
        return record != RecordTexts::noRecord
               && std::ranges::any_of(g_readers, [&](const RecordTextReader &reader) {
                      return key.isIn(reader(record, g_buffer));
                  });
    }

    std::vector<text::TextMatcher> g_matchers;
    std::vector<RecordTextReader> g_readers;
    QString g_buffer;
};

/// What the rule says of each entry that is no inert one. Cancelled.
template <typename Rule>
Result<std::vector<bool>> statesOf(const CatalogRecords &catalog, Progress &progress, Rule rule)
{
    WorkSteps steps(progress, catalog.entries.size());
    std::vector<bool> states;
    states.reserve(catalog.entries.size());
    for (size_t i = 0; i < catalog.entries.size(); ++i) {
        if (!steps.goOn())
            return Error{.kind = Error::Kind::Cancelled};
        const CatalogEntry &entry = catalog.entries[i];
        states.push_back(!entry.isInert() && rule(entry, catalog.records[i]));
    }
    return states;
}

} // namespace

Result<std::vector<bool>> selectionByCriteria(const CatalogRecords &catalog,
                                              const SubsetSortCriteriaData &criteria,
                                              bool fromOmitted,
                                              const RecordTexts &texts,
                                              const SelectionSettings &settings,
                                              Progress &progress)
{
    RecordMatcher matcher(criteria, texts, settings);
    const bool selectsAll = criteria.selectAllRecords();
    return statesOf(catalog, progress, [&](const CatalogEntry &entry, quint32 record) {
        const bool isJudged = entry.currentlySelected() != fromOmitted;
        return selectsAll || (isJudged ? matcher.matches(record) : entry.currentlySelected());
    });
}

Result<std::vector<bool>> selectionForFind(const CatalogRecords &catalog,
                                           const QStringList &keys,
                                           bool caseSensitive,
                                           const RecordTexts &texts,
                                           Progress &progress)
{
    KeyFinder finder(keys, caseSensitive, texts);
    return statesOf(catalog, progress, [&](const CatalogEntry &entry, quint32 record) {
        return entry.currentlySelected() && finder.areAllIn(record);
    });
}

} // namespace tavrin
