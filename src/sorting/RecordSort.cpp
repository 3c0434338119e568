// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/RecordSort.h"

#include "base/FilledIn.h"
#include "sorting/SortKeys.h"

#include <QCoreApplication>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

using Order = tl::expected<std::vector<quint32>, SortFailure>;
constexpr const char *context = "RecordSort";

/// Reports and asks now and then whether work goes on.
class Steps
{
public:
    Steps(Progress &progress, size_t count)
        : g_progress(progress)
        , g_count(count)
        , g_step(std::max<size_t>(1, count / 200))
    {}

    /// False when the work is to stop.
    bool goOn(size_t done)
    {
        if (done % g_step != 0)
            return true;
        g_progress.setDone(static_cast<qint64>(done), static_cast<qint64>(g_count));
        return !g_progress.isCancelled();
    }

private:
    Progress &g_progress;
    size_t g_count;
    size_t g_step;
};

tl::unexpected<SortFailure> failure(Error::Kind kind, quint32 place = RecordTexts::noRecord)
{
    const QString message = QCoreApplication::translate(context, "The records were not sorted.");
    return tl::unexpected(SortFailure{Error{.kind = kind, .message = message}, place});
}

Order sortedByNumbers(std::span<const quint32> records, const RecordTerms &terms, Steps &steps)
{
    NumberSortKeys keys;
    keys.reserve(records.size());
    QString buffer;
    for (size_t i = 0; i < records.size(); ++i) {
        if (!steps.goOn(i))
            return failure(Error::Kind::Cancelled);
        keys.add(terms.number(records[i], buffer));
    }
    return keys.sorted();
}

Order sortedByTexts(std::span<const quint32> records,
                    const RecordTerms &terms,
                    Qt::CaseSensitivity sensitivity,
                    Steps &steps)
{
    // Every date was read once before any text is asked for again.
    TextSortKeys keys(sensitivity, [&](quint32 place, QString &buffer) {
        return terms.text(records[place], buffer).value_or(QAnyStringView());
    });
    keys.reserve(records.size());
    QString buffer;
    for (size_t i = 0; i < records.size(); ++i) {
        if (!steps.goOn(i))
            return failure(Error::Kind::Cancelled);
        const std::optional<QAnyStringView> term = terms.text(records[i], buffer);
        if (!term)
            return failure(Error::Kind::Corrupt, static_cast<quint32>(i));
        keys.add(*term);
    }
    return keys.sorted();
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
    Steps steps(progress, records.size());
    Order order = terms.areNumbers() ? sortedByNumbers(records, terms, steps)
                                     : sortedByTexts(records, terms, sensitivity, steps);
    if (order && criteria.descending())
        std::ranges::reverse(*order);
    return order;
}

QString unreadableDateText(qint64 recordNumber)
{
    return filledIn(
        QCoreApplication::translate(context, "Record number %lu has a date that could not be read."),
        {QString::number(recordNumber)});
}

} // namespace tavrin
