// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorChanges.h"

#include "EditorFixture.h"
#include "editor/EditorFields.h"
#include "editor/EditorRecords.h"
#include "editor/ModifyFieldsSheetController.h"

#include <QSignalSpy>
#include <QThread>

#include <atomic>
#include <optional>
#include <thread>

using namespace tavrin;

/// What is done to many records at once, and what could lose data in it.
class EditorChangesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manyRecordsAreChangedBitByBit();
    void whatWentTooFarIsMadeToItsEnd();
    void aReadOnlyDatafileIsLeftAlone();
    void onlyThoseAskedAboutAreDeleted();
    void fieldsAreNotShownUncounted();
    void withoutFieldsNothingIsMovedThere();
    void undoingAFieldLeavesOtherSettings();
};

namespace {

constexpr int yes = QVSheetController::FirstButton;

qsizetype lockedIn(const EditorFixture &editor)
{
    qsizetype locked = 0;
    editor.document->datafileRecords().forEach(
        [&locked](quint32, const RecordView &record) { locked += record.recordLocked() ? 1 : 0; });
    return locked;
}

} // namespace

void EditorChangesTest::manyRecordsAreChangedBitByBit()
{
    constexpr qsizetype many = 4100;
    EditorFixture editor(QStringList(many, u"x"_s));
    editor.open();
    editor.work.g_holds = true;
    QSignalSpy refused(editor.window.get(), &EditorWindowController::closeRefused);
    const auto begin = [&editor](auto command) {
        command();
        QVERIFY(editor.window->changes().isChanging());
        QVERIFY(!editor.window->isFreeformTextEditable());
        QVERIFY(!editor.window->validateAction(u"addRecord:"_s));
        QVERIFY(!editor.window->leaveEditing());
    };
    const auto lockAll = [&editor] {
        editor.window->records().lockAllRecords();
        editor.work.finishNext();
    };
    begin(lockAll);
    editor.window->requestClose();
    QCOMPARE(refused.size(), 1);
    editor.work.finishNext(true);
    editor.work.finishNext(); // What was made of it is taken back.
    QCOMPARE(lockedIn(editor), 0);
    QVERIFY(!editor.window->changes().isChanging() && !editor.document->isModified());

    begin(lockAll);
    editor.work.finishNext();
    QCOMPARE(lockedIn(editor), many);
    QVERIFY(!editor.window->isFreeformTextEditable() && editor.document->isModified());
    begin([&editor] { editor.window->undo(); });
    QCOMPARE(editor.window->undoName(), u"Lock All Records"_s); // Not yet.
    editor.work.finishNext();
    QCOMPARE(lockedIn(editor), 0);
    QCOMPARE(editor.window->redoName(), u"Lock All Records"_s);
    QVERIFY(!editor.document->isModified() && editor.window->isFreeformTextEditable());

    editor.window->records().removeDuplicateRecords();
    editor.sheets.answerAlert(yes);
    begin([&editor] { editor.work.finishNext(); });
    editor.work.finishNext();
    QCOMPARE(editor.identifiers(), QStringList{u"r0"_s});
    begin([&editor] { editor.window->undo(); });
    editor.work.finishNext();
    QCOMPARE(editor.identifiers().size(), many);
    QCOMPARE(editor.identifiers().last(), u"r4099"_s);
}

namespace {

/// A change that is cancelled while it makes its parts from a place on, which takes longer than the work
/// waits.
class CancelledChange : public SteppedChange
{
public:
    CancelledChange(SharedProgress &progress, size_t reversible)
        : g_progress(progress)
        , g_reversible(reversible)
    {}

    QString name() const override { return u"Change"_s; }
    size_t partCount() const override { return 10'000; }
    size_t reversiblePartCount() const override { return g_reversible; }
    void makeParts(DatafileDocument & /*document*/, size_t from, size_t to) override
    {
        QCOMPARE(from, made);
        made = to;
        if (to < partCount() / 2 || g_progress.isCancelled())
            return;
        g_progress.cancel();
        QThread::msleep(250);
    }
    void unmakeParts(DatafileDocument & /*document*/, size_t from, size_t to) override
    {
        QVERIFY(to == made && to <= g_reversible);
        made = from;
    }
    void conclude(DatafileDocument & /*document*/) override { isConcluded = true; }

    size_t made = 0;
    bool isConcluded = false;

private:
    SharedProgress &g_progress;
    size_t g_reversible;
};

/// As a host does the work that waits there.
void runOnAnotherThread(EditorFixture &editor, SharedProgress &progress)
{
    const std::unique_ptr<LongWork> work = std::move(editor.work.g_held.front());
    editor.work.g_held.pop_front();
    std::atomic<bool> hasEnded = false;
    std::thread thread([&] {
        work->run(progress);
        hasEnded = true;
    });
    while (!hasEnded)
        QCoreApplication::processEvents();
    thread.join();
    QCoreApplication::processEvents();
    Q_EMIT work->ended();
}

} // namespace

void EditorChangesTest::whatWentTooFarIsMadeToItsEnd()
{
    for (const size_t reversible : {size_t(1000), size_t(10'000)}) {
        EditorFixture editor;
        editor.open();
        editor.work.g_holds = true;
        SharedProgress progress;
        auto owned = std::make_unique<CancelledChange>(progress, reversible);
        const CancelledChange &change = *owned;
        std::optional<bool> made;
        editor.window->changes().make(std::move(owned), [&](bool isMade) {
            made = isMade;
            QCOMPARE(change.made, isMade ? change.partCount() : 0);
            QCOMPARE(change.isConcluded, isMade);
        });
        runOnAnotherThread(editor, progress);
        QVERIFY(!made && editor.window->changes().isChanging());
        SharedProgress unwatched;
        runOnAnotherThread(editor, unwatched);
        QCOMPARE(made, std::optional(reversible == 1000));
    }
}

void EditorChangesTest::aReadOnlyDatafileIsLeftAlone()
{
    EditorFixture editor;
    editor.settings.insert(u"ReadOnly"_s, true);
    editor.open(u"r1"_s);
    EditorRecords &records = editor.window->records();
    EditorFields &fields = editor.window->fields();
    const std::vector<std::function<void()>> commands{[&] { records.addRecord(); },
                                                      [&] { records.addRecordWithPaste(); },
                                                      [&] { records.duplicateCurrentRecord(); },
                                                      [&] { records.addTOC(); },
                                                      [&] { records.deleteRecord(); },
                                                      [&] { records.deleteRecordWithoutWarning(); },
                                                      [&] { records.removeDuplicateRecords(); },
                                                      [&] { records.makeThisTheFirstRecord(); },
                                                      [&] { records.moveAfterRecordNumber(); },
                                                      [&] { records.lockAllRecords(); },
                                                      [&] { records.toggleRecordLocked(); },
                                                      [&] { fields.modifyFields(); },
                                                      [&] { fields.setVisible(); },
                                                      [&] { fields.fillEmptyFields(); },
                                                      [&] { fields.addFieldWithContent(); }};
    for (const auto &command : commands) {
        editor.sheets.answerAlert(yes);
        command();
        QVERIFY(editor.sheets.allAnswered());
        QCOMPARE(editor.sheets.alerts().last(), u"This datafile is read-only."_s);
        QVERIFY(!editor.document->isModified());
    }
}

void EditorChangesTest::onlyThoseAskedAboutAreDeleted()
{
    EditorFixture editor;
    editor.entries[2].selected = editor.entries[3].selected = false;
    editor.settings.insert(u"AutoSaveChanges"_s, true);
    editor.preferences.setObject(editor.folder.path(), u"DatafilesFolderURL"_s);
    editor.open();
    editor.work.g_holds = true;
    editor.sheets.answerAlert(yes);
    editor.window->records().deleteAllSelectedRecords();
    editor.document->datafileCatalog().switchToOmitted(); // While the backup is being written.
    editor.work.finishNext();
    QCOMPARE(editor.identifiers(), (QStringList{u"r2"_s, u"r3"_s}));
    // Saving is left to the person, who may want them back.
    QVERIFY(editor.document->isModified() && !editor.document->isSaving());
}

void EditorChangesTest::fieldsAreNotShownUncounted()
{
    EditorFixture editor;
    editor.open();
    editor.work.g_holds = true;
    editor.window->fields().modifyFields();
    editor.work.finishNext(true); // Nobody expects a sheet.
    QVERIFY(!editor.document->isModified());
}

void EditorChangesTest::withoutFieldsNothingIsMovedThere()
{
    EditorFixture editor;
    editor.fields.clear();
    editor.open();
    editor.sheets.answerAlert(yes);
    editor.window->fields().moveTextElements();
    QCOMPARE(editor.sheets.alerts(), QStringList{u"This datafile has no fields."_s});
}

void EditorChangesTest::undoingAFieldLeavesOtherSettings()
{
    EditorFixture editor({u""_s, u""_s});
    editor.open();
    editor.window->setMode(u"Basic"_s);
    const auto deleteFields = [](qsizetype count) {
        return [count](ModifyFieldsSheetController &sheet) {
            for (qsizetype i = 0; i < count; ++i)
                sheet.deleteField(0);
            sheet.accept();
        };
    };
    editor.sheets.answerNext<ModifyFieldsSheetController>(deleteFields(1));
    editor.window->fields().modifyFields();
    editor.window->setMode(u"List"_s);
    editor.document->datafileSettings().setTitleField(u"b"_s);
    editor.window->undo();
    QCOMPARE(editor.window->mode(), u"List"_s);
    QCOMPARE(editor.document->datafileSettings().titleField(), u"b"_s);

    editor.window->setMode(u"Basic"_s);
    editor.sheets.answerNext<ModifyFieldsSheetController>(deleteFields(2));
    editor.window->fields().modifyFields();
    QCOMPARE(editor.window->mode(), u"List"_s);
    editor.window->undo();
    QCOMPARE(editor.window->mode(), u"Basic"_s);
    QCOMPARE(editor.basic().rowCount(), 2);
}

QTEST_MAIN(EditorChangesTest)
#include "EditorChangesTest.moc"
