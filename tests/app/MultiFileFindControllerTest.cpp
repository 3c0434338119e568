// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/MultiFileFindController.h"

#include "app/AppFixture.h"
#include "editor/EditorSearchController.h"
#include "support/FakeFindView.h"

using namespace tavrin;
using Where = MultiFileFindController::Where;

class MultiFileFindControllerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void rowsComeUntilTheLast();
    void aRowIsOpenedAtItsHit();
    void aRecordThatIsNotShownIsAskedAbout();
    void aSearchIsCancelledAtOnce();

private:
    MultiFileFindController &find() { return *g_find; }
    QStringList found()
    {
        QStringList rows;
        for (int row = 0; row < find().results().rowCount(); ++row) {
            const MultiFileRow &found = find().results().row(row);
            rows.append(found.datafile + u' ' + found.identifier + u' ' + found.context.text);
        }
        return rows;
    }
    void search(const QString &text, Where where)
    {
        find().setText(text);
        find().setWhere(where);
        find().search();
        QTRY_VERIFY(!find().isSearching());
    }

    std::unique_ptr<AppFixture> g_app;
    std::unique_ptr<MultiFileFindController> g_find;
};

void MultiFileFindControllerTest::init()
{
    g_app = std::make_unique<AppFixture>();
    g_app->g_controller.openDatafile(g_app->path(u"a.tv3"_s));
    g_find = std::make_unique<MultiFileFindController>(g_app->g_controller);
}

void MultiFileFindControllerTest::cleanup()
{
    g_find.reset();
    g_app.reset();
}

void MultiFileFindControllerTest::rowsComeUntilTheLast()
{
    FakeWindow &window = g_app->window(0);
    const QString shown = window.controller().currentRecord()->identifier();
    window.g_view.type(window.controller(), u"typed on screen"_s);
    search(u"SCREEN"_s, Where::OpenDatafiles);
    QCOMPARE(found(),
             (QStringList{u"a.tv3 "_s + shown + u" typed on screen"_s, u"  <<Search Completed>>"_s}));
    QCOMPARE(find().summary(), u"Hits: 1, datafiles: 1"_s);
    find().setChosenPaths({g_app->path(u"b.tv3"_s), g_app->path(u"a.tv3"_s)});
    search(u"typed"_s, Where::ChosenDatafiles);
    QCOMPARE(found().size(), 2);
    find().setText({});
    QVERIFY(!find().canSearch());
}

void MultiFileFindControllerTest::aRowIsOpenedAtItsHit()
{
    search(u"text 2"_s, Where::ChosenDatafiles);
    find().setChosenPaths({g_app->path(u"b.tv3"_s)});
    search(u"2"_s, Where::ChosenDatafiles);
    QVERIFY(found().size() > 1);
    const MultiFileRow row = find().results().row(0);
    find().openRow(0);
    QCOMPARE(g_app->open(), (QStringList{u"a.tv3"_s, u"b.tv3"_s}));
    EditorWindowController &window = g_app->window(1).controller();
    QCOMPARE(window.currentRecord()->identifier(), row.identifier);
    const bool isInText = row.hit.field == HitField::freeformText;
    QCOMPARE(window.lastHitField(), isInText ? qint64(LastHitField::freeformText) : row.hit.field);
    // Nothing happens at the last row.
    find().openRow(find().results().rowCount() - 1);
}

void MultiFileFindControllerTest::aRecordThatIsNotShownIsAskedAbout()
{
    FakeWindow &window = g_app->window(0);
    DatafileDocument &document = window.controller().document();
    const QString identifier = document.datafileCatalog().selectedIdentifierAtIndex(2);
    document.storeText(identifier, u"needle"_s);
    search(u"needle"_s, Where::OpenDatafiles);
    document.datafileCatalog().omitIdentifier(identifier);
    const QString shown = window.controller().currentRecord()->identifier();
    g_app->g_sheets.answerAlert(QVSheetController::SecondButton);
    find().openRow(0);
    QCOMPARE(window.controller().currentRecord()->identifier(), shown);
    g_app->g_sheets.answerAlert(QVSheetController::FirstButton);
    find().openRow(0);
    QCOMPARE(window.controller().currentRecord()->identifier(), identifier);
    document.deleteRecord(identifier);
    g_app->g_sheets.answerAlert(QVSheetController::FirstButton);
    find().openRow(0);
    const QString omitted = u"You have linked to a record that is not currently selected."_s;
    QCOMPARE(g_app->g_sheets.alerts(), (QStringList{omitted, omitted, u"This record no longer exists."_s}));
}

void MultiFileFindControllerTest::aSearchIsCancelledAtOnce()
{
    find().setText(u"e"_s);
    find().search();
    find().cancel();
    QVERIFY(!find().isSearching());
    QCOMPARE(found().constLast(), u"  <<Search Cancelled>>"_s);
    // The next one is not disturbed by what is left of it.
    search(u"nowhere at all"_s, Where::OpenDatafiles);
    QCOMPARE(found(), QStringList{u"  <<Search Completed>>"_s});
}

QTEST_MAIN(MultiFileFindControllerTest)
#include "MultiFileFindControllerTest.moc"
