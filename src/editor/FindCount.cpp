// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/FindCount.h"

#include "base/FilledIn.h"
#include "document/DatafileDocument.h"
#include "search/DatafileRows.h"
#include "search/RecordsHolding.h"

#include <QLocale>

#include <utility>

namespace tavrin {

struct FindCount::Counting
{
    Counting(std::shared_ptr<const RecordRowSnapshot> searched, RecordSearch how)
        : row(std::move(searched))
        , search(std::move(how))
    {}

    std::shared_ptr<const RecordRowSnapshot> row;
    RecordSearch search;
    std::vector<SearchKey> keys;
    SharedProgress progress;
    qint64 found = 0;
};

FindCount::FindCount(const DatafileDocument &document) : g_document(document)
{
    using namespace std::chrono_literals;
    g_pause.setSingleShot(true);
    g_pause.setInterval(200ms);
    connect(&g_pause, &QTimer::timeout, this, &FindCount::begin);
    connect(&document, &DatafileDocument::changed, this, [this] {
        g_row.reset();
        if (!g_keys.isEmpty())
            g_pause.start();
    });
}

FindCount::~FindCount()
{
    if (g_counting)
        g_counting->progress.cancel();
}

void FindCount::count(const QStringList &keys, KeyOptions options, bool asSelecting)
{
    g_keys = keys;
    g_options = options;
    g_asSelecting = asSelecting;
    g_options.literal = asSelecting;
    if (g_counting)
        g_counting->progress.cancel();
    if (!keys.isEmpty()) {
        g_pause.start();
        return;
    }
    g_pause.stop();
    g_row.reset(); // Some bytes for each record, which nobody needs any more.
    Q_EMIT counted({});
}

void FindCount::begin()
{
    // The one under way has been cancelled: it ends soon, and then this one has its turn.
    if (g_counting) {
        g_counting->progress.cancel();
        return;
    }
    if (!g_row)
        g_row = std::make_shared<RecordRowSnapshot>(g_document, RecordRowSnapshot::Which::Selected);
    const HiddenFields hidden = g_asSelecting ? HiddenFields::Searched : HiddenFields::PassedOver;
    g_counting = std::make_shared<Counting>(
        g_row, RecordSearch(g_document.datafileSettings(), FieldsToSearchIn::everything, hidden));
    for (const QString &key : g_keys)
        g_counting->keys.emplace_back(key, g_options);
    g_work.begin(
        [counting = g_counting] {
            const auto found =
                recordsHolding(*counting->row, counting->search, counting->keys, counting->progress);
            counting->found = found ? std::ssize(*found) : 0;
        },
        [this, counting = g_counting] { end(*counting); });
}

void FindCount::end(const Counting &counting)
{
    g_counting.reset();
    if (counting.progress.isCancelled()) {
        if (!g_keys.isEmpty() && !g_pause.isActive())
            begin();
        return;
    }
    const QLocale locale;
    Q_EMIT counted(filledIn(tr("%@ of %@ records"),
                            {locale.toString(counting.found), locale.toString(counting.row->count())}));
}

} // namespace tavrin
