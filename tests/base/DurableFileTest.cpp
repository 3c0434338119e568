// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/DurableFile.h"

#include "support/FileSizeLimit.h"
#include "support/UnprivilegedUser.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

#include <chrono>
#include <stdexcept>
#include <thread>

using namespace tavrin;
using namespace Qt::StringLiterals;

namespace {

const QByteArray oldContent = "the old content, which must survive";

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
}

void make(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QStringList namesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

mode_t permissionsOf(const QString &path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
}

} // namespace

class DurableFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aWriteThatFailsAtAnyByteLeavesTheOldFile();
    void aLargeWriteThatFailsLeavesTheOldFile();
    void aProducerThatFailsLeavesTheOldFile();
    void manyPiecesArriveWholeAndInOrder();
    void partsArriveInOrderAndAreJudged();
    void permissionsAreKept();
    void aNewFileGetsWhatTheMaskAllows();
    void linksStayLinks();
    void whatIsNoRegularFileIsNotReplaced();
    void aFileWithTheLongestNameCanBeWrittenAgain();
    void refusalsHaveTheirKind();
    void aFolderThatForbidsChangesKeepsTheOldFile();

private:
    QString path(const QString &name) const { return g_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> g_folder;
};

void DurableFileTest::init()
{
    g_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(g_folder->isValid());
}

void DurableFileTest::aWriteThatFailsAtAnyByteLeavesTheOldFile()
{
    const QByteArray newContent(300, 'n');
    const QString file = path(u"data"_s);
    make(file, oldContent);

    for (qsizetype room = 0; room < newContent.size(); ++room) {
        const Result<> written = [&] {
            const FileSizeLimit limit(room);
            return writeDurably(file, newContent);
        }();

        QVERIFY2(!written, qPrintable(QString::number(room)));
        QCOMPARE(written.error().kind, Error::Kind::Io);
        QVERIFY(!written.error().message.isEmpty());
        QCOMPARE(contentOf(file), oldContent);
        QCOMPARE(namesIn(g_folder->path()), QStringList{u"data"_s});
    }
    {
        const FileSizeLimit limit(newContent.size());
        QVERIFY(writeDurably(file, newContent));
    }
    QCOMPARE(contentOf(file), newContent);
}

void DurableFileTest::aLargeWriteThatFailsLeavesTheOldFile()
{
    const QString file = path(u"data"_s);
    make(file, oldContent);
    const QByteArray piece(700'000, 'p');
    int accepted = 0;

    const Result<> written = [&] {
        const FileSizeLimit limit(5 * piece.size());
        return writeDurably(file, [&](const ByteSink &sink) -> Result<> {
            while (accepted < 100 && sink(piece))
                ++accepted;
            return {};
        });
    }();

    QVERIFY(!written);
    QVERIFY2(accepted < 10, "the producer was not told to stop");
    QCOMPARE(contentOf(file), oldContent);
    QCOMPARE(namesIn(g_folder->path()), QStringList{u"data"_s});
}

void DurableFileTest::aProducerThatFailsLeavesTheOldFile()
{
    const QString file = path(u"data"_s);
    make(file, oldContent);
    const Error refusal{Error::Kind::Cancelled, u"stopped"_s, {}};

    const Result<> written = writeDurably(file, [&](const ByteSink &sink) -> Result<> {
        sink(QByteArray(3'000'000, 'x'));
        return refusal;
    });

    QVERIFY(!written);
    QCOMPARE(written.error(), refusal);
    QCOMPARE(contentOf(file), oldContent);
    QCOMPARE(namesIn(g_folder->path()), QStringList{u"data"_s});
}

void DurableFileTest::manyPiecesArriveWholeAndInOrder()
{
    QByteArray expected;
    const Result<> written = writeDurably(path(u"data"_s), [&](const ByteSink &sink) -> Result<> {
        // Sizes on both sides of what is gathered before the system is asked.
        for (const qsizetype size : {1, 0, 999'999, 48'576, 1 << 20, 7, (1 << 20) + 1, 1'048'575, 3}) {
            const QByteArray piece(size, static_cast<char>('a' + expected.size() % 26));
            expected += piece;
            sink(piece);
        }
        return {};
    });

    QVERIFY(written);
    QVERIFY(contentOf(path(u"data"_s)) == expected);
    const Result<QByteArray> read = readWhole(path(u"data"_s));
    QVERIFY(read && *read == expected);
}

namespace {

/// Parts of all sizes. One may be judged bad, and the file may give something else back for one.
class Parts : public FileParts
{
public:
    static constexpr size_t none = 1000;

    size_t count() const override { return 40; }

    QByteArrayView bytes(size_t part, QByteArray &room) const override
    {
        if (part == throwing)
            throw std::runtime_error("no such part");
        // Later parts are often ready before earlier ones.
        std::this_thread::sleep_for(std::chrono::microseconds(part % 3 == 0 ? 2000 : 0));
        if (part % 2 == 1)
            return g_kept[part];
        room = g_kept[part];
        return room;
    }

    Result<> check(size_t part, QByteArrayView bytes) const override
    {
        if (part == bad || bytes != g_kept[part])
            return Error{Error::Kind::Corrupt, {}, u"part %1"_s.arg(part)};
        return {};
    }

    QByteArray joined() const { return g_kept.join(); }

    size_t bad = none;
    size_t throwing = none;

private:
    QByteArrayList g_kept = [] {
        QByteArrayList parts;
        for (int part = 0; part < 40; ++part)
            parts.append(QByteArray(part * part * 331, static_cast<char>('A' + part)));
        return parts;
    }();
};

} // namespace

void DurableFileTest::partsArriveInOrderAndAreJudged()
{
    const QString file = path(u"data"_s);
    make(file, oldContent);
    QByteArray judged;
    Parts parts;
    const auto write = [&] {
        const auto produce = [&](const ByteSink &sink, const PartsSink &inParts) -> Result<> {
            if (sink("one ") && inParts(parts) && sink("two ") && inParts(parts))
                sink("three");
            return {};
        };
        return writeCheckedDurably(file, produce, [&judged](QByteArrayView rest) -> Result<> {
            judged = rest.toByteArray();
            return {};
        });
    };
    for (const size_t place : {0, 17, 39}) {
        parts.bad = place;
        QCOMPARE(write().error().detail, u"part %1"_s.arg(place));
        parts.bad = Parts::none;
        parts.throwing = place;
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, static_cast<void>(write()));
        parts.throwing = Parts::none;
        QCOMPARE(contentOf(file), oldContent);
    }
    QVERIFY(write());
    QCOMPARE(judged, QByteArray("one two three"));
    QVERIFY(contentOf(file) == "one " + parts.joined() + "two " + parts.joined() + "three");
    QCOMPARE(namesIn(g_folder->path()), QStringList{u"data"_s});
}

void DurableFileTest::permissionsAreKept()
{
    const QString file = path(u"data"_s);
    make(file, oldContent);
    for (const mode_t mode : {0600, 0640, 0664, 0444, 0755}) {
        QCOMPARE(::chmod(QFile::encodeName(file).constData(), mode), 0);
        QVERIFY(writeDurably(file, "new"));
        QCOMPARE(permissionsOf(file), mode);
    }
}

void DurableFileTest::aNewFileGetsWhatTheMaskAllows()
{
    for (const mode_t mask : {0022, 0077, 0002}) {
        const QString file = path(u"new%1"_s.arg(mask));
        const mode_t before = ::umask(mask);
        const Result<> written = writeDurably(file, "new");
        ::umask(before);
        QVERIFY(written);
        QCOMPARE(permissionsOf(file), 0666 & ~mask);
    }
}

void DurableFileTest::linksStayLinks()
{
    QVERIFY(QDir(g_folder->path()).mkdir(u"elsewhere"_s));
    make(path(u"elsewhere/real"_s), oldContent);
    QVERIFY(QFile::link(u"elsewhere/real"_s, path(u"first"_s)));
    QVERIFY(QFile::link(u"first"_s, path(u"second"_s)));
    QVERIFY(QFile::link(u"elsewhere/absent"_s, path(u"dangling"_s)));

    QVERIFY(writeDurably(path(u"second"_s), "through two links"));
    QVERIFY(writeDurably(path(u"dangling"_s), "made by a link"));

    for (const QString &link : {u"first"_s, u"second"_s, u"dangling"_s})
        QVERIFY(QFileInfo(path(link)).isSymLink());
    QCOMPARE(contentOf(path(u"elsewhere/real"_s)), "through two links");
    QCOMPARE(contentOf(path(u"elsewhere/absent"_s)), "made by a link");
    QCOMPARE(namesIn(path(u"elsewhere"_s)), (QStringList{u"absent"_s, u"real"_s}));
}

void DurableFileTest::whatIsNoRegularFileIsNotReplaced()
{
    QVERIFY(QDir(g_folder->path()).mkdir(u"folder"_s));
    QCOMPARE(::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    QVERIFY(QFile::link(u"circle"_s, path(u"circle"_s)));
    const QStringList before = namesIn(g_folder->path());

    for (const QString &name : before)
        QVERIFY(!writeDurably(path(name), "new"));

    QCOMPARE(namesIn(g_folder->path()), before);
    QVERIFY(QFileInfo(path(u"circle"_s)).isSymLink());
    QVERIFY(!QFileInfo(path(u"pipe"_s)).isFile());
}

void DurableFileTest::aFileWithTheLongestNameCanBeWrittenAgain()
{
    const QString name = u'x' + QString(127, QChar(u'é')); // 255 bytes, cut in the middle of a letter
    make(path(name), oldContent);

    QVERIFY(writeDurably(path(name), "new"));

    QCOMPARE(contentOf(path(name)), "new");
    QCOMPARE(namesIn(g_folder->path()), QStringList{name});
}

void DurableFileTest::refusalsHaveTheirKind()
{
    make(path(u"file"_s), oldContent);

    for (const QString &name : {u"absent/data"_s, u"file/data"_s}) {
        const Result<> written = writeDurably(path(name), "new");
        QVERIFY(!written);
        QCOMPARE(written.error().kind, Error::Kind::NotFound);
    }

    const auto kindOfReading = [this](const QString &name) {
        const Result<QByteArray> read = readWhole(path(name));
        return read ? Error::Kind::Cancelled : read.error().kind;
    };
    QCOMPARE(kindOfReading(u"absent"_s), Error::Kind::NotFound);
    QCOMPARE(kindOfReading(u"."_s), Error::Kind::Io);
}

void DurableFileTest::aFolderThatForbidsChangesKeepsTheOldFile()
{
    const QString folder = path(u"forbidden"_s);
    QVERIFY(QDir().mkdir(folder));
    make(folder + u"/data"_s, oldContent);
    QCOMPARE(::chmod(QFile::encodeName(g_folder->path()).constData(), 0755), 0);
    QCOMPARE(::chmod(QFile::encodeName(folder).constData(), 0555), 0);

    bool bound = false;
    const Result<> written = [&] {
        const UnprivilegedUser user;
        bound = user.isBoundByPermissions();
        return bound ? writeDurably(folder + u"/data"_s, "new") : Result<>();
    }();
    QCOMPARE(::chmod(QFile::encodeName(folder).constData(), 0755), 0);

    if (!bound)
        QSKIP("root cannot give up its rights here, and nothing is forbidden to root");
    QVERIFY(!written);
    QCOMPARE(written.error().kind, Error::Kind::Io);
    QCOMPARE(contentOf(folder + u"/data"_s), oldContent);
    QCOMPARE(namesIn(folder), QStringList{u"data"_s});
}

QTEST_GUILESS_MAIN(DurableFileTest)
#include "DurableFileTest.moc"
