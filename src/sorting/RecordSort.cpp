// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/RecordSort.h"

#include "base/FilledIn.h"
#include "sorting/SortKeys.h"
#include "sorting/WorkSteps.h"

#include <QCoreApplication>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

using Order = tl::expected<std::vector<quint32>, SortFailure>;
constexpr const char *context = "RecordSort";

tl::unexpected<SortFailure> failure(Error::Kind kind, quint32 place = RecordTexts::noRecord)
{
    return tl::unexpected(SortFailure{Error{.kind = kind, .message = notSortedText()}, place});
}

Order sortedByNumbers(std::span<const quint32> records, const RecordTerms &terms, WorkSteps &steps)
{
    NumberSortKeys keys;
    keys.reserve(records.size());
    QString buffer;
    for (const quint32 record : records) {
        if (!steps.goOn())
            return failure(Error::Kind::Cancelled);
        keys.add(terms.number(record, buffer));
    }
    return keys.sorted();
}

Order sortedByTexts(std::span<const quint32> records,
                    const RecordTerms &terms,
                    Qt::CaseSensitivity sensitivity,
                    WorkSteps &steps)
{
    // Every date was read once before any text is asked for again.
    TextSortKeys keys(sensitivity, [&](quint32 place, QString &buffer) {
        return terms.text(records[place], buffer).value_or(QAnyStringView());
    });
    keys.reserve(records.size());
    QString buffer;
    for (size_t i = 0; i < records.size(); ++i) {
        if (!steps.goOn())
            return failure(Error::Kind::Cancelled);
        const std::optional<QAnyStringView> term = terms.text(records[i], buffer);
        if (!term)
            return failure(Error::Kind::Corrupt, static_cast<quint32>(i));
        keys.add(*term);
    }
    std::vector<quint32> places = keys.sorted(steps);
    if (steps.isStopped())
        return failure(Error::Kind::Cancelled);
    return places;
}

} // namespace

Order sortedRecords(std::span<const quint32> records,
                    const SortCriteriaData &criteria,
                    const RecordTexts &texts,
                    const SortSettings &settings,
                    Progress &progress)
{
    const RecordTerms terms(criteria, texts, settings);
    const auto sensitivity = criteria.caseSensitive() ? Qt::CaseSensitive : Qt::CaseInsensitive;
    // Making the terms is one half of the work, putting them in order the other.
    WorkSteps steps(progress, 2 * records.size());
    Order order = terms.areNumbers() ? sortedByNumbers(records, terms, steps)
                                     : sortedByTexts(records, terms, sensitivity, steps);
    if (order && criteria.descending())
        std::ranges::reverse(*order);
    return order;
}

QString notSortedText()
{
    return QCoreApplication::translate(context, "The records were not sorted.");
}

QString unreadableDateText(qint64 recordNumber)
{
    return filledIn(
        QCoreApplication::translate(context, "Record number %lu has a date that could not be read."),
        {QString::number(recordNumber)});
}

} // namespace tavrin
