// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/AppFixture.h"
#include "editor/FileSheetController.h"

using namespace tavrin;

class MainControllerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startUpRestoresTheSessionThenOpensAutomaticDatafiles()
    {
        AppFixture app;
        app.g_preferences.setObject(true, u"RestorePreviousSession"_s);
        app.g_preferences.setObject(
            plist::Array{app.url(u"b.tv3"_s), u"r1"_s, app.url(u"a.tv3"_s), u"gone"_s, app.url(u"c.tv3"_s)},
            u"PreviousSessionList"_s);
        QVERIFY(QFile::link(app.path(u"b.tv3"_s), app.path(u"link.tv3"_s)));
        app.g_preferences.setObject(plist::Array{app.path(u"link.tv3"_s), app.path(u"c.tv3"_s)},
                                    u"AutoOpenDatafilePaths"_s);
        app.g_preferences.setObject(QByteArray("old"), u"DatafilesFolderBookmark"_s);

        app.g_controller.finishLaunchingStuff();

        QCOMPARE(app.open(), (QStringList{u"b.tv3"_s, u"a.tv3"_s, u"c.tv3"_s}));
        QCOMPARE(app.shownRecord(0), u"r1"_s);
        QVERIFY(!app.shownRecord(1).isEmpty());
        QCOMPARE(app.window(0).g_broughtToFront, 1);
        QVERIFY(!app.g_preferences.isSet(u"DatafilesFolderBookmark"_s));
        QVERIFY(app.g_controller.isFullyStarted());
        QCOMPARE(app.g_preferences.stringForKey(u"EditorMode"_s), u"List"_s);
    }

    void automaticDatafilesAreOpened_data()
    {
        QTest::addColumn<bool>("alreadyOpen");
        QTest::addColumn<bool>("restoring");
        QTest::addColumn<QStringList>("open");

        QTest::newRow("alone") << false << false << QStringList{u"a.tv3"_s};
        QTest::newRow("not beside others") << true << false << QStringList{u"c.tv3"_s};
        QTest::newRow("beside a session") << true << true << QStringList{u"c.tv3"_s, u"a.tv3"_s};
    }

    void automaticDatafilesAreOpened()
    {
        QFETCH(bool, alreadyOpen);
        QFETCH(bool, restoring);
        AppFixture app;
        app.g_preferences.setObject(plist::Array{app.path(u"a.tv3"_s)}, u"AutoOpenDatafilePaths"_s);
        app.g_preferences.setObject(restoring, u"RestorePreviousSession"_s);
        if (alreadyOpen)
            app.g_controller.openDatafile(app.path(u"c.tv3"_s));

        app.g_controller.finishLaunchingStuff();

        QTEST(app.open(), "open");
    }

    void missingDatafilesOfASessionAreToldOnce()
    {
        AppFixture app;
        app.g_preferences.setObject(
            plist::Array{app.url(u"x.tv3"_s), u""_s, app.url(u"a.tv3"_s), u""_s, app.url(u"y.tv3"_s), u""_s},
            u"PreviousSessionList"_s);
        app.answer(u"OK"_s);

        app.g_controller.restorePreviousSession();

        QCOMPARE(app.open(), QStringList{u"a.tv3"_s});
        QCOMPARE(app.g_sheets.alerts(), QStringList{u"2 documents could not be opened."_s});
    }

    void whatCannotBeOpenedIsTold_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("message");

        const QString failed = u"The document “z.tv3” could not be opened."_s;
        QTest::newRow("missing") << QByteArray() << failed;
        QTest::newRow("damaged") << QByteArray("<plist><dict>") << failed;
        QTest::newRow("newer") << plist::toXml(
            DatafileFixture::withSetting(DatafileFixture::root(1), u"DataFormat"_s, 99))
                               << u"\"z.tv3\" was made by a newer version."_s;
    }

    void whatCannotBeOpenedIsTold()
    {
        QFETCH(QByteArray, content);
        AppFixture app;
        if (!content.isEmpty())
            app.g_files.make(u"z.tv3"_s, content);
        app.g_controller.openDatafile(app.path(u"a.tv3"_s));
        app.answer(u"OK"_s);

        app.g_controller.openDatafile(app.path(u"z.tv3"_s));

        QTEST(app.g_sheets.alerts().join(u'|'), "message");
        QCOMPARE(app.open(), QStringList{u"a.tv3"_s});
        QCOMPARE(app.g_controller.recentDatafiles(), QStringList{app.path(u"a.tv3"_s)});
    }

    void aBackupIsOnlyLookedAt()
    {
        AppFixture app;
        app.g_preferences.setObject(app.path(u"."_s), u"DatafilesFolderPath"_s);
        QVERIFY(QDir().mkpath(app.path(u"Backups"_s)));
        QVERIFY(QFile::copy(app.path(u"a.tv3"_s), app.path(u"Backups/a 1.tv3"_s)));
        for (const QString &name : {u"b.tv3"_s, u"Backups/a 1.tv3"_s, u"Backups/a 1.tv3"_s})
            app.g_controller.openDatafile(app.path(name));
        QVERIFY(!app.g_controller.documents()[0]->openedReadOnly());
        QVERIFY(app.g_controller.documents()[1]->openedReadOnly());
        QCOMPARE(app.g_controller.recentDatafiles(), QStringList{app.path(u"b.tv3"_s)});
    }

    void aCatalogThatDisagreesIsCorrectedWhenThePersonSaysSo_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<qsizetype>("selected");
        QTest::addColumn<bool>("written");

        QTest::newRow("correct") << u"Correct the Problem"_s << qsizetype{3} << true;
        QTest::newRow("leave") << u"Don't Correct"_s << qsizetype{1} << false;
    }

    void aCatalogThatDisagreesIsCorrectedWhenThePersonSaysSo()
    {
        QFETCH(QString, button);
        AppFixture app;
        plist::Dictionary root = DatafileFixture::root(3);
        root.insert(u"Catalog"_s, root.value(u"Catalog"_s).array()->mid(1, 1));
        const QString path = app.g_files.make(u"odd.tv3"_s, root);
        const QByteArray before = DatafileFixture::contentOf(path);
        app.answer(button);

        app.g_controller.openDatafile(path);

        QCOMPARE(app.g_sheets.alerts(), QStringList{u"odd.tv3 shows 1 records, but actually contains 3."_s});
        QTEST(qsizetype{app.window(0).g_controller.countSelected()}, "selected");
        QCOMPARE(DatafileFixture::contentOf(path), before);
        app.window(0).g_controller.setCanSaveChanges();
        app.g_controller.documents().first()->waitForSaving();
        QTEST(DatafileFixture::contentOf(path) != before, "written");
        QVERIFY(!app.g_controller.documents().first()->isModified());
    }

    void anUnansweredRepairQuestionIsNotAskedTwice()
    {
        AppFixture app;
        plist::Dictionary root = DatafileFixture::root(2);
        root.remove(u"Catalog"_s);
        const QString path = app.g_files.make(u"odd.tv3"_s, root);
        app.g_sheets.answerNext<AlertSheetController>([](AlertSheetController &) {});

        app.g_controller.openDatafiles({path, path});

        QCOMPARE(app.open(), QStringList());
    }

    void datafilesAreOpenedOneAfterTheOther()
    {
        AppFixture app;
        app.g_work.g_holds = true;
        app.g_preferences.setObject(plist::Array{app.path(u"c.tv3"_s)}, u"AutoOpenDatafilePaths"_s);
        app.g_controller.openDatafile(app.path(u"a.tv3"_s));
        app.g_controller.openDatafile(app.path(u"b.tv3"_s), u"r1"_s);
        app.g_controller.openDatafile(app.path(u"a.tv3"_s));
        app.g_controller.finishLaunchingStuff(); // opens no automatic ones beside others
        QCOMPARE(app.g_work.g_held.size(), 2U);
        QVERIFY(app.g_controller.isOpening());
        app.g_work.finishNext();
        // Quitting now keeps both for the next time.
        app.g_controller.saveCurrentSession();
        QCOMPARE(app.g_preferences.arrayForKey(u"PreviousSessionList"_s).at(3), plist::Value(u"r1"_s));

        QSignalSpy changed(&app.g_controller, &MainController::openDatafilesChanged);
        app.g_work.finishNext(true);

        QCOMPARE(app.open(), QStringList{u"a.tv3"_s});
        QCOMPARE(app.g_controller.recentDatafiles(), QStringList{app.path(u"a.tv3"_s)});
        QVERIFY(!app.g_controller.isOpening() && changed.size() == 1);
        QCOMPARE(app.g_sheets.alerts(), QStringList());
    }

    void theSampleOpensAsANewDatafile()
    {
        AppFixture app;
        if (!app.g_controller.hasSample())
            QSKIP("built where the samples are out of reach");

        app.g_controller.openSample();

        QCOMPARE(app.open(), QStringList{u"Address Book"_s});
        QCOMPARE(app.g_controller.documents().first()->filePath(), QString());
        QVERIFY(!app.g_controller.documents().first()->openedReadOnly());
        QCOMPARE(app.g_controller.recentDatafiles(), QStringList());
    }

    void theMenuFollowsTheFolderAndTheWrites()
    {
        AppFixture app;
        app.g_controller.finishLaunchingStuff();
        QCOMPARE(app.g_controller.datafilesMenu().size(), 0);
        app.answer(u"Change It"_s);
        app.g_sheets.answerNext<FileSheetController>([&](FileSheetController &panel) {
            panel.setPaths({app.path(u""_s)});
            panel.accept();
        });

        app.g_controller.resetDatafilesFolder();

        QCOMPARE(app.g_controller.datafilesMenu().size(), 3);
        app.g_controller.openDatafile(app.path(u"a.tv3"_s));
        QVERIFY(app.g_controller.documents().first()->saveCopyAs(app.path(u"d.tv3"_s)));
        QTRY_COMPARE(app.g_controller.datafilesMenu().size(), 4);
    }
};

QTEST_MAIN(MainControllerTest)
#include "MainControllerTest.moc"
