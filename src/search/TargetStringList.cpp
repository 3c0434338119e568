// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/TargetStringList.h"

namespace tavrin {

namespace {

QStringList classicKeys(QStringView text)
{
    constexpr QStringView separator = u"&&";
    QStringList keys;
    for (qsizetype end = 0; (end = text.indexOf(separator)) >= 0; text = text.sliced(end + separator.size()))
        keys.append(text.first(end).toString());
    if (!text.isEmpty())
        keys.append(text.toString());
    return keys;
}

qsizetype endOfWord(QStringView text)
{
    // A quote ends only the last word: in one that a blank follows, it is a part of it.
    for (const QChar end : {u' ', u'"'}) {
        if (const qsizetype at = text.indexOf(end); at >= 0)
            return at;
    }
    return text.size();
}

QStringList internetKeys(QStringView text)
{
    QStringList keys;
    while (!text.isEmpty()) {
        if (text.front() == u' ') {
            text = text.sliced(1);
        } else if (text.front() == u'"') {
            const qsizetype quote = text.indexOf(u'"', 1);
            const qsizetype end = quote < 0 ? text.size() : quote;
            keys.append(text.sliced(1, end - 1).toString());
            text = text.sliced(quote < 0 ? end : end + 1);
        } else {
            const qsizetype end = endOfWord(text);
            keys.append(text.first(end).toString());
            text = text.sliced(end);
        }
    }
    return keys;
}

} // namespace

QStringList targetStringList(QStringView findText, FindEntryStyle style)
{
    return style == FindEntryStyle::Internet ? internetKeys(findText) : classicKeys(findText);
}

} // namespace tavrin
