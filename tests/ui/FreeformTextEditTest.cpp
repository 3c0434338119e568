// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FreeformTextEdit.h"

#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

using namespace tavrin;

class FreeformTextEditTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unusualCharactersComeBackUnchanged();
    void loadingIsNoEditAndUndoingIsNone();
    void pastedFormattingIsLeftBehind();
};

void FreeformTextEditTest::unusualCharactersComeBackUnchanged()
{
    FreeformTextEdit text;
    const QString unusual = QStringLiteral("a\u00a0b\nc\u2028d\te\n\n  \U0001F600\u0301 end\n");

    text.setPlainCharacters(unusual);

    QCOMPARE(text.plainCharacters(), unusual);
}

void FreeformTextEditTest::loadingIsNoEditAndUndoingIsNone()
{
    FreeformTextEdit text;
    QSignalSpy edited(&text, &FreeformTextEdit::edited);

    text.setPlainCharacters(QStringLiteral("first"));
    QCOMPARE(edited.count(), 0);
    QVERIFY(!text.document()->isUndoAvailable());

    QTest::keyClicks(&text, QStringLiteral("x"));
    QCOMPARE(edited.count(), 1);
    QVERIFY(text.document()->isModified());

    text.undo();
    QCOMPARE(text.plainCharacters(), QStringLiteral("first"));
    QVERIFY(!text.document()->isModified());
}

void FreeformTextEditTest::pastedFormattingIsLeftBehind()
{
    class Pasting : public FreeformTextEdit
    {
    public:
        using FreeformTextEdit::insertFromMimeData;
    } text;
    QMimeData data;
    data.setHtml(QStringLiteral("<b>bold</b>"));
    data.setText(QStringLiteral("bold"));

    text.insertFromMimeData(&data);

    QCOMPARE(text.plainCharacters(), QStringLiteral("bold"));
    QCOMPARE(text.textCursor().charFormat().fontWeight(), int(QFont::Normal));
}

QTEST_MAIN(FreeformTextEditTest)
#include "FreeformTextEditTest.moc"
