// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Replacing what was found: the last hit, or all of them.

#include "base/FilledIn.h"
#include "document/UndoHistory.h"
#include "editor/AlertSheetController.h"
#include "editor/ContentLongWork.h"
#include "editor/EditorFinding.h"
#include "editor/EditorWindowController.h"
#include "editor/TextPlaces.h"

#include <utility>

namespace tavrin {

using text::Match;

bool EditorFinding::replaceString(const Replacement &replacement)
{
    const RecordData *record = g_window.currentRecord();
    if (!record || g_window.isClone() || g_window.nowSyncing() || replacement.findWhat.isEmpty())
        return false;
    if (record->recordLocked()) {
        g_window.setLastHitField(LastHitField::none);
        return false;
    }
    const qint64 last = g_window.lastHitField();
    if (last == LastHitField::freeformText)
        return replaceInFreeform(replacement);
    return last >= 0 && last < g_window.document().datafileSettings().fields().size()
           && replaceInField(last, replacement);
}

bool EditorFinding::replaceInField(qint64 field, const Replacement &replacement)
{
    // Whoever selected something else in the cell means that.
    std::optional<Match> selected = g_view->cellSelection();
    if (const QList<Match> hits = hitsInField(field); !selected && hits.size() == 1)
        selected = hits.first();
    if (!selected)
        return false;
    g_window.updateCurrentRecord();
    return replaceStored({field, *selected}, replacement);
}

bool EditorFinding::replaceInFreeform(const Replacement &replacement)
{
    g_window.updateCurrentRecord();
    const QString text = storedText();
    const Match selected = storedPlaces(text, g_view->freeformSelection());
    if (!g_window.isFreeformTextEditable())
        return replaceStored({HitField::freeformText, selected}, replacement);
    const SearchKey key(replacement.findWhat, replacement.options);
    if (!key.equals(QStringView(text).sliced(selected.start, selected.length)))
        return false;
    // By way of the widget, so that it can be undone as typing can.
    g_view->replaceFreeformSelection(replacement.replaceWith);
    g_window.updateCurrentRecord();
    forgetHits();
    return true;
}

bool EditorFinding::replaceStored(const RecordHit &hit, const Replacement &replacement)
{
    DatafileDocument &document = g_window.document();
    const RecordData &record = *g_window.currentRecord();
    const QString identifier = document.datafileRecords().identifierForRecord(&record);
    const quint32 number = document.datafileRecords().identifiers().number(identifier);
    ContentChange::Record before{number, {}, {}};
    if (hit.field == HitField::freeformText) {
        before.text = RecordText{record.textString(), record.textRTFD()};
    } else {
        const QString field = document.datafileSettings().fields()[hit.field].identifier();
        before.fields.append({field, record.fieldValue(field)});
    }
    const auto place =
        tavrin::replaceString(document, {g_window.indexOfCurrentRecord(), number, hit}, replacement);
    if (!place)
        return false;
    std::vector<ContentChange::Record> changes;
    changes.push_back(std::move(before));
    document.undoHistory().push(std::make_unique<ContentChange>(tr("Replace"), std::move(changes)));
    if (hit.field == HitField::freeformText) {
        g_window.loadCurrentRecord();
        g_view->selectInFreeform(shownPlaces(storedText(), place->selection.value_or(Match{0, 0})));
    }
    forgetHits();
    g_resume = place;
    return true;
}

void EditorFinding::replaceAll(const Replacement &replacement,
                               qint64 fieldsToSearchIn,
                               bool limitToCurrentRecord)
{
    if (g_window.isClone() || !g_window.leaveEditing() || !g_window.currentRecord())
        return;
    const DatafileRecordsData &records = g_window.document().datafileRecords();
    const quint32 current =
        records.identifiers().number(records.identifierForRecord(g_window.currentRecord()));
    const auto make = [=, this] {
        auto work = std::make_shared<ReplaceAllWork>(
            g_window.document(), replacement, fieldsToSearchIn, UnkeptFormatting::Leave);
        if (limitToCurrentRecord)
            work->restrictTo(current);
        return work;
    };
    const auto ended = [this, limitToCurrentRecord](const ContentWork &work, bool) {
        g_window.setLastHitField(LastHitField::none);
        if (limitToCurrentRecord)
            g_window.loadCurrentRecord();
        else
            g_window.loadRecordAtIndex(0);
        tellReplaced(static_cast<const ReplaceAllWork &>(work));
    };
    beginContentWork(g_window, g_work, tr("Replacing…"), make, ended);
}

void EditorFinding::tellReplaced(const ReplaceAllWork &work)
{
    const QString left = work.leftTexts().empty()
                             ? QString()
                             : filledIn(tr("Records with formatted texts that could not be changed: %lu"),
                                        {QString::number(work.leftTexts().size())});
    showAlert(g_sheets,
              work.replacements() > 0
                  ? filledIn(tr("Number of changes made: %lu"), {QString::number(work.replacements())})
                  : tr("No changes were made."),
              left);
}

} // namespace tavrin
