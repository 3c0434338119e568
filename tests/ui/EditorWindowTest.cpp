// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/EditorWindow.h"

#include "app/MainController.h"
#include "document/DatafileDocument.h"
#include "model/Preferences.h"
#include "ui/ApplicationMenus.h"
#include "ui/ApplicationWindows.h"
#include "ui/CellEditor.h"
#include "ui/Commands.h"
#include "ui/FreeformTextEdit.h"
#include "ui/RecordTableView.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

/// The main job, done by keyboard and mouse on a real datafile in a real window.
class EditorWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void aFieldEditedByKeyboardIsFoundAgainInTheFile();
    void aTextTypedIsFoundAgainInTheFile();
    void tabAndBacktabWalkThroughTheFieldsAndWrap();
    void whoTypesAtOnceTypesIntoTheFirstField();
    void escapePutsTheOldValueBack();
    void lookingThroughCellsChangesNothing();
    void whatIsTypedOutlivesScalingAndSaving();
    void switchingViewsFromACellKeepsRecordAndField();
    void listViewShowsTheRowThatIsChosen();
    void whatIsTypedIsCleanedAtOnce();
    void everyCommandIsInAMenu();
    void everyControlHasAName();
    void menusAreForTheTextThatWasLeftForThem();
    void typingOnALockedRecordChangesNoOther();
    void noTwoActionsShareAShortcut();
    void noShortcutAndNoMnemonicIsGivenTwice();

private:
    EditorWindow &window() { return *dynamic_cast<EditorWindow *>(g_controller->windowOf(document())); }
    DatafileDocument &document() { return *g_controller->documents().constFirst(); }
    RecordTableView &table(const QString &name) { return *window().findChild<RecordTableView *>(name); }
    QLineEdit *cellEditor() { return qobject_cast<QLineEdit *>(QApplication::focusWidget()); }
    void trigger(const QString &selector) { window().findChild<QAction *>(selector)->trigger(); }
    QString fieldInFile(int field);

    std::unique_ptr<QTemporaryDir> g_folder;
    std::unique_ptr<Preferences> g_preferences;
    std::unique_ptr<ApplicationWindows> g_windows;
    std::unique_ptr<MainController> g_controller;
    QString g_path;
};

void EditorWindowTest::init()
{
    g_folder = std::make_unique<QTemporaryDir>();
    g_path = g_folder->filePath(u"people.tv3"_s);
    QVERIFY(QFile::copy(QStringLiteral(TAVRIN_SAMPLES "/Address Book.tv3"), g_path));
    QVERIFY(QFile::setPermissions(g_path, QFile::ReadOwner | QFile::WriteOwner));
    g_preferences = std::make_unique<Preferences>();
    g_windows = std::make_unique<ApplicationWindows>(*g_preferences);
    g_controller = std::make_unique<MainController>(
        *g_preferences, Environment::system(), *g_windows, g_windows->sheets(), g_windows->work());
    g_windows->setController(*g_controller);
    g_controller->finishLaunchingStuff();
    g_controller->openDatafile(g_path);
    QTRY_COMPARE(g_controller->openDatafileCount(), 1);
    QVERIFY(QTest::qWaitForWindowExposed(&window()));
    window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window()));
    window().controller().setMode(u"Basic"_s);
    QTRY_VERIFY(window().controller().canSaveChanges());
    // The sample's first record is locked.
    trigger(u"goToNextRecord:"_s);
    QVERIFY(!window().controller().currentRecordLocked());
}

void EditorWindowTest::cleanup()
{
    g_controller.reset();
    g_windows.reset();
    g_preferences.reset();
    g_folder.reset();
}

QString EditorWindowTest::fieldInFile(int field)
{
    const auto written = DatafileDocument::open(document().services(), g_path, SelectionOnOpening::AsStored);
    const QString identifier = window().controller().currentRecord()->identifier();
    const RecordData *record = (*written)->datafileRecords().recordForIdentifier(identifier);
    return record->fieldValue((*written)->datafileSettings().fields().at(field).identifier());
}

void EditorWindowTest::aFieldEditedByKeyboardIsFoundAgainInTheFile()
{
    RecordTableView &fields = table(u"basicTableView"_s);
    QTest::mouseClick(
        fields.viewport(), Qt::LeftButton, {}, fields.visualRect(fields.model()->index(1, 1)).center());
    QVERIFY(cellEditor());
    cellEditor()->selectAll();
    QTest::keyClicks(cellEditor(), u"Ferry & Sons"_s);
    QVERIFY(window().isWindowModified());
    QTest::keyClick(cellEditor(), Qt::Key_Return);

    trigger(u"saveDocument:"_s);
    document().waitForSaving();

    QCOMPARE(fieldInFile(1), u"Ferry & Sons"_s);
    QVERIFY(!window().isWindowModified());
}

void EditorWindowTest::aTextTypedIsFoundAgainInTheFile()
{
    auto *text = window().findChild<FreeformTextEdit *>();
    text->setFocus();
    QTest::keyClicks(text, u"Typed "_s);
    const QString shown = text->plainCharacters();
    const QString identifier = window().controller().currentRecord()->identifier();

    trigger(u"goToNextRecord:"_s);
    QVERIFY(window().controller().currentRecord()->identifier() != identifier);
    trigger(u"saveDocument:"_s);
    document().waitForSaving();

    const auto written = DatafileDocument::open(document().services(), g_path, SelectionOnOpening::AsStored);
    QCOMPARE((*written)->datafileRecords().recordForIdentifier(identifier)->textString(), shown);
}

void EditorWindowTest::tabAndBacktabWalkThroughTheFieldsAndWrap()
{
    RecordTableView &fields = table(u"basicTableView"_s);
    const int last = fields.model()->rowCount() - 1;
    fields.editCell(last, 1);
    QVERIFY(cellEditor());

    QTest::keyClick(cellEditor(), Qt::Key_Tab);
    QCOMPARE(fields.currentIndex().row(), 0);
    QVERIFY(cellEditor());
    QTest::keyClick(cellEditor(), Qt::Key_Backtab);
    QCOMPARE(fields.currentIndex().row(), last);
}

void EditorWindowTest::whoTypesAtOnceTypesIntoTheFirstField()
{
    RecordTableView &fields = table(u"basicTableView"_s);
    fields.setCurrentIndex({});
    window().findChild<FreeformTextEdit *>()->setFocus();
    fields.setFocus();
    QTest::keyClick(&fields, Qt::Key_Left);

    QTest::keyClick(&fields, Qt::Key_X);

    QVERIFY(cellEditor());
    QCOMPARE(fields.currentIndex(), fields.model()->index(0, 1));
}

void EditorWindowTest::escapePutsTheOldValueBack()
{
    RecordTableView &fields = table(u"basicTableView"_s);
    const QString before = fields.model()->index(0, 1).data().toString();
    fields.editCell(0, 1);
    QVERIFY(cellEditor());
    QTest::keyClicks(cellEditor(), u"nobody"_s);
    QTest::keyClick(cellEditor(), Qt::Key_Escape);

    QCOMPARE(fields.model()->index(0, 1).data().toString(), before);
}

void EditorWindowTest::lookingThroughCellsChangesNothing()
{
    RecordTableView &fields = table(u"basicTableView"_s);
    fields.editCell(0, 1);
    for (int i = 0; i < fields.model()->rowCount() + 1; ++i) {
        QVERIFY(cellEditor());
        QTest::keyClick(cellEditor(), Qt::Key_Tab);
    }
    trigger(u"goToNextRecord:"_s);

    QVERIFY(!document().isModified());
}

void EditorWindowTest::whatIsTypedOutlivesScalingAndSaving()
{
    table(u"basicTableView"_s).editCell(0, 1);
    QTest::keyClicks(cellEditor(), u"Half a word"_s);
    cellEditor()->setCursorPosition(4);
    window().controller().setTextScale(7);
    QVERIFY(cellEditor());
    QCOMPARE(cellEditor()->text(), u"Half a word"_s);
    trigger(u"saveDocument:"_s);
    document().waitForSaving();
    QCOMPARE(cellEditor()->cursorPosition(), 4);
    QCOMPARE(fieldInFile(0), u"Half a word"_s);

    // In List View the cell is left, and what is typed next is no longer for it.
    window().controller().setMode(u"List"_s);
    table(u"listTableView"_s).editCell(1, 0);
    QTest::keyClicks(cellEditor(), u"listed"_s);
    trigger(u"saveDocument:"_s);
    document().waitForSaving();
    QVERIFY(!table(u"listTableView"_s).isEditing());
    QTest::keyClicks(QApplication::focusWidget(), u"xyz"_s);
    QVERIFY(!table(u"listTableView"_s).isEditing());
    QCOMPARE(fieldInFile(0), u"listed"_s);
}

void EditorWindowTest::switchingViewsFromACellKeepsRecordAndField()
{
    RecordTableView &fields = table(u"basicTableView"_s);
    RecordTableView &list = table(u"listTableView"_s);
    fields.editCell(2, 1);
    trigger(u"switchView:"_s);
    QCOMPARE(window().controller().indexOfCurrentRecord(), 1);
    QCOMPARE(list.currentIndex(), list.model()->index(1, 2));
    QVERIFY(list.isEditing());
    trigger(u"switchView:"_s);
    QCOMPARE(fields.currentIndex(), fields.model()->index(2, 1));
    QVERIFY(fields.isEditing());
}

void EditorWindowTest::listViewShowsTheRowThatIsChosen()
{
    trigger(u"goToFirstRecord:"_s);
    window().controller().setMode(u"List"_s);
    RecordTableView &list = table(u"listTableView"_s);
    QVERIFY(list.isVisible());
    QCOMPARE(list.currentIndex().row(), 0);

    QTest::mouseClick(
        list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(3, 0)).center());
    QCOMPARE(window().controller().indexOfCurrentRecord(), 3);
    const QString text = window().findChild<FreeformTextEdit *>()->plainCharacters();
    QCOMPARE(text, window().controller().currentRecord()->textString());

    list.endEditing();
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Down);
    QCOMPARE(window().controller().indexOfCurrentRecord(), 4);
}

/// Every command is in a menu, unless nobody has built it yet.
void EditorWindowTest::everyCommandIsInAMenu()
{
    QSet<QString> inMenus;
    const std::function<void(const QList<QAction *> &)> collect = [&](const QList<QAction *> &actions) {
        for (const QAction *action : actions) {
            inMenus.insert(action->objectName());
            if (action->menu())
                collect(action->menu()->actions());
        }
    };
    collect(window().menuBar()->actions());
    for (const QString &selector : EditorWindowController::knownActions())
        QVERIFY2(inMenus.contains(selector) || !commandForSelector(selector), qPrintable(selector));
    for (const QAction *action : window().findChildren<QAction *>()) {
        if (action->objectName().endsWith(u':'))
            QVERIFY2(inMenus.contains(action->objectName()), qPrintable(action->objectName()));
    }
    QVERIFY(inMenus.contains(u"insertDateTime:"_s) && inMenus.contains(u"copy:"_s));
}

void EditorWindowTest::everyControlHasAName()
{
    g_preferences->setObject(true, u"EditorToolbarHidden"_s);
    g_preferences->setObject(false, u"EditorToolbarHidden"_s);
    int buttons = 0;
    for (const QAbstractButton *button : window().findChildren<QAbstractButton *>()) {
        // Parts of the platform's own widgets: the corner of a table, the toolbar's overflow, a line's cross.
        const bool isOurs = !button->objectName().startsWith("qt_"_L1)
                            && !qobject_cast<QLineEdit *>(button->parent())
                            && QByteArray(button->metaObject()->className()) != "QTableCornerButton";
        buttons += isOurs ? 1 : 0;
        QVERIFY2(!isOurs || !button->accessibleName().isEmpty() || !button->text().isEmpty(),
                 button->parent()->metaObject()->className());
    }
    QVERIFY(buttons > 10);
    for (const QString &name : {u"basicTableView"_s, u"listTableView"_s})
        QVERIFY(!table(name).accessibleName().isEmpty());
    table(u"basicTableView"_s).editCell(1, 1);
    QVERIFY(cellEditor());
    QCOMPARE(cellEditor()->accessibleName(), u"Company"_s);
}

void EditorWindowTest::menusAreForTheTextThatWasLeftForThem()
{
    window().controller().goToNextRecord(); // The first one is locked.
    auto *text = window().findChild<FreeformTextEdit *>();
    text->setFocus();
    text->selectAll();
    window().menuBar()->setFocus(Qt::MenuBarFocusReason);
    QVERIFY(window().focus() == EditorFocus::FreeformText);
    QVERIFY(window().findChild<QAction *>(u"addFontTrait:bold"_s)->isEnabled());
    window().menuBar()->actions().at(1)->menu()->popup(QPoint());
    QVERIFY(window().findChild<QAction *>(u"copy:"_s)->isEnabled());
    window().menuBar()->actions().at(1)->menu()->close();

    table(u"basicTableView"_s).editCell(0, 1);
    const QLineEdit *cell = cellEditor();
    window().menuBar()->setFocus(Qt::MenuBarFocusReason);
    QVERIFY(table(u"basicTableView"_s).isEditing());
    window().insertTyped(u"stamp"_s);
    QVERIFY(cell->text().endsWith("stamp"_L1));
}

void EditorWindowTest::typingOnALockedRecordChangesNoOther()
{
    window().controller().setMode(u"List"_s);
    RecordTableView &list = table(u"listTableView"_s);
    list.setFocus();
    list.setCurrentIndex(list.model()->index(0, 0)); // The first one is locked.
    for (const char letter : {'y', 'q'})
        QTest::keyClick(&list, letter);
    QCOMPARE(list.currentIndex().row(), 0);
    QVERIFY(!list.isEditing());
}

void EditorWindowTest::noTwoActionsShareAShortcut()
{
    QHash<QString, QString> shortcuts;
    for (const QAction *action : window().findChildren<QAction *>()) {
        for (const QKeySequence &keys : action->shortcuts()) {
            const QString other = shortcuts.value(keys.toString());
            QVERIFY2(other.isEmpty(),
                     qPrintable(QStringList({keys.toString(), other, action->text()}).join(u' ')));
            shortcuts.insert(keys.toString(), action->text());
        }
    }
    QVERIFY(shortcuts.size() > 30);
}

void EditorWindowTest::whatIsTypedIsCleanedAtOnce()
{
    RecordTableView &fields = table(u"basicTableView"_s);
    for (const bool wraps : {false, true}) {
        window().endTableEditing(); // Return led to the next field.
        document().datafileSettings().setFieldWrapping(wraps);
        document().datafileSettings().setLiveFieldWrapping(wraps);
        Q_EMIT window().controller().titleChanged();
        fields.editCell(0, 1);
        QWidget *editor = QApplication::focusWidget();
        QVERIFY(isCellEditor(editor) && (qobject_cast<WrappedCellEdit *>(editor) != nullptr) == wraps);
        QVERIFY(!cellText(editor).isEmpty());
        QTest::keyClick(editor, Qt::Key_Delete);
        const int before = fields.rowHeight(0);
        QApplication::clipboard()->setText(u"one\ttwo\nthree "_s.repeated(12));
        QTest::keySequence(editor, QKeySequence::Paste);
        QVERIFY(cellText(editor).startsWith("one two three one two"_L1));
        QVERIFY2((fields.rowHeight(0) > before) == wraps,
                 qPrintable(u"%1 to %2"_s.arg(before).arg(fields.rowHeight(0))));
        QTest::keyClick(editor, Qt::Key_Return);
        QCOMPARE(window().controller().currentRecord()->fieldValue(
                     document().datafileSettings().fields().front().identifier()),
                 u"one two three "_s.repeated(12));
    }
}

void EditorWindowTest::noShortcutAndNoMnemonicIsGivenTwice()
{
    QSet<QString> shortcuts;
    QList<const QMenu *> menus;
    for (const QAction *top : window().menuBar()->actions())
        menus.append(top->menu());
    while (!menus.isEmpty()) {
        QSet<QChar> mnemonics;
        for (const QAction *item : menus.takeFirst()->actions()) {
            if (item->isSeparator())
                continue;
            if (item->menu())
                menus.append(item->menu());
            // Sizes and fields have none.
            if (const qsizetype mark = item->text().indexOf(u'&'); mark >= 0) {
                const QChar mnemonic = item->text().at(mark + 1).toLower();
                QVERIFY2(!mnemonics.contains(mnemonic), qPrintable(item->text()));
                mnemonics.insert(mnemonic);
            }
            for (const QKeySequence &keys : item->shortcuts()) {
                QVERIFY2(!keys.isEmpty() && !shortcuts.contains(keys.toString()), qPrintable(item->text()));
                shortcuts.insert(keys.toString());
            }
        }
    }
    QVERIFY(shortcuts.contains(u"Ctrl+S"_s));
}

QTEST_MAIN(EditorWindowTest)
#include "EditorWindowTest.moc"
