// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "fuzz/PlistFuzz.h"

#include <QDirIterator>
#include <QFile>
#include <QTest>

using namespace tavrin::plist;
using namespace Qt::StringLiterals;

/// Runs what the fuzz targets run, on their seeds and on the inputs that once broke something.
class CorpusReplayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyInputIsSurvived();
};

void CorpusReplayTest::everyInputIsSurvived()
{
    const QString data = QStringLiteral(TAVRIN_TEST_DATA);
    int count = 0;
    for (const QString &folder : {data + u"/../../fuzz/corpus"_s, data + u"/plist-regressions"_s}) {
        QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            QFile file(path);
            if (!path.contains(u"plist"_s))
                continue;
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            fuzz::checkXml(bytes);
            fuzz::checkBinary(bytes);
            fuzz::checkAscii(bytes);
            ++count;
        }
    }
    QVERIFY(count >= 20);
}

QTEST_GUILESS_MAIN(CorpusReplayTest)
#include "CorpusReplayTest.moc"
