// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorFinding.h"

#include "editor/AlertSheetController.h"
#include "editor/BasicTableModel.h"
#include "editor/EditorLinks.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"
#include "editor/LongWork.h"
#include "editor/TextPlaces.h"
#include "model/Preferences.h"
#include "plist/KeyedArchive.h"
#include "search/DatafileRows.h"

#include <tuple>
#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;
using text::Match;

namespace {

FindOutcome
search(const DatafileSearch &search, const FindRequest &request, const SearchStart &start, Progress &progress)
{
    const auto &[keys, extent] = std::tie(request.keys, request.extent);
    if (keys.size() == 1)
        return {request.backwards ? search.reverseSearchForString(keys.first(), start, extent, progress)
                                  : search.forwardSearchForString(keys.first(), start, extent, progress),
                {}};
    return {{},
            request.backwards ? search.reverseSearchForArrayOfStrings(keys, start, extent, progress)
                              : search.forwardSearchForArrayOfStrings(keys, start, extent, progress)};
}

} // namespace

/// A search of so many records that the window has to go on meanwhile.
class EditorFinding::SearchWork : public LongWork
{
public:
    SearchWork(const DatafileDocument &document, const FindRequest &request, const SearchStart &start)
        : g_search(std::make_shared<RecordRowSnapshot>(document, RecordRowSnapshot::Which::Selected),
                   RecordSearch(document.datafileSettings(), request.fieldsToSearchIn),
                   request.options)
        , g_request(request)
        , g_start(start)
    {}

    QString title() const override { return EditorFinding::tr("Finding…"); }
    void run(Progress &progress) override
    {
        outcome = search(g_search, g_request, g_start, progress);
        wasCancelled = progress.isCancelled();
    }

    FindOutcome outcome;
    bool wasCancelled = false;

private:
    DatafileSearch g_search;
    FindRequest g_request;
    SearchStart g_start;
};

EditorFinding::EditorFinding(EditorWindowController &window,
                             SheetHost &sheets,
                             WorkHost &work,
                             const Preferences &preferences)
    : g_window(window)
    , g_sheets(sheets)
    , g_work(work)
    , g_preferences(preferences)
{
    connect(&window.document(), &DatafileDocument::changed, this, [this] { ++g_changes; });
    connect(&window, &EditorWindowController::recordLoaded, this, &EditorFinding::forgetHits);
    connect(&window, &EditorWindowController::modeChanged, this, &EditorFinding::forgetHits);
}

EditorFinding::~EditorFinding() = default;

// Searching.

SearchStart EditorFinding::startOf(const FindRequest &request) const
{
    SearchStart start;
    start.record = g_window.indexOfCurrentRecord();
    if (!g_window.document().datafileSettings().fields().isEmpty())
        start.currentField = g_window.tableController().currentField();
    if (request.afterCurrentRecord) {
        // Behind the end of the text; backwards, before the first field.
        const qsizetype end = storedText().size();
        start.place = request.backwards ? RecordPlace{0, {}, Match{0, 0}}
                                        : RecordPlace{LastHitField::freeformText, {}, Match{end, 0}};
        return start;
    }
    start.place.lastHitField = g_window.lastHitField();
    start.place.selection = storedPlaces(storedText(), g_view->freeformSelection());
    if (g_resume && g_resume->lastHitField == start.place.lastHitField)
        start.place.inField = g_resume->inField;
    return start;
}

void EditorFinding::find(const FindRequest &request, const std::function<void(bool)> &ended)
{
    if (g_window.nowSyncing())
        return;
    if (request.keys.isEmpty() || !g_window.currentRecord()) {
        if (ended)
            ended(false);
        return;
    }
    g_window.updateCurrentRecord();
    const DatafileDocument &document = g_window.document();
    const SearchStart start = startOf(request);
    if (request.extent.limitToCurrentRecord || g_window.countSelected() <= g_mostAtOnce) {
        Progress progress;
        const DatafileSearch inDocument(document, request.options, request.fieldsToSearchIn);
        finish(request, search(inDocument, request, start, progress), ended);
        return;
    }
    auto work = std::make_unique<SearchWork>(document, request, start);
    connect(
        work.get(), &LongWork::ended, this, [this, request, ended, work = work.get(), changes = g_changes] {
            if (work->wasCancelled)
                return;
            g_window.updateCurrentRecord();
            if (changes != g_changes)
                find(request, ended); // Among the records as they are now.
            else
                finish(request, work->outcome, ended);
        });
    g_work.begin(std::move(work));
}

void EditorFinding::finish(const FindRequest &request,
                           const FindOutcome &outcome,
                           const std::function<void(bool)> &ended)
{
    forgetHits();
    const bool found = outcome.one || outcome.several;
    if (outcome.one)
        showOne(*outcome.one, !request.activateSearchField);
    else if (outcome.several)
        showSeveral(*outcome.several);
    else
        showFailure(request);
    if (request.activateSearchField)
        g_view->focusFindBox();
    if (ended)
        ended(found);
}

void EditorFinding::showFailure(const FindRequest &request)
{
    g_window.setLastHitField(LastHitField::none);
    if (request.keys.size() > 1)
        g_view->focusFindBox();
    beepForFailure();
}

void EditorFinding::beepForFailure() const
{
    if (g_preferences.boolForKey(u"GeneralBeepWhenFindFails"_s))
        g_view->beep();
}

// Showing what was found.

bool EditorFinding::showRecord(qint64 record, quint32 number)
{
    const DatafileRecordsData &records = g_window.document().datafileRecords();
    if (records.identifierForRecord(g_window.currentRecord()) != records.identifiers().text(number)) {
        g_window.autoSaveChanges(false);
        g_window.loadRecordAtIndex(record);
    }
    return g_window.currentRecord() != nullptr;
}

void EditorFinding::showOne(const DatafileHit &hit, bool focusHit)
{
    if (!showRecord(hit.record, hit.number))
        return;
    if (hit.hit.field != HitField::freeformText) {
        g_window.setLastHitField(hit.hit.field);
        showFieldHit(hit.hit, focusHit);
        return;
    }
    showFreeformHits({hit.hit.range});
    g_window.setLastHitField(LastHitField::freeformText);
    if (focusHit)
        g_view->focusFreeform();
}

void EditorFinding::showSeveral(const DatafileHits &hits)
{
    if (!showRecord(hits.record, hits.number))
        return;
    g_fieldHits = hits.fieldHits;
    if (!hits.freeformHits.isEmpty())
        showFreeformHits(hits.freeformHits);
    if (!hits.fieldHits.isEmpty()) {
        const auto [row, column] = cellOf(hits.hitField);
        g_window.tableController().setCurrentField(g_window.isBasicView() ? row : column);
        g_view->showCell(row, column);
    }
    g_view->redrawCells();
    g_window.setLastHitField(hits.lastHitField);
}

void EditorFinding::showFieldHit(const RecordHit &hit, bool focusHit)
{
    g_fieldHits = {hit};
    const auto [row, column] = cellOf(hit.field);
    g_window.tableController().setCurrentField(g_window.isBasicView() ? row : column);
    if (focusHit)
        g_view->editCell(row, column, hit.range);
    else
        g_view->showCell(row, column);
    g_view->redrawCells();
    g_window.setLastHitField(hit.field);
}

void EditorFinding::showFreeformHits(const QList<Match> &hits)
{
    const QString stored = storedText();
    QList<Match> shown;
    for (const Match &hit : hits)
        shown.append(shownPlaces(stored, hit));
    g_view->selectInFreeform(shown.last());
    g_view->showFreeformHits(shown, hitColor());
}

void EditorFinding::showHit(const QString &identifier, const RecordHit &hit)
{
    g_window.updateCurrentRecord();
    g_window.showRecord(identifier);
    const RecordData *record = g_window.currentRecord();
    if (!record || g_window.document().datafileRecords().identifierForRecord(record) != identifier)
        return;
    forgetHits();
    const QList<FieldDefinition> fields = g_window.document().datafileSettings().fields();
    const bool isInText = hit.field == HitField::freeformText;
    if (!isInText && hit.field >= fields.size())
        return;
    const qsizetype size =
        isInText ? storedText().size() : record->fieldValue(fields[hit.field].identifier()).size();
    if (hit.range.start + hit.range.length > size)
        return;
    const quint32 number = g_window.document().datafileRecords().identifiers().number(identifier);
    showOne({g_window.indexOfCurrentRecord(), number, hit}, false);
}

void EditorFinding::showLinkedHit(const QString &identifier, const RecordHit &hit)
{
    if (!g_window.document().datafileRecords().contains(identifier)) {
        showAlert(g_sheets, tr("This record no longer exists."), {});
        return;
    }
    g_window.links().showSelectedOrAsk(identifier, [this, identifier, hit] { showHit(identifier, hit); });
}

void EditorFinding::forgetHits()
{
    const bool hadFieldHits = !g_fieldHits.isEmpty();
    g_fieldHits.clear();
    g_resume.reset();
    g_view->showFreeformHits({}, {});
    if (hadFieldHits)
        g_view->redrawCells();
}

QList<Match> EditorFinding::hitsInField(qint64 field) const
{
    QList<Match> ranges;
    for (const RecordHit &hit : g_fieldHits) {
        if (hit.field == field)
            ranges.append(hit.range);
    }
    return ranges;
}

QColor EditorFinding::hitColor() const
{
    const plist::Value stored = g_preferences.objectForKey(u"GeneralSearchHitColor"_s);
    const auto color = stored.isData() ? plist::unarchiveColor(*stored.data()) : std::nullopt;
    if (!color)
        return Qt::red;
    const auto part = [](double value) { return static_cast<float>(qBound(0.0, value, 1.0)); };
    return QColor::fromRgbF(part(color->red), part(color->green), part(color->blue), part(color->alpha));
}

/// Row and column of a field of the current record in the visible table.
std::pair<int, int> EditorFinding::cellOf(qint64 field) const
{
    const int index = static_cast<int>(field);
    if (g_window.isBasicView())
        return {index, BasicTableModel::ValueColumn};
    return {static_cast<int>(g_window.indexOfCurrentRecord()),
            g_window.tableController().listColumnForField(index)};
}

QString EditorFinding::storedText() const
{
    return g_window.currentRecord() ? g_window.currentRecord()->textString() : QString();
}

} // namespace tavrin
