// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/Comparison.h"

#include "text/Folding.h"
#include "text/Utf16Text.h"

#include <array>
#include <cstring>
#include <vector>

namespace tavrin::text {

namespace {

using Key = std::string;

char byte(char32_t value)
{
    return static_cast<char>(static_cast<unsigned char>(value));
}

// A key is UTF-8, in which bytes order as code points do, save that ASCII moves up by one: zero gets free,
// and the leading bytes of longer forms, which begin at 0xC2, stay above.
void appendCodePoint(Key &key, char32_t codePoint)
{
    if (codePoint < 0x80) {
        key += byte(codePoint + 1);
    } else if (codePoint < 0x800) {
        key += byte(0xC0 | codePoint >> 6);
        key += byte(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        key += byte(0xE0 | codePoint >> 12);
        key += byte(0x80 | (codePoint >> 6 & 0x3F));
        key += byte(0x80 | (codePoint & 0x3F));
    } else {
        key += byte(0xF0 | codePoint >> 18);
        key += byte(0x80 | (codePoint >> 12 & 0x3F));
        key += byte(0x80 | (codePoint >> 6 & 0x3F));
        key += byte(0x80 | (codePoint & 0x3F));
    }
}

void appendFolded(Key &key, QStringView text, Sameness sameness)
{
    const QString form = folded(text, sameness);
    for (qsizetype i = 0; i < form.size();) {
        const char32_t codePoint = codePointAt(form, i);
        appendCodePoint(key, codePoint);
        i += unitsOf(codePoint);
    }
}

/// The keys of single letters in the scripts of Europe, which need no folding of the whole text.
class LetterKeys
{
public:
    static constexpr char16_t end = 0x0530;

    explicit LetterKeys(Sameness sameness) : g_places(end)
    {
        for (char16_t unit = 0; unit < end; ++unit) {
            const QChar letter(unit);
            g_places[unit].start = static_cast<quint16>(g_bytes.size());
            if (!joinsPrevious(unit))
                appendFolded(g_bytes, QStringView(&letter, 1), sameness);
            g_places[unit].length = static_cast<quint16>(g_bytes.size() - g_places[unit].start);
        }
    }

    /// False when the unit has no key of its own.
    bool appendKey(Key &key, char16_t unit) const
    {
        if (unit >= end || g_places[unit].length == 0)
            return false;
        key.append(g_bytes, g_places[unit].start, g_places[unit].length);
        return true;
    }

private:
    struct Place
    {
        quint16 start = 0;
        quint16 length = 0;
    };

    Key g_bytes;
    std::vector<Place> g_places;
};

char asciiKey(char16_t unit, bool caseInsensitive)
{
    const bool isCapital = caseInsensitive && unit >= u'A' && unit <= u'Z';
    return byte((isCapital ? unit | 0x20U : unit) + 1U);
}

/// The keys of eight ASCII characters at once. No byte carries into the next.
quint64 asciiKeys(quint64 characters, bool caseInsensitive)
{
    constexpr quint64 each = 0x0101010101010101;
    if (caseInsensitive) {
        const quint64 fromA = characters + each * (0x80 - 'A');
        const quint64 behindZ = characters + each * (0x80 - 'Z' - 1);
        characters |= (fromA & ~behindZ & each * 0x80) >> 2;
    }
    return characters + each;
}

template <typename View>
void appendAscii(Key &key, View text, bool caseInsensitive)
{
    const auto size = static_cast<size_t>(text.size());
    const size_t start = key.size();
    key.resize(start + size);
    char *const bytes = key.data() + start;
    const auto *const units = text.data();
    size_t i = 0;
    if constexpr (sizeof *units == 1) {
        for (quint64 word = 0; i + sizeof word <= size; i += sizeof word) {
            std::memcpy(&word, units + i, sizeof word);
            word = asciiKeys(word, caseInsensitive);
            std::memcpy(bytes + i, &word, sizeof word);
        }
    }
    for (; i < size; ++i)
        bytes[i] = asciiKey(codeUnit(units[i]), caseInsensitive);
}

void appendOther(Key &key, QStringView text, bool caseInsensitive)
{
    static const std::array<LetterKeys, 2> letterKeys{LetterKeys({.caseInsensitive = false}),
                                                      LetterKeys({.caseInsensitive = true})};
    const LetterKeys &letters = letterKeys[caseInsensitive ? 1 : 0];
    const size_t start = key.size();
    for (const QChar unit : text) {
        if (!letters.appendKey(key, unit.unicode())) {
            // Marks may change places with those of the letter before: only the whole text tells.
            key.resize(start);
            appendFolded(key, text, {.caseInsensitive = caseInsensitive});
            return;
        }
    }
}

} // namespace

void appendComparisonKey(Key &key, QAnyStringView text, Qt::CaseSensitivity sensitivity)
{
    const bool caseInsensitive = sensitivity == Qt::CaseInsensitive;
    text.visit([&](auto view) {
        if (isAscii(view))
            appendAscii(key, view, caseInsensitive);
        else
            appendOther(key, Utf16Text(view).view(), caseInsensitive);
    });
}

Key comparisonKey(QAnyStringView text, Qt::CaseSensitivity sensitivity)
{
    Key key;
    appendComparisonKey(key, text, sensitivity);
    return key;
}

std::strong_ordering compare(QAnyStringView left, QAnyStringView right, Qt::CaseSensitivity sensitivity)
{
    return comparisonKey(left, sensitivity) <=> comparisonKey(right, sensitivity);
}

} // namespace tavrin::text
