// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/MultiFileSearch.h"

#include "base/SharedProgress.h"
#include "search/SearchFixture.h"

#include <QDir>

using namespace tavrin;
using namespace Qt::StringLiterals;

class MultiFileSearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filesAreSearchedInTheirOrder();
    void openDatafilesAreSearchedAsTheyAre();
    void whatCannotBeSearchedHasARow();
    void aCancelledSearchEnds();
    void contexts_data();
    void contexts();

private:
    QString make(const QString &name, const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(g_folder.filePath(name)).path());
        QFile file(g_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("a test file cannot be written");
        return file.fileName();
    }
    static QString shown(const MultiFileRow &row)
    {
        if (row.kind != MultiFileRow::Kind::Hit)
            return row.datafile + row.context.text;
        return u"%1 %2 %3 %4: %5"_s.arg(row.datafile)
            .arg(row.record)
            .arg(row.title, row.field, row.context.text);
    }
    static MultiFileSearch::Receiver into(QStringList &rows)
    {
        return [&rows](const QList<MultiFileRow> &batch) {
            for (const MultiFileRow &row : batch)
                rows.append(shown(row));
        };
    }

    QTemporaryDir g_folder;
    SharedProgress g_progress;
};

void MultiFileSearchTest::filesAreSearchedInTheirOrder()
{
    const QByteArray bytes = searchedDatafile({{{u"Ann"_s, u"a cat"_s}, u"Cat\ncats"_s},
                                               {{u""_s, u""_s}, u"\n no title,\nbut a cat"_s, false},
                                               {{u"dog"_s, u"cat"_s}, u""_s}},
                                              {1});
    const QString path = make(u"sub/deep/b.tv3"_s, bytes);
    make(u"A.tvk"_s, bytes);
    make(u"sub/no datafile.txt"_s, bytes);
    QStringList rows;
    MultiFileSearch search({u"cat"_s, {.wholeWord = true}}, {}, into(rows));
    search.searchPaths({g_folder.path(), path}, g_progress);
    search.end(false);
    // Hidden fields are passed over, omitted records are not, and no file is searched twice.
    QStringList expected;
    for (const QString &name : {u"A.tvk"_s, u"b.tv3"_s})
        expected += {name + u" 1 Ann Freeform Text Area: Cat cats"_s,
                     name + u" 2 no title, Freeform Text Area:   no title, but a cat"_s};
    QCOMPARE(rows, expected << u"<<Search Completed>>"_s);
    // They were only read.
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), bytes);
    QCOMPARE(
        QDir(QFileInfo(path).path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(),
        1);
}

void MultiFileSearchTest::openDatafilesAreSearchedAsTheyAre()
{
    const QString path = make(u"open.tv3"_s, searchedDatafile({{{u"x"_s}, u"y"_s}, {{u"x"_s}, u"cat"_s}}));
    const DocumentServices services{Environment::system(), nullptr};
    const auto document = std::move(*DatafileDocument::open(services, path, SelectionOnOpening::AllSelected));
    document->storeText(u"r0"_s, u"a cat, typed"_s);
    const MultiFileQuery query{u"cat"_s, {}, FieldsToSearchIn::freeformText};
    const auto snapshot = std::make_shared<OpenDatafileSnapshot>(*document, query);
    document->storeText(u"r1"_s, u"changed since"_s);
    document->deleteRecord(u"r0"_s);
    QStringList rows;
    MultiFileSearch search(query, {snapshot}, into(rows));
    search.searchOpen(g_progress);
    search.searchPaths({path}, g_progress);
    search.end(false);
    const QStringList hits{u"open.tv3 1 x Freeform Text Area: a cat, typed"_s,
                           u"open.tv3 2 x Freeform Text Area: cat"_s};
    QCOMPARE(rows, hits + hits << u"<<Search Completed>>"_s);
}

void MultiFileSearchTest::whatCannotBeSearchedHasARow()
{
    const QByteArray bytes = searchedDatafile({{{u"cat"_s}, u""_s}});
    const auto with = [&](const QByteArray &key) {
        return QByteArray(bytes).replace("<key>DataFormat</key>", key + "<key>Old</key>");
    };
    const QStringList paths{
        make(u"new.tv3"_s, QByteArray(bytes).replace("<integer>1</integer>", "<integer>99</integer>")),
        make(u"locked.tv3"_s, with("<key>Munge</key><string>secret</string>")),
        make(u"junk.tv3"_s, "junk"),
        g_folder.filePath(u"gone.tv3"_s),
        make(u"good.tv3"_s, bytes)};
    QStringList rows;
    MultiFileSearch search({u"CAT"_s, {}}, {}, into(rows));
    search.searchPaths(paths, g_progress);
    search.end(false);
    QCOMPARE(rows,
             (QStringList{u"new.tv3(newer format - not searched)"_s,
                          u"locked.tv3(password required - not searched)"_s,
                          u"junk.tv3(could not be read)"_s,
                          u"gone.tv3(could not be read)"_s,
                          u"good.tv3 1 cat Field 0: cat"_s,
                          u"<<Search Completed>>"_s}));
}

void MultiFileSearchTest::aCancelledSearchEnds()
{
    QList<TestRecord> records(5000, {{u"cat"_s}, u""_s});
    const QString path = make(u"many.tv3"_s, searchedDatafile(records));
    SharedProgress progress;
    qsizetype rows = 0;
    MultiFileRow last;
    MultiFileSearch search({u"cat"_s, {}}, {}, [&](const QList<MultiFileRow> &batch) {
        rows += batch.size();
        if (!batch.isEmpty())
            last = batch.constLast();
        progress.cancel();
    });
    search.searchPaths({path, path + u"2"_s}, progress);
    search.end(progress.isCancelled());
    QVERIFY(rows > 100 && rows < 1000);
    QCOMPARE(last.context.text, u"<<Search Cancelled>>"_s);
}

void MultiFileSearchTest::contexts_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<qsizetype>("at");
    QTest::addColumn<QString>("context");
    const QString filler(200, u'x');
    QTest::newRow("all") << u"a\tcat\nb"_s << qsizetype(2) << u"a [cat] b"_s;
    QTest::newRow("cut") << filler + u"cat"_s + filler << qsizetype(200)
                         << u"…"_s + filler.left(30) + u"[cat]"_s + filler.left(90) + u"…"_s;
    QTest::newRow("pairs") << u"\U0001F408"_s + filler.left(29) + u"cat"_s << qsizetype(31)
                           << u"\U0001F408"_s + filler.left(29) + u"[cat]"_s;
}

void MultiFileSearchTest::contexts()
{
    QFETCH(const QString, content);
    QFETCH(const qsizetype, at);
    const HitContext context = hitContext(content, {at, 3});
    QString marked = context.text;
    marked.insert(context.hit.start + context.hit.length, u']').insert(context.hit.start, u'[');
    QTEST(marked, "context");
}

QTEST_GUILESS_MAIN(MultiFileSearchTest)
#include "MultiFileSearchTest.moc"
