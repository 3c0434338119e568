// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/Preferences.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// Longer titles come before those that begin them.
plist::Array usualTitles()
{
    return {u"D.D.S."_s, u"DDS"_s,  u"D.D."_s, u"DD"_s,   u"Dr."_s, u"Fr."_s,   u"IV"_s,
            u"III"_s,    u"II"_s,   u"I"_s,    u"J.P."_s, u"JP"_s,  u"Jr."_s,   u"M.D."_s,
            u"MD"_s,     u"Miss"_s, u"Mr."_s,  u"Mrs."_s, u"Ms."_s, u"Ph.D."_s, u"PhD"_s,
            u"Rev."_s,   u"R.N."_s, u"RN"_s,   u"Sr."_s};
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
    QStringList titles;
    for (const plist::Value &title :
         preferences ? preferences->arrayForKey(u"SortTitleList"_s) : usualTitles())
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
