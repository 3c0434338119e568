// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/RandomTree.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <bit>
#include <cmath>

using namespace tavrin;
using namespace tavrin::plist;
using namespace Qt::StringLiterals;

/// Compares with a second implementation, Python's: what one writes, the other reads to the same values.
class PlistlibPeerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itReadsWhatWeWrite();
    void weReadWhatItWrites();

private:
    void runPeer(const QStringList &arguments);
};

namespace {

// The text that plistlib_peer.py makes of the same value.
QByteArray dump(const Value &value)
{
    if (const bool *flag = value.boolean())
        return *flag ? "b1\n" : "b0\n";
    if (value.isInteger())
        return 'i' + value.toText().toLatin1() + '\n';
    if (const Real *real = value.real()) {
        const quint64 bits = std::bit_cast<quint64>(real->value + 0.0);
        return 'r' + (std::isnan(real->value) ? "nan" : QByteArray::number(bits, 16).rightJustified(16, '0'))
               + '\n';
    }
    if (const QString *text = value.string())
        return 's' + text->toUtf8().toHex() + '\n';
    if (const QByteArray *data = value.data())
        return 'd' + data->toHex() + '\n';
    if (const Date *date = value.date())
        return 't' + QByteArray::number(static_cast<qint64>(date->secondsSinceReference)) + '\n';
    if (const Uid *uid = value.uid())
        return 'u' + QByteArray::number(uid->index) + '\n';
    if (const Array *array = value.array()) {
        QByteArray text = '[' + QByteArray::number(array->size()) + '\n';
        for (const Value &member : *array)
            text += dump(member);
        return text;
    }
    QMap<QByteArray, QByteArray> entries;
    value.dictionary()->forEach([&entries](const QString &key, const Value &member) {
        entries.insert(key.toUtf8().toHex(), dump(member));
    });
    QByteArray text = '{' + QByteArray::number(entries.size()) + '\n';
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
        text += 'k' + entry.key() + '\n' + entry.value();
    return text;
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void PlistlibPeerTest::runPeer(const QStringList &arguments)
{
    const QString python = QStandardPaths::findExecutable(u"python3"_s);
    QVERIFY2(!python.isEmpty(), "python3 is needed for this test");
    QProcess peer;
    peer.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QString script = QStringLiteral(TAVRIN_TEST_DATA "/../plist/plistlib_peer.py");
    peer.start(python, QStringList{u"-B"_s, script} + arguments);
    QVERIFY(peer.waitForFinished(60'000));
    QCOMPARE(peer.exitStatus(), QProcess::NormalExit);
    QCOMPARE(peer.exitCode(), 0);
}

void PlistlibPeerTest::itReadsWhatWeWrite()
{
    const QTemporaryDir folder;
    QMap<QString, QByteArray> expected;
    for (quint32 seed = 1; seed <= 20; ++seed) {
        const Value common =
            RandomTree(seed, {.plainText = true, .wholeDates = true, .uids = false}).dictionary();
        const Value withUids = RandomTree(seed, {.plainText = true, .wholeDates = true}).dictionary();
        for (const auto &[suffix, tree, bytes] :
             {std::tuple(u".xml"_s, common, toXml(common)), {u".bplist"_s, withUids, toBinary(withUids)}}) {
            QFile file(folder.filePath(QString::number(seed) + suffix));
            QVERIFY(file.open(QIODevice::WriteOnly));
            QCOMPARE(file.write(bytes), bytes.size());
            expected.insert(file.fileName(), dump(tree));
        }
    }
    runPeer(QStringList(u"dump"_s) + expected.keys());
    for (auto entry = expected.cbegin(); entry != expected.cend(); ++entry)
        QCOMPARE(contents(entry.key() + u".dump"_s), entry.value());
}

void PlistlibPeerTest::weReadWhatItWrites()
{
    const QTemporaryDir folder;
    runPeer({u"make"_s, u"20010101"_s, folder.path()});
    const QStringList names = QDir(folder.path()).entryList({u"*.xml"_s, u"*.bplist"_s});
    QCOMPARE(names.size(), 40);
    for (const QString &name : names) {
        const Result<PropertyList> list = read(contents(folder.filePath(name)));
        QVERIFY2(list, list ? "" : qPrintable(name + u": "_s + list.error().detail));
        QCOMPARE(dump(list->root), contents(folder.filePath(name + u".dump"_s)));
    }
}

QTEST_GUILESS_MAIN(PlistlibPeerTest)
#include "PlistlibPeerTest.moc"
