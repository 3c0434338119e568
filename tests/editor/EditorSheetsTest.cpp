// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EnterPasswordSheetController.h"
#include "editor/GotoRecordSheetController.h"

#include <QSignalSpy>
#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

class EditorSheetsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyANumberOfARecordIsAccepted_data();
    void onlyANumberOfARecordIsAccepted();
    void aWrongPasswordKeepsTheSheetOpen();
};

void EditorSheetsTest::onlyANumberOfARecordIsAccepted_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<qint64>("index");
    QTest::newRow("first") << u"1"_s << qint64(0);
    QTest::newRow("last, with blanks") << u" 12 "_s << qint64(11);
    QTest::newRow("none") << u""_s << qint64(-1);
    QTest::newRow("zero") << u"0"_s << qint64(-1);
    QTest::newRow("too large") << u"13"_s << qint64(-1);
    QTest::newRow("negative") << u"-1"_s << qint64(-1);
    QTest::newRow("a word") << u"two"_s << qint64(-1);
    QTest::newRow("beyond 64 bits") << u"99999999999999999999"_s << qint64(-1);
}

void EditorSheetsTest::onlyANumberOfARecordIsAccepted()
{
    QFETCH(const QString, entry);
    QFETCH(const qint64, index);
    GotoRecordSheetController sheet(12);
    sheet.setEntry(entry);

    sheet.accept();

    QCOMPARE(sheet.index(), index);
    QCOMPARE(sheet.isFinished(), index >= 0);
}

void EditorSheetsTest::aWrongPasswordKeepsTheSheetOpen()
{
    EnterPasswordSheetController sheet(u"Secret"_s);
    QSignalSpy wrong(&sheet, &EnterPasswordSheetController::wrongPassword);
    QVERIFY(!sheet.isAcceptable());

    sheet.setEntry(u"secret"_s);
    sheet.accept();
    QCOMPARE(wrong.size(), 1);
    QVERIFY(!sheet.isFinished());

    sheet.setEntry(u"Secret"_s);
    sheet.accept();
    QVERIFY(sheet.isFinished());
    QVERIFY(sheet.goodPasswordEntered());
}

QTEST_GUILESS_MAIN(EditorSheetsTest)
#include "EditorSheetsTest.moc"
