// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/SeparatedLine.h"

#include <algorithm>
#include <iterator>

namespace tavrin {

using namespace SeparatorToken;

namespace {

constexpr quint8 untaken = 0xff;

} // namespace

const std::vector<SeparatedLineCutter::Field> &SeparatedLineCutter::cut(QByteArrayView line,
                                                                        const std::vector<qsizetype> &marked)
{
    g_line = line;
    g_tokens.clear();
    g_fields.clear();
    g_own.clear();
    g_position = 0;
    g_next = 0;
    g_isOpened = false;
    g_lastOf = {};
    tokenise(marked);
    cutTokens();
    return g_fields;
}

void SeparatedLineCutter::tokenise(const std::vector<qsizetype> &marked)
{
    for (size_t first = 0; first < marked.size();) {
        size_t last = first;
        while (last + 1 < marked.size() && marked[last + 1] == marked[last] + 1)
            ++last;
        tokeniseRun(marked[first], static_cast<qsizetype>(last - first + 1));
        first = last + 1;
    }
}

void SeparatedLineCutter::addToken(qsizetype start, qsizetype size, Kind kind)
{
    g_tokens.push_back({start, size, kind});
    g_lastOf[kind] = g_tokens.size();
}

// Of quotes and separators that stand side by side.
void SeparatedLineCutter::tokeniseRun(qsizetype start, qsizetype size)
{
    const auto kindAt = [&](qsizetype at) { return g_line[at] == '"' ? Quote : Separator; };
    const Kind first = kindAt(start);
    const Kind second = size == 2 ? kindAt(start + 1) : Separator;
    if (size == 1) {
        addToken(start, 1, first);
    } else if (size > 2) {
        tokeniseLongRun(start, size);
    } else if (first == Separator && second == Separator) {
        addToken(start, 1, Separator);
        addToken(start + 1, 1, Separator);
    } else {
        addToken(start,
                 2,
                 first == Separator    ? SeparatorQuote
                 : second == Separator ? QuoteSeparator
                                       : DoubledQuote);
    }
}

// The passes in their order, each from left to right.
void SeparatedLineCutter::tokeniseLongRun(qsizetype start, qsizetype size)
{
    struct Pass
    {
        Kind kind;
        QByteArrayView pattern; ///< With ',' for the separator.
    };
    static constexpr std::array<Pass, 4> passes = {{{QuoteSeparatorQuote, "\",\""},
                                                    {QuoteSeparator, "\","},
                                                    {SeparatorQuote, ",\""},
                                                    {DoubledQuote, "\"\""}}};
    const auto isQuote = [&](qsizetype at) { return g_line[start + at] == '"'; };
    g_run.assign(static_cast<size_t>(size), untaken);
    for (const auto &[kind, pattern] : passes) {
        const auto matches = [&, pattern = pattern](qsizetype at) {
            for (qsizetype i = 0; i < pattern.size(); ++i) {
                if (g_run[static_cast<size_t>(at + i)] != untaken || isQuote(at + i) != (pattern[i] == '"'))
                    return false;
            }
            return true;
        };
        for (qsizetype at = 0; at + pattern.size() <= size;) {
            if (!matches(at)) {
                ++at;
                continue;
            }
            std::fill_n(g_run.begin() + at, pattern.size(), kind);
            at += pattern.size();
        }
    }
    for (qsizetype at = 0; at < size;) {
        const quint8 taken = g_run[static_cast<size_t>(at)];
        const qsizetype length = taken == untaken ? 1 : passes[taken].pattern.size();
        const Kind single = isQuote(at) ? Quote : Separator;
        addToken(start + at, length, taken == untaken ? single : static_cast<Kind>(taken));
        at += length;
    }
}

void SeparatedLineCutter::cutTokens()
{
    bool hasReachedEnd = g_line.isEmpty();
    while (!hasReachedEnd) {
        const qsizetype before = g_position;
        if (!cutStep())
            cutPlain();
        hasReachedEnd = g_position == g_line.size();
        if (g_position == before)
            return;
    }
    if (g_line.isEmpty()) {
        g_fields.push_back({});
        return;
    }
    if (g_tokens.empty())
        return;
    const Token &last = g_tokens.back();
    const bool endsLine = last.start + last.size == g_line.size();
    if (endsLine && (last.kind == Separator || last.kind == QuoteSeparator))
        g_fields.push_back({g_line.size(), 0});
}

// The first token of one of the kinds from the position on; how many there are when there is none.
template <Kind... kinds>
size_t SeparatedLineCutter::nextOf() const
{
    // Most searches that find nothing are answered by this, so that a long line costs no more per byte.
    if (((g_lastOf[kinds] <= g_next) && ...))
        return g_tokens.size();
    for (size_t token = g_next;; ++token) {
        if (((g_tokens[token].kind == kinds) || ...))
            return token;
    }
}

// False when the field is a plain one.
bool SeparatedLineCutter::cutStep()
{
    const bool isAtStart = g_position == 0 && !g_tokens.empty() && g_tokens.front().start == 0;
    if (isAtStart && g_tokens.front().kind == Quote)
        return cutFirstQuoted();
    if (isAtStart && g_tokens.front().kind == Separator) {
        emitUpTo(0, 0);
        moveBehind(0);
        g_isOpened = false;
        return true;
    }
    return g_isOpened && cutOpened();
}

bool SeparatedLineCutter::cutFirstQuoted()
{
    g_position = 1;
    g_next = 1;
    const size_t end = nextOf<QuoteSeparatorQuote, QuoteSeparator>();
    if (end == g_tokens.size()) {
        g_fields.push_back({0, 0});
        g_isOpened = true;
        return true;
    }
    emitUpTo(g_tokens[end].start, end);
    moveBehind(end);
    g_isOpened = g_tokens[end].kind == QuoteSeparatorQuote;
    return true;
}

bool SeparatedLineCutter::cutOpened()
{
    size_t end = nextOf<QuoteSeparatorQuote, QuoteSeparator>();
    if (end == g_tokens.size())
        end = nextOf<Quote>();
    if (end == g_tokens.size()) {
        g_fields.push_back({g_position, 0});
        return true;
    }
    emitUpTo(g_tokens[end].start, end);
    moveBehind(end);
    g_isOpened = g_tokens[end].kind == QuoteSeparatorQuote;
    return true;
}

bool SeparatedLineCutter::cutPlain()
{
    if (nextOf<Separator>() == g_tokens.size()) {
        emitUpTo(g_line.size(), g_tokens.size());
        g_position = g_line.size();
        return true;
    }
    const size_t end = nextOf<Separator, SeparatorQuote>();
    emitUpTo(g_tokens[end].start, end);
    moveBehind(end);
    g_isOpened = g_tokens[end].kind == SeparatorQuote;
    return true;
}

void SeparatedLineCutter::moveBehind(size_t token)
{
    g_position = g_tokens[token].start + g_tokens[token].size;
    g_next = token + 1;
}

void SeparatedLineCutter::emitUpTo(qsizetype end, size_t endToken)
{
    Field field{g_position, end - g_position};
    for (size_t token = g_next; token < endToken && !field.isOwn; ++token) {
        field.hasDoubled = field.hasDoubled || g_tokens[token].kind == DoubledQuote;
        field.isOwn = g_tokens[token].kind < DoubledQuote;
    }
    if (field.isOwn) {
        field.start = std::ssize(g_own);
        write(end, endToken);
        field.size = std::ssize(g_own) - field.start;
    }
    g_fields.push_back(field);
}

// The field with its tokens as they stand, but for doubled quotes.
void SeparatedLineCutter::write(qsizetype end, size_t endToken)
{
    const auto append = [this](QByteArrayView bytes) { g_own.append(bytes.begin(), bytes.end()); };
    qsizetype at = g_position;
    for (size_t token = g_next; token < endToken; ++token) {
        const auto &[start, size, kind] = g_tokens[token];
        if (kind == Quote || kind == Separator)
            continue;
        append(g_line.sliced(at, start - at));
        append(kind == DoubledQuote ? QByteArrayView("\"") : texts[kind]);
        at = start + size;
    }
    append(g_line.sliced(at, end - at));
}

bool mayHoldTokens(QByteArrayView text)
{
    // A token of which a part stood in the text already has at least one of these from there. Every one has
    // a Q, which is rare.
    struct Part
    {
        QByteArrayView bytes;
        qsizetype placeOfQ;
    };
    static constexpr std::array<Part, 4> parts = {{{"=QCQ=", 1}, {"QC$$$", 0}, {"CQ$$$", 1}, {"DQ###", 1}}};
    for (qsizetype at = text.indexOf('Q'); at >= 0; at = text.indexOf('Q', at + 1)) {
        for (const auto &[bytes, placeOfQ] : parts) {
            if (at >= placeOfQ && text.sliced(at - placeOfQ).startsWith(bytes))
                return true;
        }
    }
    return false;
}

} // namespace tavrin
