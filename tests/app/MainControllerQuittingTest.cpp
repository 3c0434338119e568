// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/AppFixture.h"

using namespace tavrin;

class MainControllerQuittingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quittingAsksWhenThePersonWantsIt_data()
    {
        QTest::addColumn<bool>("started");
        QTest::addColumn<int>("confirm");
        QTest::addColumn<QString>("button");
        QTest::addColumn<qsizetype>("terminates");
        QTest::addColumn<bool>("dated");

        QTest::newRow("not asked for") << true << 0 << QString() << qsizetype{1} << false;
        QTest::newRow("still starting") << false << 1 << QString() << qsizetype{1} << false;
        QTest::newRow("quit") << true << 1 << u"Quit"_s << qsizetype{1} << true;
        QTest::newRow("cancel") << true << 1 << u"Cancel"_s << qsizetype{0} << false;
    }

    void quittingAsksWhenThePersonWantsIt()
    {
        QFETCH(bool, started);
        QFETCH(int, confirm);
        QFETCH(QString, button);
        AppFixture app;
        QSignalSpy terminated(&app.g_controller, &MainController::terminate);
        app.g_preferences.setObject(confirm, u"SharedConfirmQuit"_s);
        if (started)
            app.g_controller.finishLaunchingStuff();
        if (!button.isEmpty())
            app.answer(button);

        app.g_controller.applicationShouldTerminate();

        QTEST(terminated.size(), "terminates");
        QTEST(app.g_preferences.objectForKey(u"SharedQuitDate"_s).isDate(), "dated");
    }

    void theSessionComesBackAsItWas()
    {
        AppFixture app;
        const QString odd = app.g_files.make(u"Ünï #1 50%25.tv3"_s, DatafileFixture::root(3));
        app.g_controller.openDatafiles({odd, app.path(u"a.tv3"_s)});
        app.window(0).g_controller.goToLastRecord();
        const QString shown = app.shownRecord(0);
        quit(app);
        QCOMPARE(app.open(), QStringList());
        app.g_preferences.setObject(true, u"RestorePreviousSession"_s);

        MainController next(app.g_preferences, app.g_environment, app.g_windows, app.g_sheets, app.g_work);
        next.finishLaunchingStuff();

        QCOMPARE(next.openDatafileCount(), 2);
        DatafileDocument &first = *next.documents().first();
        QCOMPARE(first.filePath(), odd);
        QCOMPARE(next.windowOf(first)->controller().currentRecord()->identifier(), shown);
    }

    void aRefusedCloseStopsQuittingBeforeAnythingCloses()
    {
        AppFixture app;
        QSignalSpy terminated(&app.g_controller, &MainController::terminate);
        app.g_controller.openDatafiles({app.path(u"a.tv3"_s), app.path(u"b.tv3"_s)});
        change(app, 1);
        app.answer(u"Cancel"_s);

        app.g_controller.applicationShouldTerminate();
        settle(app);

        QCOMPARE(app.open(), (QStringList{u"a.tv3"_s, u"b.tv3"_s}));
        QCOMPARE(terminated.size(), 0);

        app.answer(u"Save"_s);
        quit(app);

        QCOMPARE(app.open(), QStringList());
        QCOMPARE(terminated.size(), 1);
        QCOMPARE(DatafileFixture::storedValue(app.path(u"b.tv3"_s), u"r0"_s), u"changed"_s);
        QCOMPARE(app.g_preferences.arrayForKey(u"PreviousSessionList"_s).size(), 4);
    }

    void closingTheLastDatafileQuits_data()
    {
        QTest::addColumn<bool>("wanted");
        QTest::addColumn<bool>("questionOpen");
        QTest::addColumn<qsizetype>("terminates");

        QTest::newRow("wanted") << true << false << qsizetype{1};
        QTest::newRow("not wanted") << false << false << qsizetype{0};
        QTest::newRow("not under a question") << true << true << qsizetype{0};
    }

    void closingTheLastDatafileQuits()
    {
        QFETCH(bool, wanted);
        QFETCH(bool, questionOpen);
        AppFixture app;
        QSignalSpy terminated(&app.g_controller, &MainController::terminate);
        app.g_preferences.setObject(wanted, u"GeneralQuitAfterLastFile"_s);
        app.g_controller.openDatafiles({app.path(u"a.tv3"_s), app.path(u"b.tv3"_s)});
        if (questionOpen) {
            app.g_sheets.answerNext<AlertSheetController>([](AlertSheetController &) {});
            app.g_controller.resetDatafilesFolder();
        }

        app.window(0).g_controller.requestClose();
        settle(app);
        QCOMPARE(terminated.size(), 0);
        app.window(0).g_controller.requestClose();
        settle(app);

        QTEST(terminated.size(), "terminates");
    }

private:
    /// What closing writes is written on other threads, and the controller removes windows from the event
    /// loop.
    static void settle(AppFixture &app)
    {
        for (DatafileDocument *document : app.g_controller.documents())
            document->waitForSaving();
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    static void quit(AppFixture &app)
    {
        app.g_controller.applicationShouldTerminate();
        QTRY_COMPARE(app.g_controller.openDatafileCount(), 0);
    }

    static void change(AppFixture &app, qsizetype index)
    {
        DatafileDocument &document = *app.g_controller.documents().at(index);
        document.storeFieldValue(u"r0"_s, u"f"_s, u"changed"_s);
        document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    }
};

QTEST_MAIN(MainControllerQuittingTest)
#include "MainControllerQuittingTest.moc"
