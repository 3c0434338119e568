// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/ChangeSequence.h"

#include <algorithm>
#include <utility>

namespace tavrin {

SteppedChange &ChangeSequence::at(size_t place) const
{
    return *g_changes[g_areMade ? g_changes.size() - 1 - place : place];
}

size_t ChangeSequence::partCount() const
{
    size_t count = 0;
    for (const auto &change : g_changes)
        count += change->partCount();
    return count;
}

size_t ChangeSequence::reversiblePartCount() const
{
    return g_changes.empty() ? 0 : at(0).reversiblePartCount();
}

void ChangeSequence::begin(DatafileDocument &document)
{
    g_place = g_start = 0;
    if (!g_changes.empty())
        at(0).begin(document);
}

/// What the next one finds depends on what this one has concluded.
void ChangeSequence::goOn(DatafileDocument &document)
{
    g_start += at(g_place).partCount();
    at(g_place).conclude(document);
    at(++g_place).begin(document);
}

void ChangeSequence::makeParts(DatafileDocument &document, size_t from, size_t to)
{
    while (from < to) {
        const size_t end = g_start + at(g_place).partCount();
        if (from == end) {
            goOn(document);
            continue;
        }
        const size_t next = std::min(to, end);
        at(g_place).makeParts(document, from - g_start, next - g_start);
        from = next;
    }
}

void ChangeSequence::unmakeParts(DatafileDocument &document, size_t from, size_t to)
{
    Q_ASSERT(g_place == 0);
    at(0).unmakeParts(document, from, to);
}

void ChangeSequence::conclude(DatafileDocument &document)
{
    while (!isLast())
        goOn(document);
    if (!g_changes.empty())
        at(g_place).conclude(document);
    if (std::exchange(g_areMade, !g_areMade))
        didTakeBack(document);
    else
        didMake(document);
}

} // namespace tavrin
