// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/DatafileSettingsData.h"

#include "model/Preferences.h"
#include "support/TestEnvironment.h"

#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;
using plist::Dictionary;
using plist::Value;

class DatafileSettingsDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fontsFallBackOnPreferencesAndThenOnHelvetica();
    void theStoredColourStaysUntilAnotherIsSet();
    void unreadableColoursAreWhite();
    void placingAWindowCountsOnlyWhenThePersonDoesIt();
    void deletedIdentifiersGrow();
    void fieldDefinitionsKeepWhatTheyDoNotKnow();
    void fieldsFollowEveryWayOfChangingThem();
    void newFieldsHaveFreshIdentifiers();
};

void DatafileSettingsDataTest::fontsFallBackOnPreferencesAndThenOnHelvetica()
{
    Preferences preferences;
    DatafileSettingsData settings(&preferences);
    QCOMPARE(settings.fieldsFont(), (FontDescription{u"Helvetica"_s, 12}));

    preferences.setObject(u"Courier"_s, u"DefaultFieldsFontName"_s);
    preferences.setObject(18, u"DefaultFieldsFontSize"_s);
    preferences.setObject(-1, u"DefaultTextFontSize"_s);
    QCOMPARE(settings.fieldsFont(), (FontDescription{u"Courier"_s, 18}));
    QCOMPARE(settings.textFont(), (FontDescription{u"Helvetica"_s, 12}));

    settings.setFieldsFontSize(0);
    settings.setFieldsFontName(u"Times"_s);
    QCOMPARE(settings.fieldsFont(), (FontDescription{u"Times"_s, 0}));
}

void DatafileSettingsDataTest::theStoredColourStaysUntilAnotherIsSet()
{
    DatafileSettingsData settings;
    QCOMPARE(settings.backgroundFTAcolor(), Color::white());
    const Color pale{0.5, 0.75, 1, 1};
    settings.setBackgroundFTAcolor(pale);
    QCOMPARE(settings.backgroundFTAcolor(), pale);

    const Value stored = settings.objectForKey(u"FTAbackgrouneColor"_s);
    settings.setBackgroundFTAcolor(pale);
    QVERIFY(settings.objectForKey(u"FTAbackgrouneColor"_s) == stored);
    settings.setBackgroundFTAcolor(Color::white());
    QCOMPARE(settings.backgroundFTAcolor(), Color::white());
}

void DatafileSettingsDataTest::unreadableColoursAreWhite()
{
    DatafileSettingsData settings;
    for (const Value &unreadable : {Value(QByteArray("no archive")), Value(u"red"_s), Value(QByteArray())}) {
        settings.setObject(unreadable, u"FTAbackgrouneColor"_s);
        QCOMPARE(settings.backgroundFTAcolor(), Color::white());
        QVERIFY(settings.objectForKey(u"FTAbackgrouneColor"_s) == unreadable);
    }
}

void DatafileSettingsDataTest::placingAWindowCountsOnlyWhenThePersonDoesIt()
{
    Preferences preferences;
    DatafileSettingsData settings(&preferences);
    settings.setBasicViewFrame(u"1"_s, true);
    QVERIFY(!settings.datafileSettingsDidChange());

    preferences.setObject(true, u"GeneralNoUpdateForViewChanges"_s);
    settings.setListViewFrame(u"2"_s, false);
    QVERIFY(!settings.datafileSettingsDidChange());

    preferences.remove(u"GeneralNoUpdateForViewChanges"_s);
    settings.setListViewFrame(u"3"_s, false);
    QVERIFY(settings.datafileSettingsDidChange());
    QCOMPARE(settings.basicViewFrame() + settings.listViewFrame(), u"13"_s);
}

void DatafileSettingsDataTest::deletedIdentifiersGrow()
{
    DatafileSettingsData settings;
    QVERIFY(settings.deletedIdentifiers().isEmpty());
    settings.addDeletedIdentifier(u"A"_s);
    const DatafileSettingsData before = settings;
    settings.addDeletedIdentifier(u"B"_s);

    QCOMPARE(settings.deletedIdentifiers(), (QStringList{u"A"_s, u"B"_s}));
    QCOMPARE(before.deletedIdentifiers(), QStringList{u"A"_s});
}

void DatafileSettingsDataTest::fieldDefinitionsKeepWhatTheyDoNotKnow()
{
    const Dictionary known{{u"Name"_s, u"One"_s}, {u"Identifier"_s, u"F1"_s}, {u"Unknown"_s, 5}};
    DatafileSettingsData settings;
    settings.setArray(plist::Array{u"odd"_s, known}, u"Fields"_s);
    QCOMPARE(settings.fields().size(), 1);
    QVERIFY(settings.fields().first().show());
    QCOMPARE(settings.fields().first().width(), FieldDefinition::newWidth);

    QList<FieldDefinition> fields = settings.fields();
    fields.first().setShow(false);
    fields.append(FieldDefinition(u"F2"_s, u"Two"_s));
    settings.setFields(fields);

    Dictionary hidden = known;
    hidden.insert(u"Show"_s, false);
    const Dictionary added{{u"Identifier"_s, u"F2"_s}, {u"Name"_s, u"Two"_s}, {u"Width"_s, 150.0}};
    QVERIFY(settings.arrayForKey(u"Fields"_s, {}) == (plist::Array{hidden, added, u"odd"_s}));
}

void DatafileSettingsDataTest::fieldsFollowEveryWayOfChangingThem()
{
    const auto namesOf = [](const DatafileSettingsData &settings) {
        QStringList names;
        for (const FieldDefinition &field : settings.fields())
            names.append(field.name());
        return names;
    };
    const auto stored = [](const QString &name) { return plist::Array{Dictionary{{u"Name"_s, name}}}; };

    DatafileSettingsData settings;
    QVERIFY(settings.fields().isEmpty());
    settings.setFields({{u"F"_s, u"a"_s}});
    QCOMPARE(namesOf(settings), QStringList{u"a"_s});
    settings.setArray(stored(u"b"_s), u"Fields"_s);
    QCOMPARE(namesOf(settings), QStringList{u"b"_s});
    settings.mutableDictionary().insert(u"Fields"_s, stored(u"c"_s));
    QCOMPARE(namesOf(settings), QStringList{u"c"_s});
    const DatafileSettingsData copy = settings;
    settings.setDictionary({{u"Fields"_s, stored(u"d"_s)}});
    QCOMPARE(namesOf(settings), QStringList{u"d"_s});
    QCOMPARE(namesOf(copy), QStringList{u"c"_s});
    settings.setObject({}, u"Fields"_s);
    QVERIFY(settings.fields().isEmpty());
}

void DatafileSettingsDataTest::newFieldsHaveFreshIdentifiers()
{
    const QList<FieldDefinition> fields = arrayForFieldNames({u"A"_s, u"A"_s}, TestEnvironment());
    QCOMPARE(fields.size(), 2);
    QVERIFY(fields[0].identifier() != fields[1].identifier());
}

QTEST_GUILESS_MAIN(DatafileSettingsDataTest)
#include "DatafileSettingsDataTest.moc"
