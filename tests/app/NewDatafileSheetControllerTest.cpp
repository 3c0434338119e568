// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/NewDatafileSheetController.h"

#include <QtTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

class NewDatafileSheetControllerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAreTakenFromPastedLines_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<bool>("acceptable");

        QTest::newRow("none") << u""_s << QStringList() << true;
        QTest::newRow("every line end")
            << u"First\r\nLast name\rCity\u2028Zip\n"_s
            << QStringList{u"First"_s, u"Last name"_s, u"City"_s, u"Zip"_s} << true;
        QTest::newRow("blanks and empty lines")
            << u"\n  Name \t\n \n\nTown"_s << QStringList{u"Name"_s, u"Town"_s} << true;
        QTest::newRow("upper case differs") << u"name\nName"_s << QStringList{u"name"_s, u"Name"_s} << true;
        QTest::newRow("twice") << u"Name\nTown\n Name"_s << QStringList{u"Name"_s, u"Town"_s, u"Name"_s}
                               << false;
        QTest::newRow("two spellings of one letter")
            << u"caf\u00e9\ncafe\u0301"_s << QStringList{u"caf\u00e9"_s, u"cafe\u0301"_s} << false;
    }

    void namesAreTakenFromPastedLines()
    {
        QFETCH(QString, text);
        NewDatafileSheetController sheet;

        sheet.setFieldNamesText(text);

        QTEST(sheet.fieldNames(), "names");
        QTEST(sheet.isAcceptable(), "acceptable");
    }
};

QTEST_GUILESS_MAIN(NewDatafileSheetControllerTest)
#include "NewDatafileSheetControllerTest.moc"
