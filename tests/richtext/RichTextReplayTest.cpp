// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "fuzz/RichTextFuzz.h"

#include <QDirIterator>
#include <QFile>
#include <QTest>

using namespace tavrin::richtext;
using namespace Qt::StringLiterals;

/// Runs what the fuzz target runs, on its seeds and on the inputs that once broke something.
class RichTextReplayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyInputIsSurvived();
};

void RichTextReplayTest::everyInputIsSurvived()
{
    const QString data = QStringLiteral(TAVRIN_TEST_DATA);
    int count = 0;
    for (const QString &folder :
         {data + u"/../../fuzz/corpus/fuzz_rich_text"_s, data + u"/richtext-regressions"_s}) {
        QDirIterator files(folder, QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            fuzz::checkRichText(file.readAll());
            ++count;
        }
    }
    QVERIFY(count >= 10);
}

QTEST_GUILESS_MAIN(RichTextReplayTest)
#include "RichTextReplayTest.moc"
