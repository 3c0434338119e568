// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorLinks.h"

#include "EditorFixture.h"
#include "support/DocumentEditorView.h"

#include <QUrl>

using namespace tavrin;

class EditorLinksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addressesOfATextBecomeLinks();
    void onlyWhatIsHarmlessIsOpened();
    void filesAreLookedForAndProgramsAskedAbout();
    void recordsAreShownSelectedOrMissed();
};

void EditorLinksTest::addressesOfATextBecomeLinks()
{
    DocumentEditorView view;
    EditorFixture editor;
    editor.entries[0].text = u"See www.a.example.\n\u00E9 me@b.example!"_s;
    editor.open();
    editor.window->attachView(view);
    editor.window->loadCurrentRecord();

    const richtext::AttributedText text = textOf(view.document);
    QCOMPARE(text.text(), editor.entries[0].text);
    QStringList links;
    for (const auto &run : text.characterRuns().runs())
        links.append(run.format->link);
    QCOMPARE(links, (QStringList{{}, u"http://www.a.example"_s, {}, u"mailto:me@b.example"_s, {}}));

    editor.document->datafileSettings().setAutomaticallyEnableLinks(false);
    editor.window->loadCurrentRecord();
    QCOMPARE(textOf(view.document).characterRuns().runs().size(), 1);
    editor.window->attachView(editor.view);
}

void EditorLinksTest::onlyWhatIsHarmlessIsOpened()
{
    EditorFixture editor;
    editor.open();
    EditorLinks &links = editor.window->links();
    QStringList opened;
    links.setOpener([&opened](const QUrl &url) {
        opened.append(url.toString());
        return true;
    });
    for (const QString &good :
         {u"http://a"_s, u"https://a"_s, u"ftp://a"_s, u"mailto:a@b.cd"_s, u"tel://1"_s})
        QVERIFY(links.followLink(good));
    for (const QString &bad : {u"javascript:x"_s, u"smb://a/b"_s, u"ms-word:x"_s, u"a.example"_s, u""_s})
        QVERIFY(!links.followLink(bad));
    QCOMPARE(opened.size(), 5);
    links.setOpener([](const QUrl &) { return false; });
    QVERIFY(!links.followLink(u"http://a"_s));
}

void EditorLinksTest::filesAreLookedForAndProgramsAskedAbout()
{
    EditorFixture editor;
    editor.open();
    EditorLinks &links = editor.window->links();
    int opened = 0;
    links.setOpener([&opened](const QUrl &) { return ++opened > 0; });
    const auto make = [&](const QString &name, QFile::Permissions more) {
        QFile file(editor.folder.filePath(name));
        if (!file.open(QFile::WriteOnly) || !file.setPermissions(file.permissions() | more))
            return QString();
        return QString::fromLatin1(QUrl::fromLocalFile(file.fileName()).toEncoded());
    };
    QVERIFY(links.followLink(make(u"a b.txt"_s, {})));
    QCOMPARE(opened, 1);

    for (const QString &program : {make(u"run"_s, QFile::ExeOwner), make(u"x.desktop"_s, {})}) {
        editor.sheets.answerAlert(1001);
        QVERIFY(links.followLink(program));
        QCOMPARE(opened, 1);
    }
    editor.sheets.answerAlert(1000);
    QVERIFY(links.followLink(make(u"run"_s, QFile::ExeOwner)));
    QCOMPARE(opened, 2);

    editor.sheets.answerNext<AlertSheetController>([](AlertSheetController &alert) {
        QCOMPARE(alert.messageText(), u"Could not find the file at:"_s);
        QVERIFY(alert.informativeText().startsWith(u"/no/such file\n"_s));
    });
    QVERIFY(links.followLink(u"file:///no/such%20file"_s));
    QVERIFY(editor.sheets.allAnswered());
}

void EditorLinksTest::recordsAreShownSelectedOrMissed()
{
    EditorFixture editor;
    editor.entries[2].selected = false;
    editor.open();
    EditorLinks &links = editor.window->links();

    QVERIFY(links.followLink(u"uuid://r1"_s));
    QCOMPARE(editor.shown(), u"r1"_s);
    editor.window->goBackOneRecord();
    QCOMPARE(editor.shown(), u"r0"_s);

    editor.sheets.answerAlert(1001);
    QVERIFY(links.followLink(u"uuid://r2"_s));
    QCOMPARE(editor.shown(), u"r0"_s);
    editor.sheets.answerAlert(1000);
    QVERIFY(links.followLink(u"uuid://r2"_s));
    QCOMPARE(editor.shown(), u"r2"_s);
    QVERIFY(editor.document->datafileCatalog().isSelectedIdentifier(u"r2"_s));

    editor.sheets.answerAlert(1000);
    QVERIFY(links.followLink(u"uuid://gone"_s));
    QCOMPARE(editor.shown(), u"r2"_s);
    QCOMPARE(editor.sheets.alerts().constLast(), u"You have linked to a record that no longer exists."_s);
}

QTEST_MAIN(EditorLinksTest)
#include "EditorLinksTest.moc"
