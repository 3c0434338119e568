// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Going from record to record, adding and deleting them.

#include "document/UndoHistory.h"
#include "editor/BasicTableModel.h"
#include "editor/EditorRecords.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"
#include "editor/GotoRecordSheetController.h"
#include "editor/ListTableModel.h"

#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// Whether a record may be removed without a question because nothing was ever put into it. Emptiness is
/// judged by what the window shows; what it does not show (images in the rich text, contents of fields that
/// are no longer defined) is no less worth keeping. An empty text's own rich form is shorter than 400 bytes.
bool mayVanish(const RecordData &record, const DatafileSettingsData &settings)
{
    constexpr qsizetype longestEmptyRichText = 400;
    bool holdsNothing =
        EditorWindowController::isEmpty(record, settings) && record.textRTFD().size() <= longestEmptyRichText;
    record.fields().forEach([&holdsNothing](const QString &, const plist::Value &value) {
        holdsNothing = holdsNothing && value.isString() && value.string()->isEmpty();
    });
    return holdsNothing;
}

} // namespace

void EditorWindowController::goToFirstRecord()
{
    if (!isNavigable() || indexOfCurrentRecord() == 0)
        return;
    leaveRecordFor(0);
    if (g_currentRecord && isEmpty(*g_currentRecord, settings()))
        goToNextRecord();
}

void EditorWindowController::goToLastRecord()
{
    const qint64 lastIndex = countSelected() - 1;
    if (!isNavigable() || indexOfCurrentRecord() == lastIndex)
        return;
    leaveRecordFor(lastIndex);
    if (g_currentRecord && isEmpty(*g_currentRecord, settings()))
        goToPreviousRecord();
}

void EditorWindowController::goToNextRecord()
{
    if (isNavigable())
        leaveRecordFor((indexOfCurrentRecord() + 1) % countSelected());
}

void EditorWindowController::goToPreviousRecord()
{
    const qint64 index = indexOfCurrentRecord();
    if (isNavigable())
        leaveRecordFor(index == 0 ? countSelected() - 1 : index - 1);
}

void EditorWindowController::goToRecordNumber()
{
    if (!isNavigable() || nowSyncing())
        return;
    const FieldDefinition *titles = settings().fieldWithIdentifier(settings().titleField());
    auto sheet = std::make_unique<GotoRecordSheetController>(countSelected(),
                                                             GotoRecordSheetController::Purpose::GoTo,
                                                             std::make_unique<TitleSearch>(g_document),
                                                             titles ? titles->name() : textName());
    connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int returnCode) {
        const qint64 index = sheet->index();
        if (returnCode != QVSheetController::FirstButton || index == indexOfCurrentRecord())
            return;
        if (g_document.datafileCatalog().isValidSelectedIndex(index))
            leaveRecordFor(index);
        else
            goToLastRecord();
    });
    g_sheets.begin(std::move(sheet));
}

void EditorWindowController::leaveRecordFor(qint64 target)
{
    const qint64 left = indexOfCurrentRecord();
    updateCurrentRecord();
    autoSaveChanges(false);
    loadRecordAtIndex(target);
    freshenWindowContentSettings();
    deleteIfEmptyRecordAtIndex(left);
}

void EditorWindowController::walkViewedRecordList(QString (RecordHistory::*step)())
{
    const bool canStep = step == &RecordHistory::goBack
                             ? g_viewedRecordList.position() != 0
                             : g_viewedRecordList.position() < g_viewedRecordList.identifiers().size() - 1;
    if (!canStep)
        return;
    updateCurrentRecord();
    autoSaveChanges(false);
    g_movingInViewedRecordList = true;
    loadRecord(g_document.datafileRecords().recordForIdentifier((g_viewedRecordList.*step)()));
    g_movingInViewedRecordList = false;
}

// Adding.

void EditorWindowController::addRecord()
{
    g_records->addRecord();
}

void EditorWindowController::showNewRecord(const QString &identifier)
{
    autoSaveChanges(false);
    RecordData *record = g_document.datafileRecords().recordForIdentifier(identifier);
    loadRecord(record);
    insertInViewedRecordList(record);
    focusFirstField();
    g_lastHitField = -1;
}

bool EditorWindowController::pasteIntoFreeformText(bool plain)
{
    focusFreeformText();
    return g_view->pasteIntoFreeformText(plain);
}

void EditorWindowController::focusTable()
{
    g_view->setFocus(EditorFocus::Table);
}

bool EditorWindowController::isTableFocused() const
{
    return g_view->focus() == EditorFocus::Table;
}

void EditorWindowController::focusFirstField()
{
    const bool hasColumn = isBasicView() ? !settings().fields().isEmpty()
                                         : !g_tableController->listTableModel().shownFields().isEmpty();
    if (!hasColumn) {
        focusFreeformText();
        return;
    }
    g_tableController->setCurrentField(0);
    if (isBasicView())
        g_view->editTableCell(0, BasicTableModel::ValueColumn);
    else
        g_view->editTableCell(static_cast<int>(indexOfCurrentRecord()), 0);
}

// Deleting.

void EditorWindowController::deleteIfEmptyRecordAtIndex(qint64 index)
{
    const RecordData *record = isNavigable() && !isClone() ? recordAtIndex(index) : nullptr;
    if (!record || !mayVanish(*record, settings()))
        return;
    const qint64 lastIndex = countSelected() - 1;
    const quint32 number = g_document.datafileRecords().identifiers().number(identifierOf(record));
    g_document.deleteRecord(identifierOf(record));
    g_document.undoHistory().forgetAddingOf(number);
    g_currentRecord = nullptr;
    if (countSelected() == 0) {
        g_document.datafileCatalog().selectAll();
        catalogDidChange();
    }
    setDatafileChanged();
    showAfterDeletion(index == lastIndex ? 0 : index);
}

void EditorWindowController::deleteRecord()
{
    g_records->deleteRecord();
}

void EditorWindowController::showAfterDeletion(qint64 index)
{
    g_currentRecord = nullptr;
    autoSaveChanges(true);
    loadRecordAtIndex(index);
    g_lastHitField = -1;
}

void EditorWindowController::showAfterDeletions()
{
    g_currentRecord = nullptr;
    loadRecordAtIndex(0);
    g_lastHitField = -1;
}

} // namespace tavrin
