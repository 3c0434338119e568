// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorFixture.h"
#include "editor/EditorSearchController.h"

#include <QSignalSpy>

using namespace tavrin;
using namespace Qt::StringLiterals;

/// The second window on a datafile: it reads, follows, and never writes.
class EditorCloneTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingDoneInACloneIsStored();
    void aCloneShowsWhatTheMainWindowDoes();
    void aRecordDeletedInTheMainWindowLeavesTheClone();
    void besideACloneFewCommandsRun();
    void aCloneGoesBeforeItsMainWindow();
};

namespace {

/// A main window and its clone, on a view of its own.
struct Cloned : EditorFixture
{
    Cloned()
    {
        settings.insert(u"AutoSaveChanges"_s, true);
        open();
        clone = std::make_unique<EditorWindowController>(*window, sheets, work);
        clone->attachView(cloneView);
        clone->prepare();
    }
    ~Cloned() { clone.reset(); }
    Cloned(const Cloned &) = delete;
    Cloned &operator=(const Cloned &) = delete;

    FakeEditorView cloneView;
    std::unique_ptr<EditorWindowController> clone;
};

} // namespace

void EditorCloneTest::nothingDoneInACloneIsStored()
{
    Cloned windows;
    const QByteArray viewedBefore = windows.record(u"r1"_s).viewedBy().toUtf8();
    QCOMPARE(windows.clone->windowTitle(), u"Test.tv3-CLONE"_s);
    QVERIFY(!windows.cloneView.editable);
    QVERIFY(!windows.clone->tableController().mayEdit());

    windows.cloneView.type(*windows.clone, u"scribble"_s);
    windows.clone->storeRecordBeingEdited();
    windows.clone->loadRecordAtIndex(1);
    windows.clone->setMode(u"List"_s);
    windows.clone->search().toggleFindButton({});
    windows.clone->tableController().columnDidResize(0, 500);
    windows.clone->autoSaveChanges(true);
    windows.clone->windowWillClose();

    QVERIFY(!windows.document->isModified());
    QVERIFY(!windows.document->datafileSettings().datafileSettingsDidChange());
    QCOMPARE(windows.document->datafileSettings().mode(), u"Basic"_s);
    QCOMPARE(windows.window->mode(), u"Basic"_s);
    QCOMPARE(windows.record(u"r0"_s).textString(), QString());
    QCOMPARE(windows.record(u"r1"_s).viewedBy().toUtf8(), viewedBefore);
}

void EditorCloneTest::aCloneShowsWhatTheMainWindowDoes()
{
    Cloned windows;
    windows.view.type(*windows.window, u"Typed"_s);
    QTRY_COMPARE(windows.cloneView.text, u"Typed"_s);

    // What is still only on screen comes when somebody looks at the clone.
    windows.view.type(*windows.window, u"Typed more"_s);
    windows.clone->windowDidBecomeMain();
    QCOMPARE(windows.cloneView.text, u"Typed more"_s);

    windows.basic().setData(windows.basic().index(0, 1), u"Z"_s, Qt::EditRole);
    QAbstractItemModel &inClone = windows.clone->tableController().basicTableModel();
    QCOMPARE(inClone.index(0, 1).data().toString(), u"Z"_s);
    windows.window->addRecord();
    QCOMPARE(windows.clone->selectionText(), u"5 of 5 selected"_s);
}

void EditorCloneTest::aRecordDeletedInTheMainWindowLeavesTheClone()
{
    Cloned windows;
    windows.sheets.answerAlert(QVSheetController::FirstButton);
    windows.window->deleteRecord();
    QVERIFY(windows.clone->currentRecord());
    QCOMPARE(windows.clone->currentRecord()->identifier(), u"r1"_s);
    QVERIFY(windows.sheets.allAnswered());
}

void EditorCloneTest::besideACloneFewCommandsRun()
{
    Cloned windows;
    const auto may = [&](EditorWindowController &window) {
        QStringList allowed;
        for (const QString &selector : {u"addRecord:"_s,
                                        u"deleteRecord:"_s,
                                        u"sortByFields:"_s,
                                        u"saveDocument:"_s,
                                        u"switchView:"_s,
                                        u"showRecordInfo:"_s,
                                        u"openCloneWindow:"_s,
                                        u"insertDateTime:"_s}) {
            if (window.validateAction(selector))
                allowed.append(selector);
        }
        return allowed.join(u' ');
    };
    QCOMPARE(may(*windows.clone), u"switchView:"_s);
    QCOMPARE(may(*windows.window), u"deleteRecord: saveDocument: switchView: openCloneWindow:"_s);
    windows.clone.reset();
    QVERIFY(may(*windows.window).startsWith("addRecord: deleteRecord: sortByFields:"_L1));

    windows.window->setEditingNonPrintableRecords(true);
    QCOMPARE(may(*windows.window),
             u"saveDocument: switchView: showRecordInfo: openCloneWindow: insertDateTime:"_s);
}

void EditorCloneTest::aCloneGoesBeforeItsMainWindow()
{
    Cloned windows;
    QSignalSpy closed(windows.clone.get(), &EditorWindowController::closeAllowed);
    windows.clone->requestClose();
    QCOMPARE(closed.count(), 1);

    QSignalSpy mainClosed(windows.window.get(), &EditorWindowController::closeAllowed);
    QObject::connect(windows.window.get(), &EditorWindowController::cloneWindowMustClose, this, [&] {
        QCOMPARE(mainClosed.count(), 0);
        windows.clone.reset();
    });
    windows.window->requestClose();
    QVERIFY(!windows.clone);
    QTRY_COMPARE(mainClosed.count(), 1);
}

QTEST_MAIN(EditorCloneTest)
#include "EditorCloneTest.moc"
