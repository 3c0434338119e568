// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/DatafilesFolder.h"

#include "model/Preferences.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

class DatafilesFolderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    void init() { g_folder = std::make_unique<QTemporaryDir>(); }

    void datafilesComeFirstAndOnlyFoldersThatHoldSomeAreShown()
    {
        make(u"b10.tv3"_s);
        make(u"B9.TV3"_s);
        make(u"notes.txt"_s);
        make(u".hidden.tv3"_s);
        make(u"twin.tv3"_s);
        make(u"twin.tvk"_s);
        make(u"archive/deep/old.tvk"_s);
        make(u"nothing here/readme.md"_s);

        QCOMPARE(shown(scan()),
                 (QStringList{u"B9"_s,
                              u"b10"_s,
                              u"twin.tv3"_s,
                              u"twin.tvk"_s,
                              u"archive{"_s,
                              u"deep{"_s,
                              u"old"_s,
                              u"}"_s,
                              u"}"_s}));
    }

    void linksThatLoopEndAndNoFolderIsShownTwice()
    {
        make(u"a/one.tv3"_s);
        QVERIFY(QFile::link(path(), path() + u"/a/up"_s));
        QVERIFY(QFile::link(path() + u"/a"_s, path() + u"/z again"_s));
        QVERIFY(QFile::link(path() + u"/gone.tv3"_s, path() + u"/dangling.tv3"_s));

        QCOMPARE(shown(scan()), (QStringList{u"a{"_s, u"one"_s, u"}"_s}));
    }

    void theFolderIsReadInEveryStoredForm_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("path");

        QTest::newRow("default") << u"DatafilesFolderPath"_s << u"~/Files"_s
                                 << QDir::homePath() + u"/Files"_s;
        QTest::newRow("URL") << u"DatafilesFolderURL"_s << u"file:///data/My%20Files%25"_s
                             << u"/data/My Files%"_s;
        QTest::newRow("path as URL") << u"DatafilesFolderURL"_s << u"~/My Files"_s
                                     << QDir::homePath() + u"/My Files"_s;
    }

    void theFolderIsReadInEveryStoredForm()
    {
        QFETCH(QString, key);
        QFETCH(QString, stored);
        Preferences preferences;
        preferences.registerDefaults(registeredDefaults());
        preferences.setObject(stored, key);

        QTEST(DatafilesFolder(preferences).path(), "path");
    }

private:
    QString path() const { return g_folder->path(); }

    void make(const QString &name) const
    {
        const QFileInfo info(path() + u'/' + name);
        QVERIFY(QDir().mkpath(info.absolutePath()));
        QFile file(info.filePath());
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

    QList<DatafilesMenuItem> scan() const
    {
        Preferences preferences;
        DatafilesFolder folder(preferences);
        folder.setPath(path());
        return folder.scan();
    }

    static QStringList shown(const QList<DatafilesMenuItem> &items)
    {
        QStringList lines;
        for (const DatafilesMenuItem &item : items) {
            if (item.path.isEmpty())
                lines << item.title + u'{' << shown(item.children) << u"}"_s;
            else
                lines << item.title;
        }
        return lines;
    }

    std::unique_ptr<QTemporaryDir> g_folder;
};

QTEST_GUILESS_MAIN(DatafilesFolderTest)
#include "DatafilesFolderTest.moc"
