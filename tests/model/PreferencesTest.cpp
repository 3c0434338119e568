// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/Preferences.h"

#include "base/DurableFile.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace tavrin;
using namespace Qt::StringLiterals;
using plist::Value;

class PreferencesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void keysMayBePathsAndTypesStay();
    void aRemovedPreferenceShowsTheRegisteredOne();
    void registeredDefaultsAreNeverStored();
    void theTitlesAreThoseOfThePerson();
    void twoInstancesMergeWhatEachChanged();
    void changesOfAnotherInstanceAreAnnouncedOnce();
    void aDamagedFileIsMovedAside();
    void aFileThatCannotBeReadIsNotReplaced();

private:
    std::unique_ptr<QTemporaryDir> g_folder;
    QString g_path;
};

void PreferencesTest::init()
{
    g_folder = std::make_unique<QTemporaryDir>();
    g_path = g_folder->filePath(u"new folder/preferences.plist"_s);
}

void PreferencesTest::keysMayBePathsAndTypesStay()
{
    const QString key = u"/home/a b/Dr. J.tv3-sync"_s;
    const Value list = plist::Array{u"x%20"_s, true, 1, 1.5, Date{3.5}, QByteArray("\0\1", 2)};
    {
        Preferences preferences(g_path);
        preferences.setObject(u"/sync/file.tv3"_s, key);
        preferences.setObject(list, u"List"_s);
    }
    const Preferences preferences(g_path);
    QCOMPARE(preferences.stringForKey(key), u"/sync/file.tv3"_s);
    QVERIFY(preferences.objectForKey(u"List"_s) == list);
}

void PreferencesTest::aRemovedPreferenceShowsTheRegisteredOne()
{
    Preferences preferences;
    preferences.registerDefaults(registeredDefaults());
    QSignalSpy changed(&preferences, &Preferences::changed);
    preferences.setObject(u"Basic"_s, u"EditorMode"_s);
    preferences.setObject(u"Basic"_s, u"EditorMode"_s);
    QCOMPARE(preferences.stringForKey(u"EditorMode"_s), u"Basic"_s);
    preferences.remove(u"EditorMode"_s);
    QCOMPARE(preferences.stringForKey(u"EditorMode"_s), u"List"_s);
    QCOMPARE(changed.count(), 2);

    preferences.registerDefaults({{u"EditorMode"_s, u"Other"_s}});
    QCOMPARE(preferences.stringForKey(u"EditorMode"_s), u"Other"_s);
    QVERIFY(preferences.stringForKey(u"Unknown"_s).isNull());
}

void PreferencesTest::registeredDefaultsAreNeverStored()
{
    {
        Preferences preferences(g_path);
        preferences.registerDefaults(registeredDefaults());
        preferences.setObject(1, u"Mine"_s);
    }
    const Preferences preferences(g_path);
    QCOMPARE(preferences.integerForKey(u"Mine"_s), 1);
    QVERIFY(!preferences.isSet(u"EditorMode"_s));
}

void PreferencesTest::theTitlesAreThoseOfThePerson()
{
    Preferences preferences;
    preferences.registerDefaults(registeredDefaults());
    QCOMPARE(sortTitleList(&preferences).size(), 25);
    QCOMPARE(sortTitleList(&preferences), sortTitleList(nullptr));
    preferences.setObject(plist::Array{u"Sir"_s}, u"SortTitleList"_s);
    QCOMPARE(sortTitleList(&preferences), QStringList{u"Sir"_s});
    preferences.setObject(plist::Array{}, u"SortTitleList"_s);
    QVERIFY(sortTitleList(&preferences).isEmpty());
}

void PreferencesTest::twoInstancesMergeWhatEachChanged()
{
    Preferences first(g_path);
    first.setObject(1, u"Removed"_s);
    first.setObject(1, u"Both"_s);
    QVERIFY(first.synchronize());
    Preferences second(g_path);

    first.setObject(2, u"First"_s);
    first.setObject(2, u"Both"_s);
    second.setObject(3, u"Second"_s);
    second.setObject(3, u"Both"_s);
    second.remove(u"Removed"_s);
    QVERIFY(first.synchronize());
    QVERIFY(second.synchronize());
    QVERIFY(first.synchronize());

    for (const Preferences *each : {&first, &second}) {
        QCOMPARE(each->integerForKey(u"First"_s), 2);
        QCOMPARE(each->integerForKey(u"Second"_s), 3);
        QCOMPARE(each->integerForKey(u"Both"_s), 3);
        QVERIFY(!each->isSet(u"Removed"_s));
    }
}

void PreferencesTest::changesOfAnotherInstanceAreAnnouncedOnce()
{
    Preferences first(g_path);
    Preferences second(g_path);
    second.setObject(true, u"Theirs"_s);
    QVERIFY(second.synchronize());
    QSignalSpy changed(&first, &Preferences::changed);

    QVERIFY(first.synchronize());
    QVERIFY(first.synchronize());

    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toString(), u"Theirs"_s);
}

void PreferencesTest::aDamagedFileIsMovedAside()
{
    const QString path = g_folder->filePath(u"damaged.plist"_s);
    QVERIFY(writeDurably(path, QByteArrayView("<plist><dict><key>A</key>")));
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Damaged preferences"_s));
        Preferences preferences(path);
        preferences.setObject(1, u"A"_s);
    }
    QCOMPARE(readWhole(path + u".damaged"_s).value(), QByteArray("<plist><dict><key>A</key>"));
    QCOMPARE(Preferences(path).integerForKey(u"A"_s), 1);
}

void PreferencesTest::aFileThatCannotBeReadIsNotReplaced()
{
    // A folder in the file's place cannot be read by anybody.
    const QString path = g_folder->filePath(u"folder.plist"_s);
    QVERIFY(QDir().mkpath(path));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"not read"_s));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"not written"_s));
    {
        Preferences preferences(path);
        preferences.setObject(1, u"A"_s);
        QCOMPARE(preferences.integerForKey(u"A"_s), 1);
        QVERIFY(!preferences.synchronize());
    }
    QVERIFY(QFileInfo(path).isDir());
}

QTEST_GUILESS_MAIN(PreferencesTest)
#include "PreferencesTest.moc"
