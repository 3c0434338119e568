// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "text/LinkScanner.h"

#include <array>
#include <optional>
#include <vector>

namespace tavrin::text {

/// Which characters an address may have: in a field, no square brackets.
enum class UrlPlace : quint8 { FreeformText, Field };

/// An address that stands in a text.
struct FoundUrl
{
    FoundRange range;
    bool needHttp = false;   ///< It begins with "www." and lacks its scheme.
    bool needMailto = false; ///< It is an e-mail address.
};

/// Finds the addresses of a text one after the other. All of a text takes time in proportion to its length.
class UrlScanner
{
public:
    /// `string` outlives the scanner.
    UrlScanner(QStringView string, const FoundRange &range, UrlPlace place);

    /// The next one behind the last; a range of length 0 when there is none.
    FoundUrl next();

private:
    struct Beginning
    {
        QStringView characters;
        qsizetype position = 0; ///< Where it stands next, if `isKnown`; -1: nowhere.
        bool isKnown = false;
    };

    qsizetype positionOf(Beginning &beginning);
    FoundUrl emailAt(qsizetype at) const;
    qsizetype endFrom(qsizetype position) const;
    FoundRange without(FoundRange found) const;

    QStringView g_string;
    qsizetype g_from;
    qsizetype g_start;
    qsizetype g_end;
    UrlPlace g_place;
    std::array<Beginning, 9> g_beginnings;
};

/// The first address in the range; of length 0 when there is none.
FoundUrl
urlRangeInString(QStringView string, const FoundRange &range, UrlPlace place = UrlPlace::FreeformText);

/// A part of a text that leads somewhere.
struct Link
{
    FoundRange range;
    QString url;

    friend bool operator==(const Link &, const Link &) = default;
};

/// All that is worth being a link: long enough, plausible, and a URL.
std::vector<Link> linksIn(QStringView string, UrlPlace place = UrlPlace::FreeformText);

/// Whether a text can be taken for a URL, given that it has the characters of one.
bool isUrl(QStringView text);

} // namespace tavrin::text
