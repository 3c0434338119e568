// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/UrlScanner.h"

#include <algorithm>
#include <string_view>

namespace tavrin::text {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t wwwNumber = 7;
constexpr size_t atNumber = 8;

constexpr std::array<QStringView, 9> beginnings{
    u"http://", u"https://", u"uuid://", u"ftp://", u"file://", u"mailto:", u"tel://", u"www.", u"@"};

using Characters = std::array<bool, 128>;

constexpr Characters charactersFor(std::u16string_view others)
{
    Characters allowed{};
    for (char16_t unit = 0; unit < allowed.size(); ++unit)
        allowed[unit] = (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z')
                        || (unit >= u'0' && unit <= u'9');
    for (const char16_t other : others)
        allowed[other] = true;
    return allowed;
}

bool isOfUrl(QChar character, UrlPlace place)
{
    static constexpr Characters freeform = charactersFor(u"_-.!~*'();/?:@&=+$,#%[]");
    static constexpr Characters field = charactersFor(u"-_.!~*'();/?:@&=+$,#%");
    const char16_t unit = character.unicode();
    return unit < freeform.size() && (place == UrlPlace::Field ? field : freeform)[unit];
}

} // namespace

UrlScanner::UrlScanner(QStringView string, const FoundRange &range, UrlPlace place)
    : g_string(string)
    , g_from(range.location)
    , g_start(range.location)
    , g_end(range.end())
    , g_place(place)
{
    for (size_t i = 0; i < beginnings.size(); ++i)
        g_beginnings[i].characters = beginnings[i];
}

/// Looked for once, and again only when the scanner has gone past it.
qsizetype UrlScanner::positionOf(Beginning &beginning)
{
    if (!beginning.isKnown || (beginning.position >= 0 && beginning.position < g_from)) {
        beginning.position = g_string.first(g_end).indexOf(beginning.characters, g_from);
        beginning.isKnown = true;
    }
    return beginning.position;
}

qsizetype UrlScanner::endFrom(qsizetype position) const
{
    while (position < g_end && isOfUrl(g_string[position], g_place))
        ++position;
    return position;
}

FoundRange UrlScanner::without(FoundRange found) const
{
    constexpr QStringView endsOfSentences = u".!?,";
    if (found.length > 0 && endsOfSentences.contains(g_string[found.end() - 1]))
        --found.length;
    return found;
}

FoundUrl UrlScanner::emailAt(qsizetype at) const
{
    qsizetype start = at;
    while (start > g_start && isOfUrl(g_string[start - 1], g_place))
        --start;
    return {without({start, endFrom(at) - start}), false, true};
}

FoundUrl UrlScanner::next()
{
    if (g_from >= g_end)
        return {};
    qsizetype start = -1;
    size_t chosen = 0;
    for (size_t i = 0; i < wwwNumber; ++i) {
        const qsizetype position = positionOf(g_beginnings[i]);
        if (position >= 0 && (start < 0 || position < start)) {
            start = position;
            chosen = i;
        }
    }
    bool needHttp = false;
    if (const qsizetype www = positionOf(g_beginnings[wwwNumber]); www >= 0 && (start < 0 || www < start)) {
        start = www;
        chosen = wwwNumber;
        needHttp = true;
    }
    const qsizetype at = positionOf(g_beginnings[atNumber]);
    FoundUrl found;
    if (at >= 0 && (start < 0 || at < start)) {
        found = emailAt(at);
    } else if (start >= 0) {
        const qsizetype end = endFrom(start + g_beginnings[chosen].characters.size());
        found = {without({start, end - start}), needHttp, false};
    }
    // What was found has at least the sign by which it was.
    g_from = found.range.isEmpty() ? g_end : std::max(found.range.end(), g_from + 1);
    return found;
}

FoundUrl urlRangeInString(QStringView string, const FoundRange &range, UrlPlace place)
{
    return UrlScanner(string, range, place).next();
}

bool isUrl(QStringView text)
{
    const auto isHex = [&text](qsizetype position) {
        constexpr QStringView digits = u"0123456789abcdefABCDEF";
        return position < text.size() && digits.contains(text[position]);
    };
    for (qsizetype percent = text.indexOf(u'%'); percent >= 0; percent = text.indexOf(u'%', percent + 1)) {
        if (!isHex(percent + 1) || !isHex(percent + 2))
            return false;
    }
    return text.count(u'#') <= 1;
}

std::vector<Link> linksIn(QStringView string, UrlPlace place)
{
    constexpr qsizetype shortest = 3;
    std::vector<Link> links;
    UrlScanner scanner(string, {0, string.size()}, place);
    for (FoundUrl found = scanner.next(); !found.range.isEmpty(); found = scanner.next()) {
        const QStringView address = string.sliced(found.range.location, found.range.length);
        if (address.size() < shortest || (found.needMailto && !isPlausibleEmailAddress(address)))
            continue;
        const QString scheme = found.needHttp ? u"http://"_s : found.needMailto ? u"mailto:"_s : QString();
        const QString url = scheme + address.toString();
        if (isUrl(url))
            links.push_back({found.range, url});
    }
    return links;
}

} // namespace tavrin::text
