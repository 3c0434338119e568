// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Basic View and List View, the window's frame and divider, and what the document announces.

#include "document/UndoHistory.h"
#include "editor/AlertSheetController.h"
#include "editor/BasicTableModel.h"
#include "editor/EditorChanges.h"
#include "editor/EditorSearchController.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"
#include "editor/ListTableModel.h"
#include "model/Preferences.h"

#include <utility>
#include <variant>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr auto basicMode = "Basic"_L1;
constexpr auto listMode = "List"_L1;

template <typename... Handlers>
struct Overloaded : Handlers...
{
    using Handlers::operator()...;
};

// Clang before 17 does not find this by itself.
template <typename... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

} // namespace

// The two views.

bool EditorWindowController::isBasicView() const
{
    return g_mode == basicMode;
}

QString EditorWindowController::mode() const
{
    return isBasicView() ? basicMode : listMode;
}

void EditorWindowController::switchView()
{
    setMode(isBasicView() ? listMode : basicMode);
}

void EditorWindowController::setMode(const QString &mode)
{
    const bool hasFields = !settings().fields().isEmpty();
    const bool toBasic = hasFields && mode == basicMode;
    if (toBasic == isBasicView())
        return;
    const EditorFocus focus = g_view->focus();
    const auto [start, length] = g_view->cellTextSelection();
    updateCurrentRecord();
    const int present = g_tableController->currentField();
    const int field = toBasic ? g_tableController->fieldForListColumn(present)
                              : g_tableController->listColumnForField(present);
    g_mode = toBasic ? basicMode : listMode;
    if (!isClone()) {
        settings().setMode(g_mode);
        viewSettingsDidChange();
    }
    Q_EMIT modeChanged();
    setUpViewForMode();
    // The focus has come to the other table meanwhile, and to whatever cell it stood on.
    g_tableController->setCurrentField(field);
    g_tableController->reload();
    restoreFocus(focus);
    if (focus == EditorFocus::Table && start >= 0)
        g_view->setCellTextSelection(start, length);
    Q_EMIT operationsChanged();
}

/// Where the person was before the views changed places, there they go on.
void EditorWindowController::restoreFocus(EditorFocus focus)
{
    if (focus == EditorFocus::FreeformText)
        focusFreeformText();
    if (focus == EditorFocus::Elsewhere)
        g_search->selectSearchField();
    if (focus != EditorFocus::Table || settings().fields().isEmpty())
        return;
    const int field = g_tableController->currentField();
    g_lastHitField = isBasicView() ? field : g_tableController->fieldForListColumn(field);
    if (isBasicView())
        g_view->editTableCell(field, BasicTableModel::ValueColumn);
    else
        g_view->editTableCell(static_cast<int>(indexOfCurrentRecord()), field);
}

void EditorWindowController::freshenWindowContentSettings()
{
    g_search->selectSearchField();
    g_lastHitField = -1;
}

void EditorWindowController::showCurrentRow()
{
    if (g_currentRecord && !isBasicView())
        g_view->selectTableRow(static_cast<int>(indexOfCurrentRecord()));
}

void EditorWindowController::viewSettingsDidChange()
{
    if (!isClone() && !g_preferences.boolForKey(u"GeneralNoUpdateForViewChanges"_s))
        settings().setDatafileSettingsDidChange(true);
}

// Frame and divider: each view has its own.

QString EditorWindowController::currentViewFrame() const
{
    return isBasicView() ? settings().basicViewFrame() : settings().listViewFrame();
}

void EditorWindowController::setCurrentViewFrame(const QString &frame)
{
    if (isClone())
        return;
    if (isBasicView())
        settings().setBasicViewFrame(frame, g_preparing);
    else
        settings().setListViewFrame(frame, g_preparing);
}

double EditorWindowController::currentSplitHeight() const
{
    return static_cast<double>(isBasicView() ? settings().basicSplitHeight() : settings().listSplitHeight());
}

void EditorWindowController::setUpViewForMode()
{
    // What the view reports while it is being placed is not the person's doing.
    g_preparing = true;
    // A clone stands beside its main window, not on it: where, the view knows.
    if (const QString frame = currentViewFrame(); frame.isEmpty())
        setCurrentViewFrame(g_view->frame());
    else if (!isClone())
        g_view->setFrame(frame);
    g_view->setSplitHeight(currentSplitHeight());
    g_preparing = false;
}

void EditorWindowController::viewGeometryDidChange()
{
    if (g_preparing || isClone())
        return;
    if (const QString frame = g_view->frame(); frame != currentViewFrame())
        setCurrentViewFrame(frame);
    const auto height = static_cast<float>(g_view->splitHeight());
    if (static_cast<double>(height) == currentSplitHeight())
        return;
    if (isBasicView())
        settings().setBasicSplitHeight(height);
    else
        settings().setListSplitHeight(height);
    viewSettingsDidChange();
}

// What the document announces.

void EditorWindowController::followDocument()
{
    connect(&g_document, &DatafileDocument::changed, this, &EditorWindowController::documentDidChange);
    connect(&g_document, &DatafileDocument::modifiedChanged, this, [this] {
        Q_EMIT titleChanged();
        Q_EMIT operationsChanged();
    });
    connect(&g_document, &DatafileDocument::fileChanged, this, [this] {
        Q_EMIT titleChanged();
        Q_EMIT operationsChanged();
    });
    if (isClone())
        return;
    // Commands are refused there. What is typed can be saved elsewhere, which is good to know early.
    connect(&g_document, &DatafileDocument::modifiedChanged, this, [this](bool modified) {
        if (modified && g_document.openedReadOnly())
            Q_EMIT statusMessage(
                tr("This datafile is read-only: your changes can only be saved by Save As."));
    });
    connect(&g_document, &DatafileDocument::selectionWouldBeEmptyError, this, [this] {
        showAlert(g_sheets,
                  tr("Selection Did Not Change"),
                  tr("Selection criterion would have caused zero records to be selected (viewable), which "
                     "cannot be done"));
    });
}

void EditorWindowController::documentDidChange(const DatafileChange &change)
{
    std::visit(
        Overloaded{[this](const RecordAdded &) { catalogDidChange(); },
                   [this](const RecordWillBeDeleted &deleted) { recordWillBeDeleted(deleted.identifier); },
                   [this](const RecordDeleted &) { catalogDidChange(); },
                   [this](const RecordChanged &changed) { recordDidChange(changed.identifier); },
                   [this](const RecordsChanged &) { recordsDidChange(); },
                   [this](const CatalogChanged &) { catalogDidChange(); },
                   [this](const FieldFormatChanged &) { fieldFormatDidChange(); },
                   [this](const SettingsChanged &) {
                       setUpTables();
                       Q_EMIT titleChanged();
                       Q_EMIT operationsChanged();
                   },
                   [this](const DatafileReverted &) { datafileReverted(); }},
        change);
    if (isClone())
        showChangesInClone(change);
}

void EditorWindowController::recordWillBeDeleted(const QString &identifier)
{
    g_viewedRecordList.remove(identifier);
    if (identifier != identifierOf(g_currentRecord))
        return;
    if (g_view->isTableEditing())
        g_view->endTableEditing();
    g_currentRecord = nullptr;
}

void EditorWindowController::recordDidChange(const QString &identifier)
{
    const bool isCurrent = identifier == identifierOf(g_currentRecord);
    // A cell that is being typed into tells of its own change when it is done.
    if (isCurrent && g_view->isTableEditing())
        return;
    const qint64 row = g_document.datafileCatalog().indexOfSelectedIdentifier(identifier);
    if (row != NotFound)
        g_tableController->listTableModel().reloadRow(static_cast<int>(row));
    if (!isCurrent)
        return;
    g_tableController->basicTableModel().reload();
    if (g_freeformTextEditable != isFreeformTextEditable()) {
        updateFreeformTextEditability();
        Q_EMIT statusChanged();
        Q_EMIT operationsChanged();
    }
}

void EditorWindowController::fieldFormatDidChange()
{
    // The last field takes Basic View along, and brings it back.
    setMode(isClone() ? g_mode : settings().mode());
    g_tableController->setupTables();
    Q_EMIT operationsChanged();
}

void EditorWindowController::recordsDidChange()
{
    g_tableController->reload();
    if (g_freeformTextEditable != isFreeformTextEditable())
        updateFreeformTextEditability();
    Q_EMIT statusChanged();
    Q_EMIT operationsChanged();
}

void EditorWindowController::catalogDidChange()
{
    g_tableController->listTableModel().reset();
    showCurrentRow();
    Q_EMIT statusChanged();
    Q_EMIT operationsChanged();
}

void EditorWindowController::datafileReverted()
{
    // The record that was shown is gone, and what was typed into it is not to reach the one in its place:
    // resetting the tables ends the editing without taking the cell over.
    g_currentRecord = nullptr;
    g_currentRecordDirty = false;
    if (!isClone())
        g_mode = settings().mode();
    g_tableController->setupTables();
    Q_EMIT statusChanged();
    Q_EMIT modeChanged();
    loadCurrentRecord();
    Q_EMIT titleChanged();
}

// What is done to many records, and taking it back.

bool EditorWindowController::leaveEditing()
{
    if (nowSyncing() || isClone())
        return false;
    updateCurrentRecord();
    saveIfDifferentRecord(nullptr);
    return true;
}

bool EditorWindowController::permitsChange()
{
    if (!g_document.openedReadOnly() && !settings().readOnly())
        return true;
    showAlert(g_sheets,
              tr("This datafile is read-only."),
              tr("Changes could not be saved, so its records and fields stay as they are."));
    return false;
}

void EditorWindowController::showRecord(const QString &identifier)
{
    RecordData *record = g_document.datafileRecords().recordForIdentifier(identifier);
    if (!record)
        return;
    SubsetSortedData &catalog = g_document.datafileCatalog();
    if (!catalog.isSelectedIdentifier(identifier)) {
        catalog.includeIdentifier(identifier);
        catalogDidChange();
    }
    loadRecord(record);
    insertInViewedRecordList(record);
}

QString EditorWindowController::undoName() const
{
    return isClone() ? QString() : g_document.undoHistory().undoName();
}

QString EditorWindowController::redoName() const
{
    return isClone() ? QString() : g_document.undoHistory().redoName();
}

void EditorWindowController::undo()
{
    g_changes->undo();
}

void EditorWindowController::redo()
{
    g_changes->redo();
}

} // namespace tavrin
