// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/RecordSelection.h"

#include "base/Parallel.h"
#include "sorting/WorkSteps.h"

#include <algorithm>
#include <atomic>

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

/// What the rule says of each entry that is no inert one; several threads share the entries, and each makes
/// the rule for itself. Cancelled.
template <typename MakeRule>
Result<std::vector<bool>> statesOf(const CatalogRecords &catalog, Progress &progress, MakeRule makeRule)
{
    constexpr size_t parallelFrom = 20'000;
    const size_t count = catalog.entries.size();
    const int parts = count < parallelFrom ? 1 : parallelParts();
    std::vector<std::vector<bool>> states(static_cast<size_t>(parts));
    std::atomic<bool> isStopped = false;
    inParallel(parts, [&](int part) {
        const auto index = static_cast<size_t>(part);
        const size_t first = count * index / states.size();
        const size_t last = count * (index + 1) / states.size();
        // One speaks for all with whoever waits.
        Progress unheard;
        WorkSteps steps(part == 0 ? progress : unheard, last - first);
        auto rule = makeRule();
        states[index].reserve(last - first);
        for (size_t i = first; i < last && !isStopped.load(std::memory_order_relaxed); ++i) {
            if (!steps.goOn())
                isStopped = true;
            const CatalogEntry &entry = catalog.entries[i];
            states[index].push_back(!entry.isInert() && rule(entry, catalog.records[i]));
        }
    });
    if (isStopped)
        return Error{.kind = Error::Kind::Cancelled};
    std::vector<bool> all;
    all.reserve(count);
    for (const std::vector<bool> &part : states)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace

Result<std::vector<bool>> selectionByCriteria(const CatalogRecords &catalog,
                                              const SubsetSortCriteriaData &criteria,
                                              bool fromOmitted,
                                              const RecordTexts &texts,
                                              const SelectionSettings &settings,
                                              Progress &progress)
{
    return statesOf(catalog, progress, [&] {
        return [fromOmitted,
                selectsAll = criteria.selectAllRecords(),
                matcher = RecordMatcher(criteria, texts, settings)](const CatalogEntry &entry,
                                                                    quint32 record) mutable {
            const bool isJudged = entry.currentlySelected() != fromOmitted;
            return selectsAll || (isJudged ? matcher.matches(record) : entry.currentlySelected());
        };
    });
}

Result<std::vector<bool>> selectionForFind(const CatalogRecords &catalog,
                                           const QStringList &keys,
                                           bool caseSensitive,
                                           const RecordTexts &texts,
                                           Progress &progress)
{
    return statesOf(catalog, progress, [&] {
        return [finder = KeyFinder(keys, caseSensitive, texts)](const CatalogEntry &entry,
                                                                quint32 record) mutable {
            return entry.currentlySelected() && finder.areAllIn(record);
        };
    });
}

} // namespace tavrin
