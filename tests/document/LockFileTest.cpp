// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/LockFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

class LockFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void namesOfTheFileAndOfTheMessageDiffer();
    void holdsThePathOfTheProgramAndGoesWithItsMaker();
    void aSecondOneIsRefusedAndLeavesTheFirst();
    void oneThatSomebodyElsePutThereStays();
    void aFolderThatIsNotThereGivesAnError();

private:
    QString datafile() const { return g_folder->filePath(u"Friends.tv3"_s); }

    std::unique_ptr<QTemporaryDir> g_folder;
};

void LockFileTest::init()
{
    g_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(g_folder->isValid());
}

void LockFileTest::namesOfTheFileAndOfTheMessageDiffer()
{
    QCOMPARE(LockFile::pathFor(u"/a.b/Friends.old.tv3"_s), u"/a.b/Friends.old.tv3.lock"_s);
    QCOMPARE(LockFile::shownNameFor(u"/a.b/Friends.old.tv3"_s), u"Friends.old.lock"_s);
    QCOMPARE(LockFile::shownNameFor(u"/a.b/Friends"_s), u"Friends.lock"_s);
    QCOMPARE(LockFile::shownNameFor(u"/a.b/Notes. Old"_s), u"Notes. Old.lock"_s);
    QCOMPARE(LockFile::shownNameFor(u"/a.b/.hidden"_s), u".hidden.lock"_s);
}

void LockFileTest::holdsThePathOfTheProgramAndGoesWithItsMaker()
{
    {
        LockFile lock;
        QVERIFY(!LockFile::exists(datafile()));
        QVERIFY(lock.create(datafile(), u"/opt/größe/tavrin"_s));
        QVERIFY(lock.isHeld() && LockFile::exists(datafile()));
        QFile file(LockFile::pathFor(datafile()));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), u"/opt/größe/tavrin"_s.toUtf8());
    }
    QVERIFY(!LockFile::exists(datafile()));
}

void LockFileTest::aSecondOneIsRefusedAndLeavesTheFirst()
{
    LockFile first;
    QVERIFY(first.create(datafile(), u"/bin/first"_s));
    {
        LockFile second;
        const Result<> created = second.create(datafile(), u"/bin/second"_s);
        QVERIFY(!created);
        QCOMPARE(created.error().kind, Error::Kind::Refused);
        QVERIFY(!second.isHeld());
    }
    QVERIFY(LockFile::exists(datafile()));
}

void LockFileTest::oneThatSomebodyElsePutThereStays()
{
    LockFile ours;
    QVERIFY(ours.create(datafile(), u"/bin/tavrin"_s));
    const QString path = LockFile::pathFor(datafile());
    QVERIFY(QFile::remove(path));
    {
        // The system may give the new file the number of the old one; its length is the same too.
        QFile theirs(path);
        QVERIFY(theirs.open(QIODevice::WriteOnly));
        theirs.write("/bin/tavrun");
    }

    ours.remove();

    QVERIFY(QFile::exists(path));
    QVERIFY(!ours.isHeld());
}

void LockFileTest::aFolderThatIsNotThereGivesAnError()
{
    LockFile lock;
    const Result<> created = lock.create(g_folder->filePath(u"absent/Friends.tv3"_s), u"/bin/tavrin"_s);
    QVERIFY(!created);
    QCOMPARE(created.error().kind, Error::Kind::Io);
    QVERIFY(!lock.isHeld());
}

QTEST_GUILESS_MAIN(LockFileTest)
#include "LockFileTest.moc"
