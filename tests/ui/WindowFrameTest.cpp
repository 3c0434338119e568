// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/WindowFrame.h"

#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

class WindowFrameTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aStoredFrameComesBackWhereItWas();
    void bothStoredFormsAreRead();
    void nonsenseIsRefused_data();
    void nonsenseIsRefused();
    void aFrameFromALargerScreenIsBroughtOntoThisOne();

private:
    const QRect g_screen{0, 25, 1280, 775};
};

void WindowFrameTest::aStoredFrameComesBackWhereItWas()
{
    const QRect frame(100, 80, 640, 480);

    QCOMPARE(frameFromString(frameString(frame, g_screen), g_screen), frame);
    QCOMPARE(frameString(frame, g_screen), u"100 240 640 480 0 25 1280 775 "_s);
    QCOMPARE(screenFromString(frameString(frame, g_screen)), g_screen);
}

void WindowFrameTest::bothStoredFormsAreRead()
{
    QCOMPARE(frameFromString(u"{{100, 240}, {640, 480}}"_s, g_screen), QRect(100, 80, 640, 480));
    QCOMPARE(frameFromString(u"100.4 240 640 480 0 0 1920 1080"_s, g_screen), QRect(100, 80, 640, 480));
}

void WindowFrameTest::nonsenseIsRefused_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"", "1 2 3", "a b c d", "0 0 0 0", "0 0 -5 10", "1e300 0 10 10", "nan 0 10 10"})
        QTest::addRow("'%s'", text) << QString::fromLatin1(text);
}

void WindowFrameTest::nonsenseIsRefused()
{
    QFETCH(QString, text);
    QVERIFY(!frameFromString(text, g_screen) && !screenFromString(text));
}

void WindowFrameTest::aFrameFromALargerScreenIsBroughtOntoThisOne()
{
    QCOMPARE(fittedFrame(QRect(-300, 2000, 5000, 400), g_screen), QRect(0, 400, 1280, 400));
    QCOMPARE(fittedFrame(QRect(1200, 30, 300, 200), g_screen), QRect(980, 30, 300, 200));
}

QTEST_GUILESS_MAIN(WindowFrameTest)
#include "WindowFrameTest.moc"
