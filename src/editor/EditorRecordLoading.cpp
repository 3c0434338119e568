// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Showing a record, and taking what the person did to it back into the record.

#include "editor/BasicTableModel.h"
#include "editor/EditorFreeformText.h"
#include "editor/EditorLinks.h"
#include "editor/EditorSearchController.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"

#include <algorithm>
#include <utility>

namespace tavrin {

// Derived values.

QString EditorWindowController::identifierOf(const RecordData *record) const
{
    return g_document.datafileRecords().identifierForRecord(record);
}

qint64 EditorWindowController::indexOfCurrentRecord() const
{
    const qint64 index =
        g_document.datafileCatalog().indexOfSelectedIdentifier(identifierOf(g_currentRecord));
    return index == NotFound ? 0 : index;
}

RecordData *EditorWindowController::recordAtIndex(qint64 index)
{
    return g_document.datafileRecords().recordForIdentifier(
        g_document.datafileCatalog().selectedIdentifierAtIndex(index));
}

std::optional<RecordView> EditorWindowController::recordViewAtIndex(qint64 index) const
{
    return g_document.datafileRecords().view(g_document.datafileCatalog().selectedIdentifierAtIndex(index));
}

bool EditorWindowController::isValidRecord(const RecordData *record) const
{
    const QString identifier = identifierOf(record);
    return !identifier.isEmpty() && g_document.datafileCatalog().isSelectedIdentifier(identifier);
}

bool EditorWindowController::haveCurrentSelection() const
{
    return countSelected() != g_document.datafileCatalog().count();
}

bool EditorWindowController::isEmpty(const RecordData &record, const DatafileSettingsData &settings)
{
    return record.textString().isEmpty()
           && std::ranges::all_of(settings.fields(), [&record](const FieldDefinition &field) {
                  return record.fieldValue(field.identifier()).isEmpty();
              });
}

// Loading.

void EditorWindowController::loadRecordAtIndex(qint64 index)
{
    RecordData *record = recordAtIndex(index);
    if (!record) {
        if (index == 0)
            showNothing();
        else
            loadRecordAtIndex(0);
        return;
    }
    privateLoadValidatedRecord(record);
    insertInViewedRecordList(record);
}

void EditorWindowController::loadRecord(RecordData *record)
{
    if (isValidRecord(record))
        privateLoadValidatedRecord(record);
    else
        loadRecordAtIndex(0);
}

void EditorWindowController::privateLoadValidatedRecord(RecordData *record)
{
    saveIfDifferentRecord(record);
    g_text->show(*record);
    if (isClone()) {
        g_cloneText = record->textString();
        g_cloneRTFD = record->textRTFD();
    }
    updateFreeformTextEditability();
    g_tableController->reload();
    if (settings().automaticallyEnableLinks())
        g_links->activateFreeformLinks();
    Q_EMIT statusChanged();
    Q_EMIT recordLoaded();
    Q_EMIT operationsChanged();
}

/// No record is selected: what the last one left on the screen must not pass for a record.
void EditorWindowController::showNothing()
{
    saveIfDifferentRecord(nullptr);
    g_currentRecord = nullptr;
    g_text->showNothing();
    updateFreeformTextEditability();
    g_tableController->reload();
    Q_EMIT statusChanged();
    Q_EMIT recordLoaded();
    Q_EMIT operationsChanged();
}

void EditorWindowController::updateFreeformTextEditability()
{
    g_freeformTextEditable = isFreeformTextEditable();
    g_view->setFreeformTextEditable(g_freeformTextEditable);
}

void EditorWindowController::insertInViewedRecordList(const RecordData *record)
{
    if (g_movingInViewedRecordList)
        return;
    g_viewedRecordList.insert(identifierOf(record));
    Q_EMIT operationsChanged();
}

// Writing back.

void EditorWindowController::saveIfDifferentRecord(RecordData *newRecord)
{
    if (!g_nowSaving && newRecord != g_currentRecord) {
        if (g_currentRecord && !isClone())
            cleanFieldValues();
        if (newRecord && !isClone())
            newRecord->viewed(g_document.services().environment);
        const bool wasEditing = g_view->isTableEditing();
        const auto selection = g_view->cellTextSelection();
        if (wasEditing)
            g_view->endTableEditing();
        if (g_currentRecord && !isClone()) {
            storeFreeformText();
            if (wasEditing && newRecord)
                g_view->setFocus(EditorFocus::Table);
            else if (wasEditing)
                resumeTableEditing(selection);
        }
    }
    if (newRecord)
        g_currentRecord = newRecord;
}

void EditorWindowController::updateCurrentRecord()
{
    if (g_nowSaving || !g_currentRecord || isClone())
        return;
    if (g_view->isTableEditing())
        g_view->endTableEditing();
    storeFreeformText();
}

void EditorWindowController::storeRecordBeingEdited()
{
    saveIfDifferentRecord(nullptr);
}

void EditorWindowController::endListEditing()
{
    if (isBasicView() || !g_view->isTableEditing())
        return;
    g_view->endTableEditing();
    // In the table, the next key would take the place of the cell's content.
    g_search->selectSearchField();
}

void EditorWindowController::cleanFieldValues()
{
    const QString identifier = identifierOf(g_currentRecord);
    for (const FieldDefinition &field : settings().fields()) {
        const QString value = g_currentRecord->fieldValue(field.identifier());
        const QString cleaned = EditorTableController::cleanedFieldValue(value);
        if (cleaned == value)
            continue;
        g_document.storeFieldValue(identifier, field.identifier(), cleaned);
        setDatafileChanged();
    }
}

/// A text that the person left alone stays as it is stored, byte for byte.
void EditorWindowController::storeFreeformText()
{
    if (!g_view->isFreeformTextModified())
        return;
    g_text->store(identifierOf(g_currentRecord));
    g_view->clearFreeformTextModified();
}

/// Where the person was in the cell, there they go on.
void EditorWindowController::resumeTableEditing(std::pair<int, int> selection)
{
    const int field = g_tableController->currentField();
    if (isBasicView())
        g_view->resumeTableCell(field, BasicTableModel::ValueColumn);
    else
        g_view->resumeTableCell(static_cast<int>(indexOfCurrentRecord()), field);
    if (selection.first >= 0)
        g_view->setCellTextSelection(selection.first, selection.second);
}

/// The tables end whatever is edited in them when they are set up: what is being typed is stored first.
void EditorWindowController::setUpTables()
{
    const bool wasEditing = g_view->isTableEditing();
    const auto selection = g_view->cellTextSelection();
    if (wasEditing)
        g_view->endTableEditing();
    g_tableController->setupTables();
    if (wasEditing)
        resumeTableEditing(selection);
}

// What marks things modified.

void EditorWindowController::setDatafileChanged()
{
    if (!nowSyncing() && !isClone())
        g_document.updateChangeCount(DatafileDocument::ChangeCount::Done);
}

void EditorWindowController::markEdited(const QString &identifier)
{
    g_document.markRecordModified(identifier);
    if (identifier == identifierOf(g_currentRecord))
        g_currentRecordDirty = true;
    setDatafileChanged();
}

void EditorWindowController::textDidChange()
{
    if (!g_currentRecord || nowSyncing() || isClone())
        return;
    markEdited(identifierOf(g_currentRecord));
    if (g_cloneWindow)
        g_cloneTimer.start();
}

void EditorWindowController::cellTextDidChange()
{
    if (g_tableController->mayEdit())
        markEdited(identifierOf(g_currentRecord));
}

void EditorWindowController::storeFieldValue(const RecordData &record,
                                             const QString &fieldIdentifier,
                                             const QString &value)
{
    const QString identifier = identifierOf(&record);
    g_document.storeFieldValue(identifier, fieldIdentifier, value);
    markEdited(identifier);
}

} // namespace tavrin
