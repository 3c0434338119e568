// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Replacing what was found: the last hit, or all of them.

#include "base/FilledIn.h"
#include "document/UndoHistory.h"
#include "editor/AlertSheetController.h"
#include "editor/EditorFinding.h"
#include "editor/EditorWindowController.h"
#include "editor/TextPlaces.h"

#include <utility>

namespace tavrin {

using text::Match;

namespace {

/// Undo and redo are the same exchange of contents.
class ReplaceChange : public UndoStep
{
public:
    explicit ReplaceChange(TextChanges changes) : g_changes(std::move(changes)) {}

    QString name() const override { return EditorFinding::tr("Replace"); }
    void undo(DatafileDocument &document) override { g_changes.exchange(document); }
    void redo(DatafileDocument &document) override { g_changes.exchange(document); }

private:
    TextChanges g_changes;
};

} // namespace

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
    TextChanges::Record before{identifier, {}, {}, {}};
    if (hit.field == HitField::freeformText) {
        before.text = record.textString();
        before.textRTFD = record.textRTFD();
    } else {
        const QString field = document.datafileSettings().fields()[hit.field].identifier();
        before.fields.append({field, record.fieldValue(field)});
    }
    const auto place =
        tavrin::replaceString(document, {g_window.indexOfCurrentRecord(), number, hit}, replacement);
    if (!place)
        return false;
    TextChanges changes;
    changes.add(before);
    document.undoHistory().push(std::make_unique<ReplaceChange>(std::move(changes)));
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
    ReplaceExtent extent{.fieldsToSearchIn = fieldsToSearchIn, .onlyRecord = {}};
    if (limitToCurrentRecord)
        extent.onlyRecord = g_window.indexOfCurrentRecord();
    else
        g_window.loadRecordAtIndex(0);
    Progress progress;
    DatafileDocument &document = g_window.document();
    ReplaceAllOutcome outcome =
        tavrin::replaceAll(document, replacement, extent, UnkeptFormatting::Leave, progress);
    if (outcome.replacements > 0)
        document.undoHistory().push(std::make_unique<ReplaceChange>(std::move(outcome.undo)));
    g_window.setLastHitField(LastHitField::none);
    g_window.loadCurrentRecord();
    const QString left = outcome.leftRecords.isEmpty()
                             ? QString()
                             : filledIn(tr("Records with formatted texts that could not be changed: %lu"),
                                        {QString::number(outcome.leftRecords.size())});
    showAlert(g_sheets,
              outcome.replacements > 0
                  ? filledIn(tr("Number of changes made: %lu"), {QString::number(outcome.replacements)})
                  : tr("No changes were made."),
              left);
}

} // namespace tavrin
