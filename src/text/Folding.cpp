// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/Folding.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <type_traits>
#include <vector>

namespace tavrin::text {

namespace {

constexpr char16_t zeroWidthNonJoiner = 0x200C;

struct LongFold
{
    char32_t codePoint;
    QStringView folded;
};

// The characters whose folded form is longer, besides those that decompose first. QChar folds one to one.
constexpr std::array<LongFold, 18> longFolds{{
    {0x00DF, u"ss"},
    {0x0130, u"i\u0307"},
    {0x0149, u"\u02BCn"},
    {0x0587, u"\u0565\u0582"},
    {0x1E9A, u"a\u02BE"},
    {0x1E9E, u"ss"},
    {0xFB00, u"ff"},
    {0xFB01, u"fi"},
    {0xFB02, u"fl"},
    {0xFB03, u"ffi"},
    {0xFB04, u"ffl"},
    {0xFB05, u"st"},
    {0xFB06, u"st"},
    {0xFB13, u"\u0574\u0576"},
    {0xFB14, u"\u0574\u0565"},
    {0xFB15, u"\u0574\u056B"},
    {0xFB16, u"\u057E\u0576"},
    {0xFB17, u"\u0574\u056D"},
}};

void appendCodePoint(QString &text, char32_t codePoint)
{
    if (codePoint > 0xFFFF) {
        text += QChar(QChar::highSurrogate(codePoint));
        text += QChar(QChar::lowSurrogate(codePoint));
    } else {
        text += QChar(static_cast<char16_t>(codePoint));
    }
}

void appendCaseFolded(QString &text, char32_t codePoint)
{
    const auto found =
        std::ranges::lower_bound(longFolds, codePoint, std::ranges::less(), &LongFold::codePoint);
    if (found != longFolds.end() && found->codePoint == codePoint)
        text += found->folded;
    else
        appendCodePoint(text, QChar::toCaseFolded(codePoint));
}

QString caseFolded(QStringView text)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size();) {
        const char32_t codePoint = codePointAt(text, i);
        appendCaseFolded(result, codePoint);
        i += unitsOf(codePoint);
    }
    return result;
}

std::vector<char16_t> makeFirstFoldedUnits()
{
    std::vector<char16_t> units(0x10000);
    for (char32_t unit = 0; unit < 0x10000; ++unit) {
        const QChar character(static_cast<char16_t>(unit));
        if (character.isSurrogate())
            continue;
        // Most characters fold to themselves, so they need not be spelt out.
        const bool isSimple = character.decompositionTag() == QChar::NoDecomposition && unit < 0xAC00;
        QString fold;
        if (isSimple)
            appendCaseFolded(fold, unit);
        else
            fold = folded(QStringView(&character, 1), {});
        units[unit] = fold.front().isSurrogate() ? anyUnit : fold.front().unicode();
    }
    return units;
}

template <typename Unit>
bool areAscii(const Unit *unit, qsizetype size)
{
    const Unit *const end = unit + size;
    constexpr quint64 beyond = sizeof(Unit) == 1 ? 0x8080808080808080 : 0xFF80FF80FF80FF80;
    constexpr qsizetype step = 4 * sizeof(quint64) / sizeof(Unit);
    for (; end - unit >= step; unit += step) {
        std::array<quint64, 4> words{};
        std::memcpy(words.data(), unit, sizeof words);
        if ((words[0] | words[1] | words[2] | words[3]) & beyond)
            return false;
    }
    return std::all_of(unit, end, [](Unit c) { return static_cast<std::make_unsigned_t<Unit>>(c) < 0x80; });
}

} // namespace

bool isAscii(QStringView text)
{
    return areAscii(text.utf16(), text.size());
}

bool isAscii(QUtf8StringView text)
{
    return areAscii(text.data(), text.size());
}

bool isAscii(QLatin1StringView text)
{
    return areAscii(text.data(), text.size());
}

bool joinsPrevious(char32_t codePoint)
{
    if (codePoint < 0x300)
        return false;
    const QChar::Category category = QChar::category(codePoint);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing
           || codePoint == zeroWidthNonJoiner || (codePoint >= 0x1F3FB && codePoint <= 0x1F3FF);
}

char32_t codePointAt(QStringView text, qsizetype index)
{
    const QChar unit = text[index];
    if (unit.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(unit, text[index + 1]);
    return unit.unicode();
}

qsizetype characterEnd(QStringView text, qsizetype start, bool literal)
{
    qsizetype end = start + unitsOf(codePointAt(text, start));
    while (!literal && end < text.size()) {
        const char32_t next = codePointAt(text, end);
        if (!joinsPrevious(next))
            break;
        end += unitsOf(next);
    }
    return end;
}

QString folded(QStringView text, Sameness sameness)
{
    if (isAscii(text))
        return sameness.caseInsensitive ? text.toString().toLower() : text.toString();
    QString result = text.toString();
    if (!sameness.literal)
        result = result.normalized(QString::NormalizationForm_D);
    if (sameness.caseInsensitive) {
        result = caseFolded(result);
        if (!sameness.literal)
            result = result.normalized(QString::NormalizationForm_D);
    }
    return result;
}

char16_t firstFoldedUnit(char16_t unit)
{
    static const std::vector<char16_t> units = makeFirstFoldedUnits();
    return units[unit];
}

} // namespace tavrin::text
