// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/TextSieve.h"

#include <algorithm>
#include <string_view>

namespace tavrin::text {

namespace {

/// Where a part that is shorter than this is found in too many texts.
constexpr qsizetype shortPart = 3;

bool isAsciiUnit(QChar unit)
{
    return unit.unicode() < 0x80;
}

/// Stands in the bytes as it is, if not as another character: no entity, no line end that a reader changes.
bool isPlain(QChar unit)
{
    return unit >= u' ' && unit.unicode() < 0x7F && !QStringView(u"&<>\"'").contains(unit);
}

/// The UTF-8, or the start of it, of the characters that may stand for this one and its neighbour.
std::vector<std::string> foreignOf(QChar unit, QChar next)
{
    const char16_t letter = unit.toLower().unicode();
    const char16_t nextLetter = next.toLower().unicode();
    std::vector<std::string> forms;
    if (letter == u's')
        forms.emplace_back("\xC5\xBF");
    if (letter == u's' && nextLetter == u's')
        forms.insert(forms.end(), {"\xC3\x9F", "\xE1\xBA\x9E"});
    if (letter == u'k')
        forms.emplace_back("\xE2\x84\xAA");
    if (letter == u';')
        forms.emplace_back("\xCD\xBE");
    if (letter == u'`')
        forms.emplace_back("\xE1\xBF\xAF");
    const bool isLigature = (letter == u'f' && QStringView(u"fil").contains(QChar(nextLetter)))
                            || (letter == u's' && nextLetter == u't');
    if (isLigature)
        forms.emplace_back("\xEF\xAC");
    return forms;
}

struct Part
{
    qsizetype start = 0;
    qsizetype length = 0;
};

/// The longest run of units that are fit, the first of those of one length.
template <typename IsFit>
Part longestRun(QStringView text, IsFit isFit)
{
    Part longest;
    Part run;
    for (qsizetype i = 0; i < text.size(); ++i) {
        run = isFit(i) ? Part{run.start, run.length + 1} : Part{i + 1, 0};
        if (run.length > longest.length)
            longest = run;
    }
    return longest;
}

} // namespace

TextSieve::TextSieve(QStringView needle, Sameness sameness)
{
    const QString form = folded(needle, sameness);
    const auto unit = [&form](qsizetype i) { return i >= 0 && i < form.size() ? form[i] : QChar(u' '); };
    // Beside what is not ASCII, an ASCII unit may come from the same character.
    const auto standsAlone = [&](qsizetype i) {
        return isPlain(unit(i)) && isAsciiUnit(unit(i - 1)) && isAsciiUnit(unit(i + 1));
    };
    const auto isItself = [&](qsizetype i) {
        return standsAlone(i) && foreignOf(unit(i), unit(i + 1)).empty()
               && std::ranges::none_of(foreignOf(unit(i - 1), unit(i)),
                                       [](const std::string &foreign) { return foreign == "\xEF\xAC"; });
    };
    const Part whole = longestRun(form, standsAlone);
    Part part = longestRun(form, isItself);
    if (part.length < std::min(shortPart, whole.length)) {
        part = whole;
        for (qsizetype i = part.start - 1; i < part.start + part.length; ++i)
            std::ranges::move(foreignOf(unit(i), unit(i + 1)), std::back_inserter(g_foreign));
    }
    if (part.length > 0)
        g_searches.emplace_back(QStringView(form).sliced(part.start, part.length), sameness.caseInsensitive);
    else if (std::ranges::all_of(form, isAsciiUnit))
        g_passesAll = !form.isEmpty();
    else
        g_foreign = {std::string()};
}

bool TextSieve::hasForeign(QByteArrayView bytes) const
{
    const std::string_view text(bytes.data(), static_cast<size_t>(bytes.size()));
    return std::ranges::any_of(g_foreign,
                               [&](const std::string &foreign) { return text.find(foreign) != text.npos; });
}

} // namespace tavrin::text
