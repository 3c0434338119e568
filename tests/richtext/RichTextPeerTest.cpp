// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RandomRichText.h"
#include "richtext/RtfReader.h"
#include "richtext/RtfWriter.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace tavrin;
using namespace tavrin::richtext;
using namespace Qt::StringLiterals;

/// Lets other programs read what we write, and reads what they write. Skipped where they are not installed.
class RichTextPeerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void anOfficeReadsOurText();
    void weReadWhatAnOfficeWrites();
    void aConverterReadsOurText();

private:
    QByteArray
    convertedByOffice(const QString &source, const QString &format, const QStringList &options = {});

    QTemporaryDir g_folder;
    QString g_office;
};

namespace {

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

/// Words, without what programs show in their own way: blanks, page ends, the marks of a list.
QStringList words(QString text)
{
    static const QRegularExpression blanks(u"[\\s\\x00-\\x1F\\x{A0}\\x{FEFF}\\x{2022}]+"_s);
    return text.split(blanks, Qt::SkipEmptyParts);
}

AttributedText sample()
{
    CharacterFormat bold;
    bold.bold = true;
    bold.foreground = Color{200, 0, 0};
    CharacterFormat link;
    link.link = u"http://example.org/?a=b"_s;
    ParagraphFormat item;
    item.list = {1, 0, {{u"{disc}"_s}}};
    AttributedText text(u"Plain, bräve {new} \\ world\n日本語 😀 "_s);
    text.append(AttributedText(u"bold\n"_s, bold));
    text.append(AttributedText(u"linked\n"_s, link));
    text.append(AttributedText(u"\t\u2022\tone\n\t\u2022\ttwo\n"_s, {}, item));
    int column = 0;
    for (const QString &cell : {u"c1\n"_s, u"c2\n"_s, u"d1\n"_s, u"d2\n"_s}) {
        ParagraphFormat format;
        format.cell.table = 1;
        format.cell.row = column / 2;
        format.cell.column = column % 2;
        format.cell.style.width = 3000;
        text.append(AttributedText(cell, {}, format));
        ++column;
    }
    text.append(AttributedText(u"end"_s));
    return text;
}

} // namespace

void RichTextPeerTest::initTestCase()
{
    g_office = QStandardPaths::findExecutable(u"soffice"_s);
}

QByteArray
RichTextPeerTest::convertedByOffice(const QString &source, const QString &format, const QStringList &options)
{
    QProcess office;
    office.setProcessChannelMode(QProcess::MergedChannels);
    office.start(g_office,
                 options
                     + QStringList{u"-env:UserInstallation=file://"_s + g_folder.filePath(u"profile"_s),
                                   u"--headless"_s,
                                   u"--convert-to"_s,
                                   format,
                                   u"--outdir"_s,
                                   g_folder.filePath(u"out"_s),
                                   source});
    if (!office.waitForFinished(200'000))
        return {};
    const QString suffix = format.section(u':', 0, 0);
    QFile file(g_folder.filePath(u"out/"_s + QFileInfo(source).completeBaseName() + u'.' + suffix));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void RichTextPeerTest::anOfficeReadsOurText()
{
    if (g_office.isEmpty())
        QSKIP("soffice is not installed");
    const AttributedText text = sample();
    const QString path = g_folder.filePath(u"ours.rtf"_s);
    write(path, writeRtf(text));
    const QString read = QString::fromUtf8(convertedByOffice(path, u"txt:Text (encoded):UTF8"_s));
    QCOMPARE(words(read), words(text.text()));
}

void RichTextPeerTest::weReadWhatAnOfficeWrites()
{
    if (g_office.isEmpty())
        QSKIP("soffice is not installed");
    const QString path = g_folder.filePath(u"page.html"_s);
    write(path,
          "<meta charset=utf-8><p>Plain <b>bold</b> <a href='http://x.org/a'>li\u043Dk</a> 日本 😀</p>"
          "<ul><li>one<li>two</ul><table border=1><tr><td>c1<td>c2<tr><td>d1<td>d2</table>"
          "<p align=center>middle</p>");
    const QByteArray rtf = convertedByOffice(path, u"rtf"_s, {u"--infilter=HTML (StarWriter)"_s});
    const Result<AttributedText> read = readRtf(rtf);
    QVERIFY(read);
    QCOMPARE(words(read->text()), words(u"Plain bold li\u043Dk 日本 😀 one two c1 c2 d1 d2 middle"_s));
    const auto at = [&read](QStringView text) { return read->text().indexOf(text); };
    QVERIFY(read->characterFormatAt(at(u"bold")).bold && !read->characterFormatAt(at(u"Plain")).bold);
    QCOMPARE(read->characterFormatAt(at(u"li")).link, u"http://x.org/a"_s);
    QVERIFY(read->paragraphFormatAt(at(u"one")).list.identifier != 0);
    QCOMPARE(read->paragraphFormatAt(at(u"d2")).cell.row, 1);
    QCOMPARE(read->paragraphFormatAt(at(u"d2")).cell.column, 1);
    QCOMPARE(read->paragraphFormatAt(at(u"middle")).alignment, Alignment::Center);
    QCOMPARE(read->paragraphFormatAt(at(u"middle")).cell.table, 0);
    QVERIFY(readRtf(writeRtf(*read)).value() == *read);
}

void RichTextPeerTest::aConverterReadsOurText()
{
    const QString converter = QStandardPaths::findExecutable(u"unrtf"_s);
    if (converter.isEmpty())
        QSKIP("unrtf is not installed");
    const AttributedText text(u"Plain {text}, a \\ and\n\ta second paragraph"_s);
    const QString path = g_folder.filePath(u"plain.rtf"_s);
    write(path, writeRtf(text));
    QProcess process;
    process.start(converter, {u"--text"_s, u"--quiet"_s, path});
    QVERIFY(process.waitForFinished());
    // A head comes first.
    const QString read =
        QString::fromUtf8(process.readAllStandardOutput()).section(u"-----------------"_s, -1);
    QCOMPARE(words(read), words(text.text()));
}

QTEST_GUILESS_MAIN(RichTextPeerTest)
#include "RichTextPeerTest.moc"
