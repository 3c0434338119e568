// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/SingleInstance.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

class SingleInstanceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        g_folder = std::make_unique<QTemporaryDir>();
        g_name = g_folder->filePath(u"tavrin"_s);
    }

    void aSecondStartHandsItsDatafilesOver()
    {
        SingleInstance first(g_name);
        QSignalSpy requests(&first, &SingleInstance::openRequested);
        QVERIFY(!first.handOver({}));

        QVERIFY(startAnother({u"sub/relative.tv3"_s, u"/data/ü\n\"x\".tv3"_s}));
        QVERIFY(startAnother({}));

        QCOMPARE(requests.size(), 2);
        QCOMPARE(
            requests[0][0].toStringList(),
            (QStringList{QDir::current().absoluteFilePath(u"sub/relative.tv3"_s), u"/data/ü\n\"x\".tv3"_s}));
        QCOMPARE(requests[1][0].toStringList(), QStringList());
    }

    void whatACrashLeftIsReplaced()
    {
        QFile left(g_name);
        QVERIFY(left.open(QIODevice::WriteOnly));
        left.close();

        SingleInstance first(g_name);
        QVERIFY(!first.handOver({}));

        QVERIFY(startAnother({}));
    }

    void aProgramThatHangsHoldsAStartUpOnlyShortly()
    {
        QLocalServer hung; // Its events are never handled while handOver() waits.
        QVERIFY(hung.listen(g_name));
        SingleInstance start(g_name);
        QElapsedTimer elapsed;
        elapsed.start();

        QVERIFY(!start.handOver({u"/data/a.tv3"_s}));

        QVERIFY2(elapsed.elapsed() < 4000, qPrintable(QString::number(elapsed.elapsed())));
        QVERIFY(startAnother({}));
        QLocalSocket *late = hung.nextPendingConnection();
        QVERIFY(!late || late->readAll().isEmpty());
    }

    void aMessageThatClaimsToBeHugeIsRefused()
    {
        SingleInstance first(g_name);
        QSignalSpy requests(&first, &SingleInstance::openRequested);
        QVERIFY(!first.handOver({}));
        QLocalSocket stranger;
        stranger.connectToServer(g_name);
        QVERIFY(stranger.waitForConnected());

        stranger.write(QByteArray::fromHex("7fffffff") + QByteArray(1000, 'x'));
        stranger.flush();

        QTRY_COMPARE(stranger.state(), QLocalSocket::UnconnectedState);
        QCOMPARE(requests.size(), 0);
        QVERIFY(startAnother({}));
    }

    void onlyThePersonMayConnect()
    {
        SingleInstance first(g_name);
        QVERIFY(!first.handOver({}));

        QVERIFY(!(QFileInfo(g_name).permissions() & (QFile::WriteGroup | QFile::WriteOther)));
    }

private:
    /// Starts the program again, in a thread, while this one's events are handled.
    bool startAnother(const QStringList &paths) const
    {
        bool handedOver = false;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            SingleInstance another(g_name);
            handedOver = another.handOver(paths);
        }));
        thread->start();
        while (!thread->wait(1))
            QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        return handedOver;
    }

    std::unique_ptr<QTemporaryDir> g_folder;
    QString g_name;
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "SingleInstanceTest.moc"
