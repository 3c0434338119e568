// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorLinks.h"

#include "EditorFixture.h"
#include "editor/TextSheetController.h"
#include "support/DocumentEditorView.h"

#include <QSignalSpy>
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
    void linksOfACellAreFollowedUntilTheyAreTakenOff();
    void aLinkIsChangedAsAWhole();
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
    QSignalSpy messages(editor.window.get(), &EditorWindowController::statusMessage);
    for (const QString &bad : {u"javascript:x"_s, u"smb://a/b"_s, u"ms-word:x"_s, u"a.example"_s, u""_s}) {
        QVERIFY(!links.followLink(bad));
        links.openLink(bad);
    }
    QCOMPARE(messages.size(), 4);
    QCOMPARE(messages.first().first().toString(), u"Links of this kind are not opened: javascript:x"_s);
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

void EditorLinksTest::linksOfACellAreFollowedUntilTheyAreTakenOff()
{
    EditorFixture editor;
    editor.open();
    EditorLinks &links = editor.window->links();
    QVERIFY(!editor.window->validateAction(u"openLink:"_s));
    editor.view.focused = EditorFocus::Table;
    editor.view.cellLink = u"uuid://r1"_s;
    QVERIFY(editor.window->validateAction(u"openLink:"_s));
    links.deactivateFieldLink();
    QVERIFY(!editor.window->validateAction(u"openLink:"_s));
    editor.view.cellLink = u"uuid://r1"_s;
    links.openLinkAtCaret();
    QCOMPARE(editor.shown(), u"r1"_s);
}

void EditorLinksTest::aLinkIsChangedAsAWhole()
{
    DocumentEditorView view;
    EditorFixture editor;
    editor.entries[0].text = u"a www.b.example c"_s;
    editor.open();
    editor.window->attachView(view);
    editor.window->loadCurrentRecord();
    for (const auto &[caret, address] : {std::pair(2, u"tel://1"_s), std::pair(9, u""_s)}) {
        view.select(caret, caret);
        editor.sheets.answerNext<TextSheetController>([&](TextSheetController &sheet) {
            QVERIFY(!sheet.text().isEmpty());
            sheet.setText(address);
            sheet.accept();
        });
        editor.window->links().editLink();
        const richtext::AttributedText text = textOf(view.document);
        QCOMPARE(text.text(), editor.entries[0].text);
        QCOMPARE(text.characterFormatAt(2).link, address);
        QCOMPARE(text.characterFormatAt(14).link, address);
        QVERIFY(text.characterFormatAt(15).link.isEmpty());
    }
    editor.window->attachView(editor.view);
}

QTEST_MAIN(EditorLinksTest)
#include "EditorLinksTest.moc"
