// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "text/AsciiSearch.h"
#include "text/Folding.h"

#include <string>
#include <vector>

namespace tavrin::text {

/// Sorts out, at the speed of memory, the bytes in which a needle is not.
///
/// The bytes are the UTF-8 of texts, in which & < > " ' may stand as entities, among other things that are no
/// text. What passes is to be looked at exactly; what does not pass has no match.
class TextSieve
{
public:
    TextSieve(QStringView needle, Sameness sameness);

    /// isText(qsizetype place) says whether a place belongs to a text; places that do not are passed over.
    template <typename IsText>
    bool passes(QByteArrayView bytes, IsText isText) const
    {
        if (g_passesAll)
            return true;
        for (const AsciiSearch &search : g_searches) {
            for (qsizetype from = 0;;) {
                const qsizetype place = search.find(bytes.sliced(from)).place;
                if (place < 0)
                    break;
                if (isText(from + place))
                    return true;
                from += place + 1;
            }
        }
        return !g_foreign.empty() && !isAscii(QUtf8StringView(bytes)) && hasForeign(bytes);
    }

private:
    bool hasForeign(QByteArrayView bytes) const;

    /// At most one: a part of the needle that stands in the bytes wherever the needle is, unless one of the
    /// foreign pieces of UTF-8 stands for it.
    std::vector<AsciiSearch> g_searches;
    /// An empty one is in whatever is not ASCII.
    std::vector<std::string> g_foreign;
    bool g_passesAll = false;
};

} // namespace tavrin::text
