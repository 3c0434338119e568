// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FindBox.h"

#include "app/MainController.h"
#include "document/DatafileDocument.h"
#include "model/Preferences.h"
#include "ui/ApplicationMenus.h"
#include "ui/ApplicationWindows.h"
#include "ui/EditorWindow.h"
#include "ui/FindAndReplacePanel.h"
#include "ui/FreeformTextEdit.h"
#include "ui/HitColors.h"
#include "ui/MultiFileFindWindow.h"
#include "ui/RecordTableView.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <algorithm>

using namespace tavrin;
using namespace Qt::StringLiterals;

/// Finding in a real window, by keyboard and mouse.
class FindBoxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void returnFindsAndColours();
    void undoTakesBackWhatWasDoneLast();
    void keysGoWithReturn_data();
    void keysGoWithReturn();
    void hitsAreNoPartOfTheText();
    void aHitInAFieldIsEditedWithControl();
    void buttonsSayWhatTheyDo();
    void theCountLeavesOtherMessages();
    void thePanelReplacesInTheFrontWindow();
    void severalFilesAreListedSortedAndCopied();
    void colorsCanBeRead();

private:
    EditorWindow &window() { return *dynamic_cast<EditorWindow *>(g_controller->windowOf(document())); }
    DatafileDocument &document() { return *g_controller->documents().constFirst(); }
    QLineEdit &entry() { return *window().findChild<QLineEdit *>(u"findBoxText"_s); }
    FreeformTextEdit &text() { return *window().findChild<FreeformTextEdit *>(); }
    QToolButton &button(const QString &name) { return *window().findChild<QToolButton *>(name); }
    template <typename Widget>
    Widget *topLevel()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *found = qobject_cast<Widget *>(widget))
                return found;
        }
        return nullptr;
    }
    void triggerApplicationItem(const QString &text);
    void find(const QString &key, Qt::KeyboardModifiers modifiers = {})
    {
        entry().setText(key);
        QTest::keyClick(&entry(), Qt::Key_Return, modifiers);
    }

    std::unique_ptr<QTemporaryDir> g_folder;
    std::unique_ptr<Preferences> g_preferences;
    std::unique_ptr<ApplicationWindows> g_windows;
    std::unique_ptr<MainController> g_controller;
};

void FindBoxTest::init()
{
    g_folder = std::make_unique<QTemporaryDir>();
    const QString path = g_folder->filePath(u"people.tv3"_s);
    QVERIFY(QFile::copy(QStringLiteral(TAVRIN_SAMPLES "/Address Book.tv3"), path));
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
    g_preferences = std::make_unique<Preferences>();
    g_windows = std::make_unique<ApplicationWindows>(*g_preferences);
    g_controller = std::make_unique<MainController>(
        *g_preferences, Environment::system(), *g_windows, g_windows->sheets(), g_windows->work());
    g_windows->setController(*g_controller);
    g_controller->finishLaunchingStuff();
    g_controller->openDatafile(path);
    QTRY_COMPARE(g_controller->openDatafileCount(), 1);
    QVERIFY(QTest::qWaitForWindowExposed(&window()));
    window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window()));
    window().controller().setMode(u"Basic"_s);
}

void FindBoxTest::cleanup()
{
    g_controller.reset();
    g_windows.reset();
    g_preferences.reset();
    g_folder.reset();
}

void FindBoxTest::triggerApplicationItem(const QString &text)
{
    for (QAction *action : window().findChildren<QAction *>()) {
        if (action->text() == text)
            action->trigger();
    }
}

void FindBoxTest::returnFindsAndColours()
{
    QCOMPARE(window().focusWidget(), &entry());
    find(u"thread"_s);
    QCOMPARE(text().textCursor().selectedText(), u"thread"_s);
    QCOMPARE(text().extraSelections().size(), 1);
    QVERIFY(entry().hasFocus());
    QCOMPARE(entry().selectedText(), u"thread"_s);
    window().findChild<QAction *>(u"goToNextRecord:"_s)->trigger();
    QVERIFY(text().extraSelections().isEmpty());
    // The key and its menu item do the same.
    window().findChild<QAction *>(u"forwardSearch:"_s)->trigger();
    QCOMPARE(text().textCursor().selectedText(), u"thread"_s);
    QCOMPARE(window().controller().indexOfCurrentRecord(), 0);
}

void FindBoxTest::undoTakesBackWhatWasDoneLast()
{
    QTest::keyClicks(&entry(), u"thread"_s);
    QVERIFY(entry().isUndoAvailable());
    const qsizetype count = document().datafileRecords().count();
    window().findChild<QAction *>(u"addRecord:"_s)->trigger();
    QCOMPARE(document().datafileRecords().count(), count + 1);
    entry().setFocus();
    QTest::keyClick(&entry(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(document().datafileRecords().count(), count);
    QCOMPARE(entry().text(), u"thread"_s);
}

void FindBoxTest::keysGoWithReturn_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("isOtherRecord");
    QTest::addColumn<bool>("focusStays");
    const Qt::KeyboardModifiers none;
    QTest::newRow("none") << none << false << true;
    QTest::newRow("Alt") << Qt::KeyboardModifiers(Qt::AltModifier) << true << true;
    QTest::newRow("Ctrl") << Qt::KeyboardModifiers(Qt::ControlModifier) << false << false;
    QTest::newRow("Shift, Alt") << Qt::KeyboardModifiers(Qt::ShiftModifier | Qt::AltModifier) << true << true;
}

void FindBoxTest::keysGoWithReturn()
{
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    find(u"e"_s, modifiers);
    QTEST(window().controller().indexOfCurrentRecord() != 0, "isOtherRecord");
    QTEST(entry().hasFocus(), "focusStays");
}

void FindBoxTest::hitsAreNoPartOfTheText()
{
    window().controller().goToNextRecord();
    const QString identifier = window().controller().currentRecord()->identifier();
    const QString stored = window().controller().currentRecord()->textString();
    text().setText(richtext::AttributedText(stored), {});
    find(stored.left(3));
    find(stored.left(3));
    QVERIFY(!text().document()->isModified());
    window().controller().updateCurrentRecord();
    QCOMPARE(document().datafileRecords().recordForIdentifier(identifier)->textString(), stored);
    QVERIFY(!window().isWindowModified());
}

void FindBoxTest::aHitInAFieldIsEditedWithControl()
{
    window().controller().goToNextRecord(); // The first one is locked.
    auto &table = *window().findChild<RecordTableView *>(u"basicTableView"_s);
    const QString value = table.model()->index(0, 1).data().toString();
    entry().setText(value.mid(2, 3));
    window().findChild<QAction *>(u"forwardSearchToHit:"_s)->trigger();
    auto *editor = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    QVERIFY(editor && editor != &entry());
    QCOMPARE(editor->selectedText(), value.mid(2, 3));
    QTest::keyClick(editor, Qt::Key_Escape);
    QCOMPARE(table.model()->index(0, 1).data().toString(), value);
}

void FindBoxTest::buttonsSayWhatTheyDo()
{
    QToolButton &forward = button(u"findBoxForward"_s);
    QToolButton &toggle = button(u"findBoxToggle"_s);
    QVERIFY(forward.toolTip().startsWith(u"Perform forward search for text in Find Box.\n"));
    QTest::mouseClick(&toggle, Qt::LeftButton);
    QVERIFY(forward.toolTip().startsWith(u"Select records that contain text in Find Box.\n"));
    QVERIFY(button(u"findBoxReverse"_s).toolTip().startsWith(u"Select ALL records.\n"));
    entry().setText(u"bindery"_s);
    QTest::mouseClick(&forward, Qt::LeftButton);
    QTRY_COMPARE(window().controller().countSelected(), 1);
    QTest::mouseClick(&button(u"findBoxReverse"_s), Qt::LeftButton);
    QVERIFY(window().controller().countSelected() > 1);
    const bool wasInternetStyle = window().controller().search().isInternetStyle();
    Q_EMIT toggle.customContextMenuRequested({});
    toggle.findChild<QMenu *>()->actions().at(1)->trigger();
    QVERIFY(window().controller().search().isInternetStyle() != wasInternetStyle);
    toggle.findChild<QMenu *>()->close();
    for (const QString &name : {u"findBoxForward"_s, u"findBoxReverse"_s, u"findBoxToggle"_s}) {
        QVERIFY(!button(name).accessibleName().isEmpty());
    }
}

void FindBoxTest::theCountLeavesOtherMessages()
{
    const auto shown = [this] { return window().statusBar()->currentMessage(); };
    entry().setText(u"bindery"_s);
    QTRY_VERIFY(shown().contains(u" of "_s));
    Q_EMIT window().controller().statusMessage(u"Records imported: 2"_s);
    Q_EMIT document().changed({});
    QTest::qWait(500);
    QCOMPARE(shown(), u"Records imported: 2"_s);
    entry().setText(u"e"_s);
    QTRY_VERIFY(shown().contains(u" of "_s));
    entry().clear();
    QVERIFY(shown().isEmpty());
}

void FindBoxTest::thePanelReplacesInTheFrontWindow()
{
    window().controller().goToNextRecord();
    triggerApplicationItem(u"Find and R&eplace…"_s);
    auto *panel = topLevel<FindAndReplacePanel>();
    QVERIFY(panel && panel->isVisible());
    const QList<QLineEdit *> entries = panel->findChildren<QLineEdit *>();
    const QString value = window().controller().currentRecord()->fieldValue(
        document().datafileSettings().fields().at(0).identifier());
    entries.at(0)->setText(value);
    entries.at(1)->setText(u"Other & Sons"_s);
    const auto press = [&](const QString &text) {
        for (QPushButton *pushed : panel->findChildren<QPushButton *>()) {
            if (pushed->text() == text)
                pushed->click();
        }
    };
    press(u"Find Ne&xt"_s);
    press(u"&Replace"_s);
    QCOMPARE(window().controller().currentRecord()->fieldValue(
                 document().datafileSettings().fields().at(0).identifier()),
             u"Other & Sons"_s);
    QVERIFY(window().isWindowModified());
    window().controller().undo();
    QVERIFY(!window().isWindowModified());
}

void FindBoxTest::severalFilesAreListedSortedAndCopied()
{
    triggerApplicationItem(u"&Multi-File Find…"_s);
    auto *files = topLevel<MultiFileFindWindow>();
    QVERIFY(files && files->isVisible());
    auto *entered = files->findChild<QLineEdit *>();
    entered->setText(u"bindery"_s);
    QTest::keyClick(entered, Qt::Key_Return);
    auto *table = files->findChild<QTableView *>();
    const auto last = [&] {
        return table->model()->index(table->model()->rowCount() - 1, 4).data().toString();
    };
    QTRY_COMPARE(last(), u"<<Search Completed>>"_s);
    const auto fields = [&] {
        QStringList contents;
        for (int row = 0; row < table->model()->rowCount() - 1; ++row)
            contents.append(table->model()->index(row, 3).data().toString());
        return contents;
    };
    QStringList sorted = fields();
    QVERIFY(sorted.size() > 1);
    std::ranges::sort(sorted);
    table->sortByColumn(3, Qt::AscendingOrder);
    QTRY_COMPARE(fields(), sorted);
    std::ranges::reverse(sorted);
    table->sortByColumn(3, Qt::DescendingOrder);
    QTRY_COMPARE(fields(), sorted);
    QCOMPARE(last(), u"<<Search Completed>>"_s);
    table->sortByColumn(-1, Qt::AscendingOrder);
    table->selectAll();
    table->setCurrentIndex(table->model()->index(0, 0));
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    QVERIFY(QApplication::clipboard()->text().startsWith(u"people.tv3\t1\t"));
    window().controller().goToLastRecord();
    QTest::keyClick(table, Qt::Key_Return);
    QCOMPARE(window().controller().indexOfCurrentRecord(), 0);
}

void FindBoxTest::colorsCanBeRead()
{
    for (const QColor &paper :
         {QColor(Qt::white), QColor(Qt::black), QColor(u"#202124"_s), QColor(u"#ffffcc"_s)}) {
        for (const QColor &color : {QColor(Qt::red), QColor(Qt::yellow), QColor(Qt::blue), paper}) {
            const HitColors hit(color, paper);
            QCOMPARE(readableColor(hit.text, hit.mark), hit.text.toHsl());
            QVERIFY(hit.mark != paper || paper == Qt::black);
        }
    }
}

QTEST_MAIN(FindBoxTest)
#include "FindBoxTest.moc"
