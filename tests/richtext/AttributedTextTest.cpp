// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/InternalInconsistency.h"
#include "richtext/RandomRichText.h"

#include <QTest>

using namespace tavrin;
using namespace tavrin::richtext;
using namespace Qt::StringLiterals;

class AttributedTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void paragraphsKeepTheirFormats();
    void attachmentsStandOnTheirCharacterOnly();
    void randomEditsKeepTheInvariants();
    void placesOutsideAreRefused();
};

namespace {

ParagraphFormat indented(qint32 indent)
{
    ParagraphFormat format;
    format.headIndent = indent;
    return format;
}

AttributedText paragraphs(const QString &text, qint32 indent)
{
    return AttributedText(text, {}, indented(indent));
}

/// The indent at each place, the end included.
QList<qint32> indents(const AttributedText &text)
{
    QList<qint32> indents;
    for (qsizetype i = 0; i <= text.size(); ++i)
        indents.append(text.paragraphFormatAt(i).headIndent);
    return indents;
}

} // namespace

void AttributedTextTest::paragraphsKeepTheirFormats()
{
    AttributedText text = paragraphs(u"a\n"_s, 1);
    text.append(paragraphs(u"b"_s, 2));
    QCOMPARE(indents(text), QList<qint32>({1, 1, 2, 2}));
    QCOMPARE(text.paragraphAt(1), (TextRange{0, 2}));
    QCOMPARE(text.paragraphAt(3), (TextRange{2, 1}));

    AttributedText joined = text;
    joined.remove(1, 1);
    QCOMPARE(indents(joined), QList<qint32>({1, 1, 1}));
    joined = text;
    joined.remove(0, 2);
    QCOMPARE(indents(joined), QList<qint32>({2, 2}));
    joined = text;
    joined.remove(2, 1);
    QCOMPARE(indents(joined), QList<qint32>({1, 1, 2}));

    text.insert(1, u"x\ny", {});
    QCOMPARE(indents(text), QList<qint32>({1, 1, 1, 1, 1, 2, 2}));
    text.insert(1, paragraphs(u"p\nq\nr"_s, 3));
    QCOMPARE(text.text(), u"ap\nq\nrx\ny\nb"_s);
    QCOMPARE(indents(text), QList<qint32>({1, 1, 1, 3, 3, 3, 3, 3, 1, 1, 2, 2}));

    text.applyToParagraphs(4, 1, [](ParagraphFormat &format) { format.headIndent = 9; });
    QCOMPARE(indents(text), QList<qint32>({1, 1, 1, 9, 9, 3, 3, 3, 1, 1, 2, 2}));
    text.applyToParagraphs(text.size(), 0, [](ParagraphFormat &format) { format.headIndent = 8; });
    QCOMPARE(indents(text).last(2), QList<qint32>({8, 8}));

    CharacterFormat bold;
    bold.bold = true;
    text.apply(0, 1, [](CharacterFormat &format) { format.bold = true; });
    text.replace(0, 2, u"new");
    QCOMPARE(text.text().first(4), u"new\n"_s);
    QCOMPARE(text.characterFormatAt(2), bold);
    QCOMPARE(text.characterFormatAt(3), CharacterFormat());
}

void AttributedTextTest::attachmentsStandOnTheirCharacterOnly()
{
    CharacterFormat format;
    format.attachment = Attachment{u"a"_s, "a"};
    AttributedText text(u"x\uFFFC\uFFFCy"_s, format);
    QList<bool> attached;
    for (qsizetype i = 0; i < text.size(); ++i)
        attached.append(text.characterFormatAt(i).attachment.has_value());
    QCOMPARE(attached, QList<bool>({false, true, true, false}));
    text.replace(1, 2, u"\uFFFC");
    QCOMPARE(text, AttributedText(u"x\uFFFCy"_s));
}

void AttributedTextTest::randomEditsKeepTheInvariants()
{
    for (quint32 seed = 1; seed <= 300; ++seed) {
        RandomRichText random(seed);
        AttributedText text = random.text();
        for (int step = 0; step < 20; ++step) {
            const qsizetype from = random.below(static_cast<int>(text.size()) + 1);
            const qsizetype length = random.below(static_cast<int>(text.size() - from) + 1);
            AttributedText rebuilt = text.substring(0, from);
            rebuilt.append(text.substring(from, text.size() - from));
            QCOMPARE(rebuilt, text);
            QString expected = text.text();
            if (random.oneIn(2)) {
                expected.remove(from, length);
                text.remove(from, length);
            } else {
                const AttributedText other = random.text();
                expected.insert(from, other.text());
                text.insert(from, other);
            }
            QCOMPARE(text.text(), expected);
            QCOMPARE(text.characterRuns().size(), text.size());
            QCOMPARE(text.paragraphRuns().size(), text.size() + 1);
            for (const auto &run : text.paragraphRuns().runs())
                QVERIFY(run.end > text.size() || text.text()[run.end - 1] == u'\n');
            const auto &runs = text.characterRuns().runs();
            for (qsizetype i = 1; i < runs.size(); ++i)
                QVERIFY(runs[i - 1].end < runs[i].end && runs[i - 1].format != runs[i].format);
        }
    }
}

void AttributedTextTest::placesOutsideAreRefused()
{
    AttributedText text(u"ab"_s);
    QVERIFY_THROWS_EXCEPTION(InternalInconsistency, text.remove(1, 2));
    QVERIFY_THROWS_EXCEPTION(InternalInconsistency, text.insert(3, u"x", {}));
    QVERIFY_THROWS_EXCEPTION(InternalInconsistency, text.substring(-1, 1));
    QVERIFY_THROWS_EXCEPTION(InternalInconsistency, text.characterFormatAt(2));
}

QTEST_GUILESS_MAIN(AttributedTextTest)
#include "AttributedTextTest.moc"
