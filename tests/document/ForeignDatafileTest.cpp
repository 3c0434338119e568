// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileFixture.h"

#include <QProcess>

using namespace tavrin;
using namespace Qt::StringLiterals;

/// Datafiles made and read by an independent library: what was not edited is as it was.
class ForeignDatafileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyTheEditIsDifferent_data();
    void onlyTheEditIsDifferent();

private:
    /// What the script prints, line by line.
    static QStringList runScript(const QStringList &arguments)
    {
        QProcess process;
        process.start(u"python3"_s, QStringList{QStringLiteral(TAVRIN_FOREIGN_DATAFILE_SCRIPT)} + arguments);
        if (!process.waitForFinished() || process.exitCode() != 0)
            return {u"the script failed: "_s + process.errorString()
                    + QString::fromUtf8(process.readAllStandardError())};
        const QString output = QString::fromUtf8(process.readAllStandardOutput());
        return output.split(u'\n', Qt::SkipEmptyParts);
    }
};

void ForeignDatafileTest::onlyTheEditIsDifferent_data()
{
    QTest::addColumn<QString>("form");
    QTest::newRow("made as XML") << u"xml"_s;
    QTest::newRow("made as binary") << u"binary"_s;
}

void ForeignDatafileTest::onlyTheEditIsDifferent()
{
    QFETCH(const QString, form);
    const DatafileFixture files;
    const QString made = files.path(u"made.tv3"_s);
    const QString saved = files.path(u"saved.tv3"_s);
    QCOMPARE(runScript({u"make"_s, made, form}), QStringList());
    QVERIFY(QFile::copy(made, saved));

    const auto document = DatafileFixture::opened(saved);
    QVERIFY(document);
    document->updateChangeCount(DatafileDocument::ChangeCount::Done);
    QVERIFY(document->saveDocument());
    QCOMPARE(runScript({u"compare"_s, made, saved}), QStringList());

    document->storeFieldValue(u"R-1"_s, u"f-name"_s, u"Grace"_s);
    document->updateChangeCount(DatafileDocument::ChangeCount::Done);
    QVERIFY(document->saveDocument());
    QCOMPARE(runScript({u"compare"_s, made, saved}), QStringList{u"/Records/R-1/Fields/f-name"_s});

    document->markRecordModified(u"R-1"_s);
    document->updateChangeCount(DatafileDocument::ChangeCount::Done);
    QVERIFY(document->saveDocument());
    QStringList stamped = runScript({u"compare"_s, made, saved});
    stamped.sort();
    QCOMPARE(stamped,
             (QStringList{u"/Records/R-1/Fields/f-name"_s,
                          u"/Records/R-1/NeedsSync"_s,
                          u"/Records/R-1/RecordModifiedBy"_s,
                          u"/Records/R-1/RecordModifiedDate"_s}));

    QVERIFY(document->writeToURL(saved, typeNameOf(document->kind()), plist::Format::Binary));
    QCOMPARE(runScript({u"compare"_s, made, saved}).size(), stamped.size());
}

QTEST_GUILESS_MAIN(ForeignDatafileTest)
#include "ForeignDatafileTest.moc"
