// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "EditorFixture.h"
#include "base/DurableFile.h"
#include "document/LockFile.h"
#include "editor/EnterPasswordSheetController.h"

using namespace tavrin;

class EditorOpeningTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theRecordToOpen_data();
    void theRecordToOpen();
    void withoutTheSettingItIsStored_data();
    void withoutTheSettingItIsStored();
    void openingIsNoEditAndEntersTheHistoryOnce();
    void closingRemembersTheRecord();
    void ourLockFileGoesWithTheWindow();
    void somebodyElsesLockFileStays();
    void aReadOnlyDatafileWarnsWhenAsked();
    void savingIsPermittedByThePassword_data();
    void savingIsPermittedByThePassword();
    void aPasswordDoesNotOpenALockedDatafile();
    void aLargeDatafileWarns_data();
    void aLargeDatafileWarns();
};

void EditorOpeningTest::theRecordToOpen_data()
{
    QTest::addColumn<plist::Dictionary>("settings");
    QTest::addColumn<QString>("session");
    QTest::addColumn<QString>("shown");
    const auto with = [](plist::Dictionary settings) {
        settings.insert(u"OpenToRecord"_s, 3);
        return settings;
    };
    QTest::newRow("the most recent") << with({{u"MostRecentRecord"_s, u"r2"_s}}) << QString() << u"r2"_s;
    QTest::newRow("one that was deleted")
        << with({{u"MostRecentRecord"_s, u"gone"_s}}) << QString() << u"r0"_s;
    QTest::newRow("one that is omitted") << with({{u"MostRecentRecord"_s, u"r1"_s}}) << QString() << u"r0"_s;
    QTest::newRow("none remembered") << with({}) << QString() << u"r0"_s;
    QTest::newRow("the first wins") << with(
        {{u"MostRecentRecord"_s, u"r2"_s}, {u"OpenToFirstRecord"_s, true}, {u"OpenToLastRecord"_s, true}})
                                    << QString() << u"r0"_s;
    QTest::newRow("the last") << with({{u"MostRecentRecord"_s, u"r2"_s}, {u"OpenToLastRecord"_s, true}})
                              << QString() << u"r3"_s;
    QTest::newRow("of a session") << with({{u"MostRecentRecord"_s, u"r2"_s}}) << u"r3"_s << u"r3"_s;
    QTest::newRow("of a session, gone") << with({{u"MostRecentRecord"_s, u"r2"_s}}) << u"gone"_s << u"r2"_s;
}

void EditorOpeningTest::theRecordToOpen()
{
    QFETCH(const QString, session);
    QFETCH(const plist::Dictionary, settings);
    EditorFixture editor;
    editor.settings = settings;
    editor.entries[1].selected = false;

    editor.open(session);

    QTEST(editor.shown(), "shown");
}

void EditorOpeningTest::withoutTheSettingItIsStored_data()
{
    QTest::addColumn<bool>("openToLast");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("stored");
    QTest::newRow("first") << false << u"r0"_s << 3;
    QTest::newRow("last") << true << u"r3"_s << 4;
}

void EditorOpeningTest::withoutTheSettingItIsStored()
{
    QFETCH(const bool, openToLast);
    EditorFixture editor;
    editor.settings.insert(u"OpenToLastRecord"_s, openToLast);
    editor.settings.insert(u"MostRecentRecord"_s, u"r2"_s);

    editor.open();

    QTEST(editor.shown(), "shown");
    QTEST(static_cast<int>(editor.document->datafileSettings().openToRecord()), "stored");
}

void EditorOpeningTest::openingIsNoEditAndEntersTheHistoryOnce()
{
    EditorFixture editor;
    editor.open();

    QVERIFY(!editor.document->isModified());
    QVERIFY(!editor.document->datafileSettings().datafileSettingsDidChange());
    QCOMPARE(editor.window->viewedRecordList().identifiers(), QStringList(u"r0"_s));
    QCOMPARE(editor.window->viewedRecordList().position(), 0);
}

void EditorOpeningTest::closingRemembersTheRecord()
{
    EditorFixture editor;
    editor.settings.insert(u"OpenToRecord"_s, 3);
    editor.open();
    editor.window->goToLastRecord();
    editor.close();

    auto reopened =
        DatafileDocument::open({editor.environment, &editor.preferences}, editor.path(), editor.selection);
    QVERIFY(reopened.has_value());
    editor.use(std::move(*reopened));

    QCOMPARE(editor.shown(), u"r3"_s);
}

void EditorOpeningTest::ourLockFileGoesWithTheWindow()
{
    EditorFixture editor;
    editor.settings.insert(u"NetworkShared"_s, true);
    editor.open();
    QVERIFY(QFile::exists(editor.path() + u".lock"_s));
    QVERIFY(!editor.document->openedReadOnly());

    editor.close();

    QVERIFY(!QFile::exists(editor.path() + u".lock"_s));
}

void EditorOpeningTest::somebodyElsesLockFileStays()
{
    EditorFixture editor;
    editor.settings.insert(u"NetworkShared"_s, true);
    QFile lock(LockFile::pathFor(editor.path()));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.close();
    editor.open();
    editor.sheets.answerAlert(1000);
    QTRY_COMPARE(editor.sheets.alerts(), QStringList(u"This datafile is locked."_s));
    QVERIFY(editor.document->openedReadOnly());
    editor.window->goToLastRecord();
    // The one who holds the lock goes on saving.
    editor.entries[0].value = u"theirs"_s;
    editor.writeFile();
    const QByteArray theirs = readWhole(editor.path()).value();

    editor.close();

    QVERIFY(lock.exists());
    QCOMPARE(readWhole(editor.path()).value(), theirs);
}

void EditorOpeningTest::aReadOnlyDatafileWarnsWhenAsked()
{
    EditorFixture editor;
    editor.settings.insert(u"ReadOnly"_s, true);
    editor.settings.insert(u"ReadOnlyWarning"_s, true);
    editor.settings.insert(u"NetworkShared"_s, true);
    editor.open();
    QVERIFY(editor.document->openedReadOnly());
    QVERIFY(!QFile::exists(editor.path() + u".lock"_s));
    QVERIFY(editor.sheets.alerts().isEmpty());

    editor.sheets.answerAlert(1000);

    QTRY_COMPARE(editor.sheets.alerts(), QStringList(u"This datafile is set to always open read-only."_s));
}

void EditorOpeningTest::savingIsPermittedByThePassword_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<bool>("permitted");
    QTest::newRow("none set") << QString() << QStringList() << true;
    QTest::newRow("right at the second try") << u"Secret"_s << QStringList{u"secret"_s, u"Secret"_s} << true;
    QTest::newRow("wrong, then read-only") << u"Secret"_s << QStringList{u"secret"_s} << false;
}

void EditorOpeningTest::savingIsPermittedByThePassword()
{
    QFETCH(const QString, password);
    QFETCH(const QStringList, entries);
    QFETCH(const bool, permitted);
    EditorFixture editor;
    editor.settings.insert(u"Munge"_s, password);
    editor.open();
    if (!password.isEmpty()) {
        QVERIFY(!editor.window->validateAction(u"saveDocument:"_s));
        editor.sheets.answerNext<EnterPasswordSheetController>([&entries](auto &sheet) {
            for (const QString &entry : entries) {
                sheet.setEntry(entry);
                sheet.accept();
            }
            sheet.openReadOnly();
        });
    }

    editor.window->windowDidBecomeMain();

    QTRY_VERIFY_WITH_TIMEOUT(editor.sheets.allAnswered(), 5000);
    QCOMPARE(editor.window->canSaveChanges(), permitted);
    QCOMPARE(editor.window->validateAction(u"saveDocument:"_s), permitted);
    QCOMPARE(editor.document->openedReadOnly(), !permitted);
}

void EditorOpeningTest::aPasswordDoesNotOpenALockedDatafile()
{
    EditorFixture editor;
    editor.settings.insert(u"Munge"_s, u"Secret"_s);
    editor.settings.insert(u"ReadOnly"_s, true);
    editor.open();
    editor.sheets.answerNext<EnterPasswordSheetController>([](auto &sheet) {
        sheet.setEntry(u"Secret"_s);
        sheet.accept();
    });

    editor.window->setCanSaveChanges();
    editor.window->setCanSaveChanges();

    QVERIFY(editor.window->canSaveChanges());
    QVERIFY(editor.document->openedReadOnly());
}

void EditorOpeningTest::aLargeDatafileWarns_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<qint64>("size");
    QTest::addColumn<bool>("warns");
    QTest::addColumn<QStringList>("alerts");
    const QStringList over1{u"This datafile is over 1 GB in size."_s};
    QTest::newRow("just below") << u"a.tv3"_s << qint64(1073741823) << true << QStringList();
    QTest::newRow("1 GB") << u"a.tv3"_s << qint64(1073741824) << true << over1;
    QTest::newRow("1.5 GB") << u"a.tv3"_s << qint64(1610612736) << true << over1;
    QTest::newRow("above") << u"a.tv3"_s << qint64(1610612737) << true
                           << QStringList(u"This datafile is over 1.5 GB in size."_s);
    QTest::newRow("not wanted") << u"a.tv3"_s << qint64(1610612737) << false << QStringList();
    QTest::newRow("mobile") << u"a.tvk"_s << qint64(401000000) << true
                            << QStringList(u"This Tavrin Mobile datafile is 401 MB."_s);
}

void EditorOpeningTest::aLargeDatafileWarns()
{
    QFETCH(const qint64, size);
    QFETCH(const bool, warns);
    QFETCH(const QStringList, alerts);
    QFETCH(const QString, name);
    EditorFixture editor;
    editor.name = name;
    editor.settings.insert(u"WarnWhenTooLarge"_s, warns);
    editor.writeFile();
    auto read =
        DatafileDocument::open({editor.environment, &editor.preferences}, editor.path(), editor.selection);
    QVERIFY(read.has_value());
    // A hole in the file takes no room on the disk.
    QVERIFY(QFile::resize(editor.path(), size));
    if (!alerts.isEmpty())
        editor.sheets.answerAlert(1000);

    editor.use(std::move(*read));

    QCOMPARE(editor.sheets.alerts(), alerts);
}

QTEST_MAIN(EditorOpeningTest)
#include "EditorOpeningTest.moc"
