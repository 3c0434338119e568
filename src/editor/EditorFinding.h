// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/FindView.h"
#include "search/DatafileReplace.h"
#include "search/DatafileSearch.h"

#include <QObject>

#include <functional>

namespace tavrin {

class EditorWindowController;
class Preferences;
class SheetHost;
class WorkHost;

/// What to find, and from where on.
struct FindRequest
{
    QStringList keys;
    KeyOptions options;
    qint64 fieldsToSearchIn = FieldsToSearchIn::everything;
    SearchExtent extent{.okayToWrap = true};
    bool backwards = false;
    bool afterCurrentRecord = false; ///< Passing over what is left of the current record.
    /// The find box has the focus afterwards; else what was found has it.
    bool activateSearchField = true;
};

/// What was found: of one key, or of several.
struct FindOutcome
{
    std::optional<DatafileHit> one;
    std::optional<DatafileHits> several;
};

/// Finding and replacing in one editor window: the search goes on where the last one ended, the window moves
/// to what it finds and colours it, and replaces what it has found.
///
/// What is being typed is stored first. Nothing happens while the datafile is being synchronized.
class EditorFinding : public QObject
{
    Q_OBJECT

public:
    EditorFinding(EditorWindowController &window,
                  SheetHost &sheets,
                  WorkHost &work,
                  const Preferences &preferences);
    ~EditorFinding() override;

    void attachView(FindView &view) { g_view = &view; }
    FindView &view() const { return *g_view; }

    /// One key is looked for by itself; of several, a record must hold each. `ended` is told whether it was
    /// found, at once unless there are very many records; never when the search was cancelled.
    void find(const FindRequest &request, const std::function<void(bool found)> &ended = {});

    /// Shows a record, selecting it if need be, and the hit in it if that is still there.
    void showHit(const QString &identifier, const RecordHit &hit);

    /// The same for a hit that was found outside the window: an omitted record is asked about first, and of
    /// one that is gone it is told.
    void showLinkedHit(const QString &identifier, const RecordHit &hit);

    /// Replaces the last hit if it still stands there and is selected. The search then goes on behind what
    /// was put in. False, and no change, otherwise, and in a locked record.
    bool replaceString(const Replacement &replacement);

    /// Replaces every occurrence in one undo step, shows the first of the records unless it is about the
    /// current one alone, and says how many there were.
    void replaceAll(const Replacement &replacement, qint64 fieldsToSearchIn, bool limitToCurrentRecord);

    /// What is coloured in a field of the current record.
    QList<text::Match> hitsInField(qint64 field) const;
    QColor hitColor() const;
    /// The sound for a search or a selection that finds nothing, if the person wants it.
    void beepForFailure() const;

    void forgetHits();

    /// How many records are searched before the window goes on meanwhile.
    void setMostAtOnce(qint64 records) { g_mostAtOnce = records; }

private:
    class SearchWork;

    void
    finish(const FindRequest &request, const FindOutcome &outcome, const std::function<void(bool)> &ended);
    SearchStart startOf(const FindRequest &request) const;
    bool showRecord(qint64 record, quint32 number);
    void showOne(const DatafileHit &hit, bool focusHit);
    void showSeveral(const DatafileHits &hits);
    void showFailure(const FindRequest &request);
    void showFieldHit(const RecordHit &hit, bool focusHit);
    void showFreeformHits(const QList<text::Match> &hits);
    std::pair<int, int> cellOf(qint64 field) const;
    QString storedText() const;
    bool replaceInField(qint64 field, const Replacement &replacement);
    bool replaceInFreeform(const Replacement &replacement);
    void tellReplaced(const ReplaceAllWork &work);
    bool replaceStored(const RecordHit &hit, const Replacement &replacement);

    EditorWindowController &g_window;
    SheetHost &g_sheets;
    WorkHost &g_work;
    const Preferences &g_preferences;
    FindView g_noView;
    FindView *g_view = &g_noView;
    QList<RecordHit> g_fieldHits;        ///< In the current record.
    std::optional<RecordPlace> g_resume; ///< Behind the last replacement.
    qint64 g_mostAtOnce = 20000;         ///< Nobody notices that.
    quint64 g_changes = 0;               ///< How often the document changed.
};

} // namespace tavrin
