// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorSelecting.h"

#include "document/DatafileArrangement.h"
#include "editor/AlertSheetController.h"
#include "editor/EditorWindowController.h"
#include "editor/LongWork.h"

namespace tavrin {

namespace {

/// Finding out which records meet the criteria.
class SelectingWork : public LongWork
{
public:
    SelectingWork(const DatafileDocument &document, const SubsetSortCriteriaData &criteria, bool fromOmitted)
        : g_selecting(document, criteria, fromOmitted)
    {}

    QString title() const override { return EditorSelecting::tr("Selecting records…"); }
    void run(Progress &progress) override { g_selecting.run(progress); }
    const RecordSelecting &selecting() const { return g_selecting; }

private:
    RecordSelecting g_selecting;
};

} // namespace

EditorSelecting::EditorSelecting(EditorWindowController &window, SheetHost &sheets, WorkHost &work)
    : g_window(window)
    , g_sheets(sheets)
    , g_work(work)
{}

void EditorSelecting::selectRecordsFrom(SelectRecordsSheetController::From from)
{
    if (!g_window.leaveEditing())
        return;
    const DatafileSettingsData &settings = g_window.document().datafileSettings();
    auto sheet = std::make_unique<SelectRecordsSheetController>(
        settings.criteria<SubsetSortCriteriaData>(), settings.fields(), settings.textName(), from);
    connect(sheet.get(), &QVSheetController::finished, this, [this, from, sheet = sheet.get()](int code) {
        if (code == QVSheetController::FirstButton)
            select(sheet->criteria(), from == SelectRecordsSheetController::From::Omitted);
    });
    g_sheets.begin(std::move(sheet));
}

void EditorSelecting::select(const SubsetSortCriteriaData &criteria, bool fromOmitted)
{
    if (!g_window.leaveEditing())
        return;
    auto work = std::make_unique<SelectingWork>(g_window.document(), criteria, fromOmitted);
    connect(work.get(), &LongWork::ended, this, [this, work = work.get(), criteria, fromOmitted] {
        // What was typed since the work began is stored before a record is shown anew.
        g_window.leaveEditing();
        const Result<bool> selected = work->selecting().apply(g_window.document());
        if (!selected && selected.error().kind == Error::Kind::Refused)
            select(criteria, fromOmitted); // Of the records as they are now.
        else if (selected && *selected)
            g_window.loadRecordAtIndex(0);
    });
    g_work.begin(std::move(work));
}

void EditorSelecting::selectAllRecords()
{
    if (!g_window.leaveEditing())
        return;
    DatafileArrangement(g_window.document()).selectAll();
    g_window.loadCurrentRecord();
}

void EditorSelecting::revertToPreviousSelection()
{
    if (g_window.leaveEditing() && DatafileArrangement(g_window.document()).revertToPrevious())
        g_window.loadCurrentRecord();
}

void EditorSelecting::switchToOmitted()
{
    if (g_window.leaveEditing() && DatafileArrangement(g_window.document()).switchToOmitted())
        g_window.loadCurrentRecord();
}

void EditorSelecting::deselectCurrentRecord()
{
    const RecordData *record = g_window.currentRecord();
    if (!record || !g_window.leaveEditing())
        return;
    const qint64 index = g_window.indexOfCurrentRecord();
    const QString identifier = g_window.document().datafileRecords().identifierForRecord(record);
    if (DatafileArrangement(g_window.document()).omit(identifier))
        g_window.loadRecordAtIndex(index);
}

} // namespace tavrin
