// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FieldWrapping.h"

#include "editor/EditorFixture.h"
#include "ui/CellDelegate.h"
#include "ui/CellEditor.h"
#include "ui/RecordTableView.h"

#include <QApplication>
#include <QHeaderView>

using namespace tavrin;

class FieldWrappingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRowIsAsHighAsWhatIsTypedAndThenAsItsValue_data();
    void aRowIsAsHighAsWhatIsTypedAndThenAsItsValue();
};

void FieldWrappingTest::aRowIsAsHighAsWhatIsTypedAndThenAsItsValue_data()
{
    QTest::addColumn<qint64>("criterion");
    QTest::newRow("between words") << qint64(0);
    QTest::newRow("between characters") << qint64(1);
}

void FieldWrappingTest::aRowIsAsHighAsWhatIsTypedAndThenAsItsValue()
{
    QFETCH(const qint64, criterion);
    EditorFixture editor;
    editor.settings.insert(u"FieldWrapping"_s, true);
    editor.settings.insert(u"LiveFieldWrapping"_s, true);
    editor.settings.insert(u"FieldWrappingCriterion"_s, criterion);
    editor.open();
    EditorTableController &tables = editor.window->tableController();
    RecordTableView table;
    CellDelegate delegate;
    table.setModel(&tables.basicTableModel());
    table.setItemDelegate(&delegate);
    table.setColumnWidth(BasicTableModel::ValueColumn, 160);
    FieldWrapping wrapping(tables, table, delegate);
    wrapping.setWrapping(tables.wrapMode(), true);
    table.show();
    QVERIFY(QTest::qWaitForWindowActive(&table));
    const int oneLine = table.rowHeight(0);

    table.editCell(0, BasicTableModel::ValueColumn);
    QTest::keyClicks(QApplication::focusWidget(), u"words and words "_s.repeated(8));
    QVERIFY(table.rowHeight(0) > 3 * oneLine);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);

    QTRY_COMPARE(table.rowHeight(0), oneLine);
    QVERIFY(!table.isEditing());
    QCOMPARE(editor.valueIn(u"r0"_s), u"A"_s);
}

QTEST_MAIN(FieldWrappingTest)
#include "FieldWrappingTest.moc"
