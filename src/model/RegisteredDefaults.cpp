// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/Preferences.h"
#include "text/Names.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

plist::Array usualTitles()
{
    plist::Array titles;
    for (const QString &title : text::defaultTitleList())
        titles.append(title);
    return titles;
}

} // namespace

plist::Dictionary registeredDefaults()
{
    return {
        {u"DatafilesFolderPath"_s, u"~/Documents/Tavrin/Tavrin Pro Datafiles"_s},
        {u"AutoOpenDatafilePaths"_s, plist::Array()},
        {u"EditorSplitHeight"_s, 150},
        {u"EditorMode"_s, u"List"_s},
        {u"GeneralHighlightFindField"_s, true},
        {u"GeneralBeepWhenFindFails"_s, true},
        {u"GeneralHighlightFieldText"_s, true},
        {u"GeneralUseAlternatingColors"_s, false},
        {u"GeneralSpellCheckerOff"_s, false},
        {u"GeneralQuitAfterLastFile"_s, false},
        {u"GeneralNoUpdateForViewChanges"_s, false},
        {u"GeneralTimeInDateStamp"_s, true},
        {u"GeneralShowSecondsInTimeStamp"_s, false},
        {u"GeneralLeaveTextSelected"_s, false},
        {u"GeneralDateTimeFormat"_s, 1},
        {u"GeneralToolbarFormat"_s, 5},
        {u"DefaultFieldsFontSize"_s, 12},
        {u"DefaultFieldsFontName"_s, u"Helvetica"_s},
        {u"DefaultFindBoxFontSize"_s, 12},
        {u"DefaultFindBoxFontName"_s, u"Helvetica"_s},
        {u"DefaultTextFontSize"_s, 12},
        {u"DefaultTextFontName"_s, u"Helvetica"_s},
        {u"SortTitleList"_s, usualTitles()},
    };
}

QStringList sortTitleList(const Preferences *preferences)
{
    if (!preferences)
        return text::defaultTitleList();
    QStringList titles;
    for (const plist::Value &title : preferences->arrayForKey(u"SortTitleList"_s))
        titles.append(title.toText());
    return titles;
}

void setSortTitleList(const QStringList &titles, Preferences &preferences)
{
    plist::Array stored;
    for (const QString &title : titles)
        stored.append(title);
    preferences.setObject(stored, QStringLiteral("SortTitleList"));
}

} // namespace tavrin
