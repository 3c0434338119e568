// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/Names.h"

#include "text/TextBlocks.h"

#include <algorithm>

namespace tavrin::text {

using namespace Qt::StringLiterals;

namespace {

bool removeLeadingTitle(QString &name, const QStringList &titles)
{
    const auto leads = [&name](const QString &title) {
        return name.size() > title.size() && name.startsWith(title) && name[title.size()] == u' ';
    };
    const auto title = std::ranges::find_if(titles, leads);
    if (title == titles.end())
        return false;
    name.remove(0, title->size() + 1);
    return true;
}

bool removeTrailingTitles(QString &name, const QStringList &titles)
{
    bool removed = false;
    for (const QString &title : titles) {
        const qsizetype space = name.size() - title.size() - 1;
        if (space >= 0 && name[space] == u' ' && name.endsWith(title)) {
            name.truncate(space);
            removed = true;
        }
    }
    return removed;
}

} // namespace

QStringList defaultTitleList()
{
    return {u"D.D.S."_s, u"DDS"_s,  u"D.D."_s, u"DD"_s,   u"Dr."_s, u"Fr."_s,   u"IV"_s,
            u"III"_s,    u"II"_s,   u"I"_s,    u"J.P."_s, u"JP"_s,  u"Jr."_s,   u"M.D."_s,
            u"MD"_s,     u"Miss"_s, u"Mr."_s,  u"Mrs."_s, u"Ms."_s, u"Ph.D."_s, u"PhD"_s,
            u"Rev."_s,   u"R.N."_s, u"RN"_s,   u"Sr."_s};
}

QString nameKey(QStringView line, const QStringList &titles)
{
    QString name = line.toString();
    if (removeLeadingTitle(name, titles))
        removeLeadingTitle(name, titles);
    name.remove(u',');
    while (removeTrailingTitles(name, titles)) {
    }
    return lastWordOfLine(name).toString() + u'\t' + wordNumber(1, name).toString();
}

} // namespace tavrin::text
