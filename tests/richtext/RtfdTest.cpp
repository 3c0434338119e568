// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/Rtfd.h"

#include "richtext/RandomRichText.h"
#include "richtext/RtfWriter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace tavrin;
using namespace tavrin::richtext;
using namespace Qt::StringLiterals;

class RtfdTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theSmallestStreamIsAsOthersWriteIt();
    void foreignStreamsAreRead();
    void damagedStreamsAreRefused();
    void attachmentsOfOneNameStayApart();
    void foldersComeBack();
    void aFolderReachesNothingOutside();
    void aFolderThatCannotBeWrittenLeavesTheOldOne();
};

namespace {

QByteArray number(quint32 value, bool isBigEndian = false)
{
    QByteArray bytes(4, '\0');
    for (int i = 0; i < 4; ++i)
        bytes[isBigEndian ? 3 - i : i] = static_cast<char>(value >> 8 * i);
    return bytes;
}

AttributedText withAttachments(const QList<Attachment> &attachments)
{
    AttributedText text;
    for (const Attachment &attachment : attachments) {
        CharacterFormat format;
        format.attachment = attachment;
        text.insert(text.size(), u"\uFFFC", format);
    }
    return text;
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

} // namespace

void RtfdTest::theSmallestStreamIsAsOthersWriteIt()
{
    const QByteArray rtf = writeRtf(AttributedText(u"hi"_s));
    const auto length = static_cast<quint32>(rtf.size());
    const QByteArray expected = "rtfd" + number(0) + number(3) + number(2) + number(7) + "TXT.rtf" + number(1)
                                + '.' + number(length + 8) + number(43) + number(1) + number(length) + rtf
                                + number(1) + number(35) + number(1) + number(7) + "TXT.rtf" + number(16)
                                + number(0) + number(0666) + number(0) + number(0);
    QCOMPARE(writeRichText(AttributedText(u"hi"_s)), expected);
    QCOMPARE(rtfOfRichText(expected), std::optional(rtf));
}

void RtfdTest::foreignStreamsAreRead()
{
    const QByteArray rtf = "{\\rtf1 a{{\\NeXTGraphic p.png}\\'ac}}";
    for (const bool isBigEndian : {false, true}) {
        const auto n = [isBigEndian](qsizetype value) {
            return number(static_cast<quint32>(value), isBigEndian);
        };
        const QByteArray padded = n(1) + n(0x80000000) + n(4) + n(3) + QByteArray(3, '\0') + "PNG!";
        const QByteArray folder = n(3) + n(0);
        const QByteArray stream = "rtfd" + n(0) + n(3) + n(3) + n(5) + "p.png" + n(1) + "d" + n(7) + "TXT.rtf"
                                  + n(padded.size()) + n(folder.size()) + n(rtf.size() + 8) + padded + folder
                                  + n(1) + n(rtf.size()) + rtf;
        const Result<AttributedText> text = readRichText(stream);
        QVERIFY(text);
        QCOMPARE(text->characterFormatAt(1).attachment, std::optional(Attachment{u"p.png"_s, "PNG!"}));
    }
    QCOMPARE(readRichText("{\\rtf1 plain}").value().text(), u"plain"_s);
}

void RtfdTest::damagedStreamsAreRefused()
{
    const QByteArray whole = writeRichText(withAttachments({{u"a"_s, "bytes"}}));
    for (qsizetype size = 0; size < whole.size(); ++size)
        QVERIFY2(!readRichText(whole.first(size)) && !rtfOfRichText(whole.first(size)),
                 qPrintable(QString::number(size)));
    QVERIFY(!readRichText(whole + '\0'));
    QVERIFY(!readRichText("rtfd" + number(0) + number(3) + number(0xFFFFFFFF)));
    QVERIFY(!readRichText("rtfd" + number(0) + number(3) + number(0)));
}

void RtfdTest::attachmentsOfOneNameStayApart()
{
    const AttributedText text = withAttachments({{u"a.png"_s, "one"},
                                                 {u"a.png"_s, "two"},
                                                 {u"a.png"_s, "one", 20, 20},
                                                 {u"a.png"_s, QByteArray()},
                                                 {u"a.png"_s, ""}});
    QCOMPARE(readRichText(writeRichText(text)).value(), text);
    QCOMPARE(writeRichText(text).count("one"), 1);
    const AttributedText back = readRichText(writeRichText(text)).value();
    QVERIFY(back.characterFormatAt(3).attachment->bytes.isNull()
                == back.characterFormatAt(4).attachment->bytes.isNull()
            || back.characterFormatAt(3).attachment->bytes.isNull());
}

void RtfdTest::foldersComeBack()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Été.rtfd"_s);
    for (quint32 seed = 1; seed <= 30; ++seed) {
        const AttributedText text = RandomRichText(seed).text();
        const Result<> written = writeRtfdFolder(path, text);
        QVERIFY2(written, written ? "" : qPrintable(written.error().detail));
        QVERIFY(readRtfdFolder(path).value() == text);
        QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(),
                 1);
    }
    const QByteArray bytes("\0\xFFx", 3);
    QVERIFY(writeRtfdFolder(path, withAttachments({{u"b.bin"_s, bytes}, {u"gone"_s, {}}})));
    QCOMPARE(QDir(path).entryList(QDir::Files), QStringList({u"b.bin"_s, u"TXT.rtf"_s}));
    QCOMPARE(contents(path + u"/b.bin"_s), bytes);
    QVERIFY(QDir(folder.path()).mkdir(u"usual"_s));
    QCOMPARE(QFileInfo(path).permissions(), QFileInfo(folder.filePath(u"usual"_s)).permissions());
}

void RtfdTest::aFolderReachesNothingOutside()
{
    const QTemporaryDir folder;
    write(folder.filePath(u"secret"_s), "secret");
    const QString path = folder.filePath(u"a.rtfd"_s);
    QVERIFY(QDir().mkpath(path + u"/sub"_s));
    write(path + u"/sub/secret"_s, "secret");
    QVERIFY(QFile::link(u"../secret"_s, path + u"/link"_s));
    QByteArray rtf = "{\\rtf1 ";
    for (const char *name : {"../secret", "sub/secret", "link", "sub", "..", "."})
        rtf += QByteArray("{{\\NeXTGraphic ") + name + "}\\'ac}";
    write(path + u"/TXT.rtf"_s, rtf + '}');
    const AttributedText text = readRtfdFolder(path).value();
    QCOMPARE(text.size(), 6);
    for (qsizetype i = 0; i < text.size(); ++i)
        QVERIFY(text.characterFormatAt(i).attachment->bytes.isNull());

    const QString other = folder.filePath(u"b.rtfd"_s);
    QVERIFY(writeRtfdFolder(other,
                            withAttachments({{u"../secret"_s, "x"}, {u"TXT.RTF"_s, "y"}, {u".."_s, "z"}})));
    QCOMPARE(contents(folder.filePath(u"secret"_s)), "secret");
    QCOMPARE(readRtfdFolder(other).value().characterFormatAt(1).attachment->bytes, "y");
    QCOMPARE(QDir(other).entryList(QDir::Files | QDir::Hidden).size(), 4);
}

void RtfdTest::aFolderThatCannotBeWrittenLeavesTheOldOne()
{
    const QTemporaryDir folder;
    QCOMPARE(writeRtfdFolder(folder.filePath(u"none/a.rtfd"_s), {}).error().kind, Error::Kind::NotFound);
    QCOMPARE(readRtfdFolder(folder.filePath(u"a.rtfd"_s)).error().kind, Error::Kind::NotFound);
    QVERIFY(QDir().mkpath(folder.filePath(u"a.rtfd/TXT.rtf"_s)));
    QCOMPARE(readRtfdFolder(folder.filePath(u"a.rtfd"_s)).error().kind, Error::Kind::Io);
    // A folder with other things in it is not taken for an old document.
    QVERIFY(QDir(folder.path()).mkdir(u"mine"_s));
    write(folder.filePath(u"mine/letter.txt"_s), "dear");
    QCOMPARE(writeRtfdFolder(folder.filePath(u"mine/"_s), {}).error().kind, Error::Kind::Unsupported);
    QVERIFY(QFileInfo::exists(folder.filePath(u"mine/letter.txt"_s)));
    QVERIFY(writeRtfdFolder(folder.filePath(u"b.rtfd/"_s), AttributedText(u"one"_s)));
    QVERIFY(writeRtfdFolder(folder.filePath(u"b.rtfd/"_s), AttributedText(u"two"_s)));
    QCOMPARE(readRtfdFolder(folder.filePath(u"b.rtfd"_s))->text(), u"two"_s);
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             (QStringList{u"a.rtfd"_s, u"b.rtfd"_s, u"mine"_s}));
}

QTEST_GUILESS_MAIN(RtfdTest)
#include "RtfdTest.moc"
