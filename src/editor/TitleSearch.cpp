// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/TitleSearch.h"

#include "base/SharedProgress.h"
#include "document/DatafileDocument.h"
#include "search/DatafileRows.h"
#include "search/RecordWalk.h"
#include "text/TextMatcher.h"
#include "text/TextSieve.h"

namespace tavrin {

using namespace Qt::StringLiterals;

struct TitleSearch::Search
{
    Search(const DatafileDocument &document, const QString &start)
        : row(document, RecordRowSnapshot::Which::Selected)
        , field(document.datafileSettings().titleField())
        , byText(document.datafileSettings().titleField() == "Text"_L1)
        , matcher(start, text::Sameness{})
        , sieve(start, text::Sameness{})
    {}

    void run()
    {
        const auto look = [this](qint64 record, const RecordView &view) {
            // Most records are passed over without decoding anything of them.
            if (!view.mayHold(sieve))
                return true;
            const TextView title = byText ? view.textString() : view.fieldValue(field);
            if (!matcher.atStartOf(title.toString()))
                return true;
            found = record;
            return false;
        };
        if (row.count() > 0)
            RecordWalk(row, row.count(), progress).visit(0, row.count() - 1, look);
    }

    RecordRowSnapshot row;
    FieldKey field;
    bool byText;
    text::TextMatcher matcher;
    text::TextSieve sieve;
    SharedProgress progress;
    qint64 found = -1;
};

TitleSearch::TitleSearch(const DatafileDocument &document) : g_document(document) {}

TitleSearch::~TitleSearch()
{
    cancel();
}

void TitleSearch::find(const QString &start)
{
    g_start = start;
    // The one under way ends soon, and then this one has its turn.
    if (g_search)
        g_search->progress.cancel();
    else
        begin();
}

void TitleSearch::cancel()
{
    g_start.clear();
    if (g_search)
        g_search->progress.cancel();
}

void TitleSearch::begin()
{
    g_search = std::make_shared<Search>(g_document, g_start);
    g_work.begin([search = g_search] { search->run(); }, [this, search = g_search] { end(*search); });
}

void TitleSearch::end(const Search &search)
{
    g_search.reset();
    if (!search.progress.isCancelled())
        Q_EMIT found(search.found);
    else if (!g_start.isEmpty())
        begin();
}

} // namespace tavrin
