// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/TextMatcher.h"

#include "text/Utf16Text.h"

#include <algorithm>

namespace tavrin::text {

namespace {

/// The characters outside ASCII whose folded form is ASCII: sharp and long s, the Kelvin sign, ligatures,
/// the Greek question mark and grave accent.
bool foldsToAscii(QChar unit)
{
    switch (unit.unicode()) {
    case 0x00DF:
    case 0x017F:
    case 0x037E:
    case 0x1E9E:
    case 0x1FEF:
    case 0x212A:
        return true;
    default:
        return unit.unicode() >= 0xFB00 && unit.unicode() <= 0xFB06;
    }
}

/// The same of UTF-8, where they are two bytes or begin with these two, or of Latin-1: never wrongly false.
template <typename View>
bool mayFoldToAscii(View text)
{
    char16_t last = 0;
    return std::any_of(text.data(), text.data() + text.size(), [&last](char c) {
        const char16_t byte = codeUnit(c);
        const int pair = last << 8 | byte;
        last = byte;
        return byte == 0xDF || pair == 0xC39F || pair == 0xC5BF || pair == 0xCDBE || pair == 0xE1BA
               || pair == 0xE1BF || pair == 0xE284 || pair == 0xEFAC;
    });
}

bool startsInsidePair(QStringView text, qsizetype index)
{
    return index > 0 && text[index].isLowSurrogate() && text[index - 1].isHighSurrogate();
}

} // namespace

TextMatcher::TextMatcher(QStringView needle, Sameness sameness)
    : g_sameness(sameness)
    , g_folded(folded(needle, sameness))
{
    if (g_folded.isEmpty())
        return;
    if (isAscii(g_folded)) {
        g_ascii.emplace(g_folded, sameness.caseInsensitive);
        g_hasForeignForms =
            std::ranges::any_of(g_folded, [](QChar c) { return QStringView(u"sfiltkSFILTK;`").contains(c); });
    } else if (!g_folded.front().isSurrogate() && !joinsPrevious(g_folded.front().unicode())) {
        g_firstUnit = firstFoldedUnit(g_folded.front().unicode());
    }
}

Match TextMatcher::firstIn(QStringView text, qsizetype from) const
{
    if (isEmpty() || from >= text.size())
        return {};
    const bool textIsAscii = isAscii(text);
    if (!g_ascii)
        return textIsAscii ? Match{} : search(text, from);
    if (!textIsAscii && mayFoldToNeedle(text))
        return search(text, from);
    for (qsizetype i = from; (i = g_ascii->find(text, i)) >= 0; ++i) {
        if (const Match match = asciiMatchAt(text, i))
            return match;
    }
    return {};
}

bool TextMatcher::isIn(QAnyStringView text) const
{
    return text.visit([this](auto view) {
        if constexpr (std::is_same_v<decltype(view), QStringView>)
            return static_cast<bool>(firstIn(view));
        else
            return isInBytes(view);
    });
}

/// Tells what it can without decoding the text.
template <typename View>
bool TextMatcher::isInBytes(View text) const
{
    if (isEmpty())
        return false;
    if (!g_ascii)
        return !isAscii(text) && firstIn(Utf16Text(text).view());
    const auto [start, textIsAscii] = g_ascii->find(QByteArrayView(text.data(), text.size()));
    if (start < 0 && (!g_hasForeignForms || textIsAscii || !mayFoldToAscii(text)))
        return false;
    const qsizetype end = start + g_folded.size();
    // What follows may be a mark, unless it is ASCII.
    if (start >= 0 && (g_sameness.literal || end == text.size() || codeUnit(text.data()[end]) < 0x80))
        return true;
    return static_cast<bool>(firstIn(Utf16Text(text).view()));
}

Match TextMatcher::lastIn(QStringView text) const
{
    if (isEmpty())
        return {};
    const bool isPlain = isAscii(text);
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
        if (isPlain ? !g_ascii : startsInsidePair(text, i))
            continue;
        if (const Match match = isPlain ? asciiMatchAt(text, i) : matchAt(text, i))
            return match;
    }
    return {};
}

Match TextMatcher::atEndOf(QStringView text) const
{
    if (isEmpty())
        return {};
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
        if (startsInsidePair(text, i))
            continue;
        if (const Match match = matchAt(text, i); match && match.start + match.length == text.size())
            return match;
        // Folding shortens nothing but pairs of surrogates.
        if (text.size() - i > 2 * g_folded.size())
            break;
    }
    return {};
}

bool TextMatcher::equals(QStringView text) const
{
    const Match match = atStartOf(text);
    return match && match.length == text.size();
}

/// Whether some other character in the text could stand for a part of the ASCII needle.
bool TextMatcher::mayFoldToNeedle(QStringView text) const
{
    return g_hasForeignForms && std::ranges::any_of(text, foldsToAscii);
}

Match TextMatcher::asciiMatchAt(QStringView text, qsizetype start) const
{
    if (!g_ascii->matchesAt(text, start))
        return {};
    const qsizetype end = start + g_folded.size();
    if (!g_sameness.literal && end < text.size() && joinsPrevious(codePointAt(text, end)))
        return {};
    return {start, g_folded.size()};
}

Match TextMatcher::search(QStringView text, qsizetype from) const
{
    for (qsizetype i = from; i < text.size(); ++i) {
        if (g_firstUnit != anyUnit) {
            const char16_t unit = firstFoldedUnit(text[i].unicode());
            if (unit != g_firstUnit && unit != anyUnit)
                continue;
        }
        if (startsInsidePair(text, i))
            continue;
        if (const Match match = matchAt(text, i))
            return match;
    }
    return {};
}

/// The exact rule: characters from `start` on, folded one by one, are the needle.
Match TextMatcher::matchAt(QStringView text, qsizetype start) const
{
    if (isEmpty())
        return {};
    qsizetype matched = 0;
    for (qsizetype i = start; i < text.size();) {
        const qsizetype end = characterEnd(text, i, g_sameness.literal);
        if (!foldsInto(text.sliced(i, end - i), matched))
            return {};
        i = end;
        if (matched == g_folded.size())
            return {start, i - start};
    }
    return {};
}

/// Whether the folded character is what the needle has from `matched` on; `matched` moves behind it.
bool TextMatcher::foldsInto(QStringView character, qsizetype &matched) const
{
    const QStringView rest = QStringView(g_folded).sliced(matched);
    const char16_t unit = character.front().unicode();
    if (character.size() == 1 && unit < 0x80) {
        const QChar folding(g_sameness.caseInsensitive && unit >= u'A' && unit <= u'Z'
                                ? static_cast<char16_t>(unit | 0x20)
                                : unit);
        ++matched;
        return rest.front() == folding;
    }
    const QString form = folded(character, g_sameness);
    matched += form.size();
    return rest.startsWith(form);
}

} // namespace tavrin::text
