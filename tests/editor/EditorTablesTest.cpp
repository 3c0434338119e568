// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "EditorFixture.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace tavrin;

class EditorTablesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theModelsKeepTheirPromises();
    void theTextColumnShowsTheStartOfTheText_data();
    void theTextColumnShowsTheStartOfTheText();
    void hiddenFieldsShiftTheColumns();
    void switchingViewsKeepsTheField_data();
    void switchingViewsKeepsTheField();
    void eachViewHasItsOwnFrameAndDivider();
    void withoutFieldsThereIsOnlyListView();
    void aResizedColumnIsStored();
    void aHeaderClickSizesByTheKeysHeld();
    void columnsAreAsWideAsTheirContentOrTitle();
    void rowsGrowWithWhatTheyWrap();
    void whatIsDroppedOrTypedIsCleanedAndCanBeTakenBack();
    void typingDoesNotResetTheCell();
    void anotherTextScaleKeepsWhatIsTyped();
};

void EditorTablesTest::theModelsKeepTheirPromises()
{
    EditorFixture editor({u"A"_s, u"B"_s, u""_s});
    editor.settings.insert(u"Mode"_s, u"List"_s);
    editor.open();
    const auto mode = QAbstractItemModelTester::FailureReportingMode::QtTest;
    const QAbstractItemModelTester basic(&editor.basic(), mode);
    const QAbstractItemModelTester list(&editor.list(), mode);

    editor.window->addRecord();
    QCOMPARE(editor.list().rowCount(), 4);
    editor.list().setData(editor.list().index(1, 1), u"new"_s, Qt::EditRole);
    editor.window->goToLastRecord();
    editor.window->goToNextRecord();
    editor.document->addFieldNamesToDocument({u"C"_s});

    QCOMPARE(editor.list().rowCount(), 3);
    QCOMPARE(editor.list().columnCount(), 4);
    QCOMPARE(editor.basic().rowCount(), 3);
    QCOMPARE(editor.view.selectedRow, 1);
}

void EditorTablesTest::theTextColumnShowsTheStartOfTheText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a short first line") << u"one\ntwo"_s << u"one"_s;
    QTest::newRow("no line end") << QString(500, u'x') << QString(300, u'x');
    QTest::newRow("a line end behind the limit") << QString(300, u'x') + u"\nrest"_s << QString(300, u'x');
    QTest::newRow("starts with a line end") << u"\ntwo"_s << u""_s;
}

void EditorTablesTest::theTextColumnShowsTheStartOfTheText()
{
    QFETCH(const QString, text);
    EditorFixture editor;
    editor.entries[1].text = text;
    editor.open();

    const QModelIndex cell = editor.list().index(1, 2);

    QTEST(cell.data().toString(), "shown");
    QVERIFY(!cell.flags().testFlag(Qt::ItemIsEditable));
}

void EditorTablesTest::hiddenFieldsShiftTheColumns()
{
    EditorFixture editor({u"A"_s});
    editor.fields = {u"w"_s, u"x"_s, u"a"_s, u"z"_s};
    editor.hiddenFields = {u"w"_s, u"z"_s};
    editor.open();
    const EditorTableController &tables = editor.window->tableController();

    QCOMPARE(editor.list().columnCount(), 3);
    QCOMPARE(editor.list().index(0, 1).data().toString(), u"A"_s);
    QCOMPARE(editor.list().headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), u"A"_s);
    const QList<int> columns{0, 0, 1, 1};
    for (int field = 0; field < columns.size(); ++field)
        QCOMPARE(tables.listColumnForField(field), columns.at(field));
    const QList<int> fields{1, 2, 3};
    for (int column = 0; column < fields.size(); ++column)
        QCOMPARE(tables.fieldForListColumn(column), fields.at(column));
}

void EditorTablesTest::switchingViewsKeepsTheField_data()
{
    QTest::addColumn<EditorFocus>("focus");
    QTest::addColumn<std::pair<int, int>>("cellInList");
    QTest::addColumn<std::pair<int, int>>("cellInBasic");
    QTest::newRow("in the table") << EditorFocus::Table << std::pair(2, 1) << std::pair(1, 1);
    QTest::newRow("in the text") << EditorFocus::FreeformText << std::pair(-1, -1) << std::pair(-1, -1);
}

void EditorTablesTest::switchingViewsKeepsTheField()
{
    QFETCH(const EditorFocus, focus);
    EditorFixture editor;
    editor.open(u"r2"_s);
    editor.view.focused = focus;
    editor.window->tableController().setCurrentField(1);
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"typed"_s);

    editor.window->switchView();
    QCOMPARE(editor.window->mode(), u"List"_s);
    QCOMPARE(editor.valueIn(u"r2"_s), u"typed"_s);
    QCOMPARE(editor.view.selectedRow, 2);
    QTEST(editor.view.editedCell, "cellInList");
    QVERIFY(editor.document->datafileSettings().datafileSettingsDidChange());

    editor.window->switchView();
    QCOMPARE(editor.window->mode(), u"Basic"_s);
    QTEST(editor.view.editedCell, "cellInBasic");
    QCOMPARE(editor.view.focused, focus);
    QCOMPARE(editor.shown(), u"r2"_s);
}

void EditorTablesTest::eachViewHasItsOwnFrameAndDivider()
{
    EditorFixture editor;
    editor.settings.insert(u"ListViewFrame"_s, u"1 2 3 4 0 0 9 9 "_s);
    editor.settings.insert(u"ListSplitHeight"_s, 77.0);
    editor.open();
    QVERIFY(!editor.document->datafileSettings().datafileSettingsDidChange());

    editor.window->switchView();
    QCOMPARE(editor.view.frameText, u"1 2 3 4 0 0 9 9 "_s);
    QCOMPARE(editor.view.split, 77.0);
    editor.view.split = 99;
    editor.window->viewGeometryDidChange();

    QCOMPARE(editor.document->datafileSettings().listSplitHeight(), 99.0F);
    QCOMPARE(editor.document->datafileSettings().basicSplitHeight(), -1.0F);
    QCOMPARE(editor.document->datafileSettings().basicViewFrame(), u"10 20 800 600 0 0 1920 1080 "_s);
}

void EditorTablesTest::withoutFieldsThereIsOnlyListView()
{
    EditorFixture editor;
    editor.fields.clear();
    editor.open();

    QCOMPARE(editor.window->mode(), u"List"_s);
    QCOMPARE(editor.list().columnCount(), 1);
    QCOMPARE(editor.window->tableController().columnWidth(0), 3000.0);
    QVERIFY(!editor.window->validateAction(u"switchView:"_s));
    editor.window->switchView();
    QCOMPARE(editor.window->mode(), u"List"_s);
    editor.window->tableController().listRowSelected(1);
    QCOMPARE(editor.shown(), u"r1"_s);
    QCOMPARE(editor.view.focused, EditorFocus::FreeformText);
}

void EditorTablesTest::aResizedColumnIsStored()
{
    EditorFixture editor;
    editor.hiddenFields = {u"a"_s};
    editor.open();
    EditorTableController &tables = editor.window->tableController();

    tables.columnDidResize(0, 210);
    tables.columnDidResize(1, 420);

    QCOMPARE(editor.document->datafileSettings().fields().at(1).width(), 210.0);
    QCOMPARE(editor.document->datafileSettings().textColumnWidth(), 420.0F);
    QCOMPARE(tables.columnWidth(1), 420.0);
    QVERIFY(editor.document->datafileSettings().datafileSettingsDidChange());
    QVERIFY(!editor.document->isModified());

    editor.document->datafileSettings().setDatafileSettingsDidChange(false);
    editor.preferences.setObject(true, u"GeneralNoUpdateForViewChanges"_s);
    tables.columnDidResize(0, 220);
    QVERIFY(!editor.document->datafileSettings().datafileSettingsDidChange());
}

void EditorTablesTest::aHeaderClickSizesByTheKeysHeld()
{
    const auto click = [](Qt::KeyboardModifiers keys) { return headerClickFor(keys); };
    QCOMPARE(click(Qt::NoModifier), HeaderClick::Nothing);
    QCOMPARE(click(Qt::ShiftModifier), HeaderClick::Nothing);
    QCOMPARE(click(Qt::ControlModifier), HeaderClick::AllToLarger);
    QCOMPARE(click(Qt::AltModifier), HeaderClick::ThisToContent);
    QCOMPARE(click(Qt::AltModifier | Qt::ShiftModifier), HeaderClick::ThisToTitle);
    QCOMPARE(click(Qt::AltModifier | Qt::ControlModifier), HeaderClick::AllToLarger);
    QCOMPARE(click(Qt::AltModifier | Qt::MetaModifier), HeaderClick::AllToContent);
    QCOMPARE(click(Qt::AltModifier | Qt::MetaModifier | Qt::ShiftModifier), HeaderClick::AllToTitle);
}

void EditorTablesTest::columnsAreAsWideAsTheirContentOrTitle()
{
    EditorFixture editor({u"a value that takes a lot of room"_s, u"B"_s});
    editor.fields = {u"a"_s, u"a name that is longer than what stands below it"_s};
    editor.open();
    const QStringList order = editor.identifiers();
    EditorTableController &tables = editor.window->tableController();
    tables.headerClicked(0, HeaderClick::AllToContent);
    const double content = tables.columnWidth(0);
    QVERIFY(content > tables.columnWidth(1));

    tables.headerClicked(0, HeaderClick::AllToLarger);
    QCOMPARE(tables.columnWidth(0), content);
    QVERIFY(tables.columnWidth(1) > content);
    QCOMPARE(tables.columnWidth(2), 300.0);
    tables.headerClicked(0, HeaderClick::ThisToTitle);
    QVERIFY(tables.columnWidth(0) < content);
    QCOMPARE(editor.identifiers(), order);
    QVERIFY(!editor.document->isModified());
}

void EditorTablesTest::rowsGrowWithWhatTheyWrap()
{
    EditorFixture editor;
    editor.open();
    const EditorTableController &tables = editor.window->tableController();
    const double line = tables.wrappedHeight({}, 300);
    QVERIFY(line > 0);
    QCOMPARE(tables.wrappedHeight(u"short"_s, 300), line);
    QVERIFY(tables.wrappedHeight(u"words "_s.repeated(60), 300) > 3 * line);
    QVERIFY(tables.wrappedHeight(QString(300, u'x'), 300) > 3 * line);
}

void EditorTablesTest::whatIsDroppedOrTypedIsCleanedAndCanBeTakenBack()
{
    EditorFixture editor;
    editor.entries[1].locked = true;
    editor.open();
    ListTableModel &list = editor.window->tableController().listTableModel();
    QVERIFY(list.dropText(list.index(0, 0), u"a\tb\nc"_s));
    QCOMPARE(editor.valueIn(u"r0"_s), u"a b c"_s);
    QVERIFY(editor.document->isModified());
    QVERIFY(!list.dropText(list.index(1, 0), u"x"_s));
    QVERIFY(!list.dropText(list.index(0, 2), u"x"_s));
    const QSignalSpy told(editor.window.get(), &EditorWindowController::statusMessage);
    editor.window->undo();
    QCOMPARE(editor.valueIn(u"r0"_s), u"A"_s);
    QCOMPARE(told.last().first().toString(), u"Undone: Drop Text"_s);

    QVERIFY(list.setData(list.index(0, 0), u"typed"_s, Qt::EditRole));
    QVERIFY(editor.window->redoName().isEmpty());
    editor.window->undo();
    QCOMPARE(editor.valueIn(u"r0"_s), u"A"_s);
    editor.window->redo();
    QCOMPARE(editor.valueIn(u"r0"_s), u"typed"_s);
}

void EditorTablesTest::typingDoesNotResetTheCell()
{
    EditorFixture editor;
    editor.open();
    const QSignalSpy changes(&editor.basic(), &QAbstractItemModel::dataChanged);

    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"half a wo"_s);

    QCOMPARE(changes.size(), 0);
    editor.view.endTableEditing();
    QVERIFY(!changes.isEmpty());
}

void EditorTablesTest::anotherTextScaleKeepsWhatIsTyped()
{
    EditorFixture editor;
    editor.open();
    editor.window->tableController().setCurrentField(1);
    editor.view.typeInCell(*editor.window, editor.basic(), 0, 1, u"half a wo"_s);
    editor.view.cellSelection = {4, 1};

    editor.window->setTextScale(7);

    // Setting the tables up anew ends what is edited in them.
    QCOMPARE(editor.valueIn(u"r0"_s), u"half a wo"_s);
    QCOMPARE(editor.view.resumedCell, std::pair(1, 1));
    QCOMPARE(editor.view.restoredSelection, std::pair(4, 1));
}

QTEST_MAIN(EditorTablesTest)
#include "EditorTablesTest.moc"
