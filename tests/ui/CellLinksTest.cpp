// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/CellLinks.h"

#include "ui/CellEditor.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

class CellLinksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addressesAreFollowed_data();
    void addressesAreFollowed();
};

void CellLinksTest::addressesAreFollowed_data()
{
    QTest::addColumn<bool>("wraps");
    QTest::newRow("in a line") << false;
    QTest::newRow("in an area") << true;
}

void CellLinksTest::addressesAreFollowed()
{
    QFETCH(const bool, wraps);
    QWidget window;
    QWidget *editor = nullptr;
    if (wraps)
        editor = new WrappedCellEdit(QTextOption::WordWrap, &window);
    else
        editor = new QLineEdit(&window);
    auto *links = new CellLinks(editor);
    QCOMPARE(CellLinks::of(editor), links);
    editor->resize(400, 60);
    window.show();
    QSignalSpy followed(links, &CellLinks::followed);
    QSignalSpy caret(links, &CellLinks::caretLinkChanged);
    const QString text = u"see www.a.example or a.b."_s;
    setCellText(editor, text);

    selectInCell(editor, 2, 0);
    QVERIFY(links->linkAtCaret().isEmpty());
    selectInCell(editor, 6, 0);
    QCOMPARE(links->linkAtCaret(), u"http://www.a.example"_s);
    QVERIFY(!caret.isEmpty());
    QCOMPARE(cellText(editor), text);
    QVERIFY(wraps || !isCellTextModified(editor));

    QWidget *target = wraps ? static_cast<WrappedCellEdit *>(editor)->viewport() : editor;
    const int x = editor->fontMetrics().horizontalAdvance(u"see www."_s);
    const QPoint inside(x, wraps ? editor->fontMetrics().height() / 2 + 2 : target->height() / 2);
    QTest::mouseClick(target, Qt::LeftButton, {}, inside);
    QVERIFY(followed.isEmpty());
    QTest::mouseClick(target, Qt::LeftButton, Qt::ControlModifier, inside);
    QCOMPARE(followed.size(), 1);
    QCOMPARE(followed.first().first().toString(), u"http://www.a.example"_s);

    links->deactivate();
    QTest::mouseClick(target, Qt::LeftButton, Qt::ControlModifier, inside);
    insertInCell(editor, u"x"_s);
    QCOMPARE(followed.size(), 1);
    QVERIFY(links->linkAtCaret().isEmpty());
}

QTEST_MAIN(CellLinksTest)
#include "CellLinksTest.moc"
