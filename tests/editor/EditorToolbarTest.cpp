// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorToolbarController.h"
#include "model/Preferences.h"

#include <QSignalSpy>
#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

class EditorToolbarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itemsAreKeptForAllWindowsAndReset();
    void itemsThatNobodyKnowsOrCanRunAreLeftOut();
    void theStyleIsAnnouncedToEveryWindow();
};

namespace {

bool hasNextAndBold(const QString &selector)
{
    return selector == "goToNextRecord:"_L1 || selector == "bold:"_L1;
}

} // namespace

void EditorToolbarTest::itemsAreKeptForAllWindowsAndReset()
{
    Preferences preferences;
    preferences.registerDefaults(registeredDefaults());
    EditorToolbarController one(preferences, hasNextAndBold);
    EditorToolbarController other(preferences, hasNextAndBold);
    QSignalSpy changed(&other, &EditorToolbarController::itemsChanged);
    const QStringList usual = one.items();
    const QStringList wanted{u"Bold"_s, u"Separator"_s, u"NextRecord"_s, u"Separator"_s};

    one.setItems(wanted);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(other.items(), wanted);

    other.resetItems();
    QCOMPARE(one.items(), usual);
    QVERIFY(usual.contains(u"NextRecord"_s));
}

void EditorToolbarTest::itemsThatNobodyKnowsOrCanRunAreLeftOut()
{
    Preferences preferences;
    preferences.setObject(
        plist::Array{
            u"Teleport"_s, u"NextRecord"_s, 7, u"NewRecord"_s, u"NextRecord"_s, plist::Array{}, u"Space"_s},
        u"EditorToolbarItems"_s);
    const EditorToolbarController toolbar(preferences, hasNextAndBold);

    // There is no command to add records here, and the find box has to be there to have a place.
    QCOMPARE(toolbar.items(), (QStringList{u"NextRecord"_s, u"Space"_s}));
    QVERIFY(toolbar.availableItems().contains(u"Bold"_s));
    QVERIFY(!toolbar.availableItems().contains(u"NewRecord"_s));
    QVERIFY(!toolbar.availableItems().contains(u"FindBox"_s));
    // Of several commands that would do, the one that exists is run.
    QCOMPARE(toolbar.selectorOf(*EditorToolbarController::item(u"Bold"_s)), u"bold:"_s);
}

void EditorToolbarTest::theStyleIsAnnouncedToEveryWindow()
{
    Preferences preferences;
    preferences.registerDefaults(registeredDefaults());
    EditorToolbarController one(preferences, hasNextAndBold);
    const EditorToolbarController other(preferences, hasNextAndBold);
    QSignalSpy changed(&other, &EditorToolbarController::toolbarStyleChanged);
    QCOMPARE(other.imageName(u"listView"_s), u"TB_C_listView"_s);

    one.toggleToolbarStyle();
    QCOMPARE(other.imageName(u"listView"_s), u"TB_M_listView"_s);
    one.toggleToolbarStyle();
    QVERIFY(other.isColored());
    one.setDisplay(EditorToolbarController::Display::TextOnly);
    one.setShown(false);
    QCOMPARE(changed.count(), 4);
    QVERIFY(!other.isShown());
}

QTEST_GUILESS_MAIN(EditorToolbarTest)
#include "EditorToolbarTest.moc"
