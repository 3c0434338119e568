// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorSearchController.h"

#include "base/FilledIn.h"
#include "editor/EditorSelecting.h"
#include "editor/EditorWindowController.h"
#include "editor/FindCount.h"
#include "editor/LongWork.h"
#include "model/Preferences.h"
#include "search/FindSelection.h"
#include "search/TargetStringList.h"

#include <QKeySequence>

#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 findState = 0;
constexpr qint64 selectState = 1;

const QString optionsLocked = u"MagnifyingGlassDisabled"_s;

FindEntryStyle styleOf(const DatafileSettingsData &settings)
{
    return settings.findEntryMode() == static_cast<qint64>(FindEntryStyle::Internet)
               ? FindEntryStyle::Internet
               : FindEntryStyle::Classic;
}

/// The key of a tooltip, by the name that it has on this platform's keyboards.
QString withKey(const QString &toolTip, const QKeySequence &key)
{
    return toolTip + u'\n' + key.toString(QKeySequence::NativeText);
}

/// Finding out which of the selected records hold the keys.
class FindSelectionWork : public LongWork
{
public:
    FindSelectionWork(const DatafileDocument &document, const QStringList &keys, KeyOptions options)
        : selection(document, keys, options, FieldsToSearchIn::everything)
    {}

    QString title() const override { return EditorSearchController::tr("Selecting records…"); }
    void run(Progress &progress) override { selection.run(progress); }

    FindSelection selection;
};

} // namespace

EditorSearchController::EditorSearchController(EditorWindowController &window,
                                               SheetHost &sheets,
                                               WorkHost &work,
                                               Preferences &preferences)
    : g_window(window)
    , g_work(work)
    , g_preferences(preferences)
    , g_finding(window, sheets, work, preferences)
    , g_count(std::make_unique<FindCount>(window.document()))
{
    connect(g_count.get(), &FindCount::counted, this, &EditorSearchController::counted);
    connect(&preferences, &Preferences::changed, this, [this](const QString &key) {
        if (key == optionsLocked)
            Q_EMIT modesChanged();
    });
    connect(&window, &EditorWindowController::titleChanged, this, &EditorSearchController::modesChanged);
}

EditorSearchController::~EditorSearchController() = default;

// The find box's text.

void EditorSearchController::setFindText(const QString &text)
{
    g_findText = text;
    g_count->count(targetStringList(text), {.caseSensitive = isCaseSensitive()}, isSelectMode());
}

QStringList EditorSearchController::targetStringList(const QString &findText) const
{
    return tavrin::targetStringList(findText, styleOf(g_window.document().datafileSettings()));
}

void EditorSearchController::activateFindBox()
{
    g_finding.view().revealFindBox();
    g_finding.view().focusFindBox();
}

void EditorSearchController::useSelectionForFind()
{
    const QString selected = g_finding.view().selectedText();
    if (selected.isEmpty())
        return;
    setFindText(selected);
    g_finding.view().setFindText(selected);
}

void EditorSearchController::insertAmpersand()
{
    if (isInternetStyle())
        return;
    g_finding.view().insertInFindBox(u"&&"_s);
}

// The modes.

bool EditorSearchController::isSelectMode() const
{
    return g_window.document().datafileSettings().findDisplayState() == selectState;
}

bool EditorSearchController::isInternetStyle() const
{
    return styleOf(g_window.document().datafileSettings()) == FindEntryStyle::Internet;
}

bool EditorSearchController::isCaseSensitive() const
{
    return g_window.document().datafileSettings().caseSensitiveSearches();
}

bool EditorSearchController::areOptionsLocked() const
{
    return g_preferences.boolForKey(optionsLocked);
}

void EditorSearchController::toggleOptionsLock()
{
    g_preferences.setObject(!areOptionsLocked(), optionsLocked);
}

void EditorSearchController::toggleFindButton(HeldKeys keys)
{
    // They are the datafile's: a clone leaves them as they are.
    if (areOptionsLocked() || g_window.isClone()) {
        g_finding.view().beep();
        return;
    }
    DatafileSettingsData &settings = g_window.document().datafileSettings();
    if (keys.option)
        settings.setFindEntryMode(
            static_cast<qint64>(isInternetStyle() ? FindEntryStyle::Classic : FindEntryStyle::Internet));
    else if (keys.control)
        settings.setCaseSensitiveSearches(!isCaseSensitive());
    else
        settings.setFindDisplayState(isSelectMode() ? findState : selectState);
    settings.setDatafileSettingsDidChange(true);
    Q_EMIT modesChanged();
    setFindText(g_findText);
}

// What the buttons show.

QString EditorSearchController::forwardImage() const
{
    return isSelectMode() ? u"TB_C_selectButton"_s : u"TB_C_findFwd"_s;
}

QString EditorSearchController::reverseImage() const
{
    return isSelectMode() ? u"TB_C_selectAllButton"_s : u"TB_C_findBwd"_s;
}

QString EditorSearchController::toggleImage() const
{
    const QString style = isInternetStyle() ? u"TB_C_findButtonQuotes"_s : u"TB_C_findButtonAmper"_s;
    return isCaseSensitive() ? style + u"Case"_s : style;
}

QString EditorSearchController::forwardToolTip() const
{
    return withKey(isSelectMode() ? tr("Select records that contain text in Find Box.")
                                  : tr("Perform forward search for text in Find Box."),
                   Qt::CTRL | Qt::Key_G);
}

QString EditorSearchController::reverseToolTip() const
{
    return withKey(isSelectMode() ? tr("Select ALL records.")
                                  : tr("Perform reverse search for text in Find Box."),
                   Qt::CTRL | Qt::SHIFT | Qt::Key_G);
}

QString EditorSearchController::toggleToolTip() const
{
    const QString state =
        filledIn(tr("%@, %@, %@."),
                 {isSelectMode() ? tr("Selects records") : tr("Finds text"),
                  isInternetStyle() ? tr("keys between blanks, phrases in quotes") : tr("keys between &&"),
                  isCaseSensitive() ? tr("case counts") : tr("case does not count")});
    if (areOptionsLocked())
        return state + u'\n' + tr("The find options are locked.");
    return state + u'\n' + tr("Click: find or select. Alt: style of the keys. Ctrl: case.");
}

// What the buttons do.

FindRequest EditorSearchController::requestFor(HeldKeys keys) const
{
    FindRequest request;
    request.keys = targetStringList(g_findText);
    request.options.caseSensitive = isCaseSensitive();
    request.afterCurrentRecord = keys.option;
    request.activateSearchField = !keys.control;
    return request;
}

void EditorSearchController::forwardSearch(HeldKeys keys)
{
    keys.control = std::exchange(g_simulatedControlKeyDown, false) || keys.control;
    if (g_window.nowSyncing())
        return;
    if (isSelectMode())
        quickSelect();
    else if (g_findText.isEmpty())
        g_window.goToNextRecord();
    else
        g_finding.find(requestFor(keys));
}

void EditorSearchController::reverseSearch(HeldKeys keys)
{
    if (g_window.nowSyncing())
        return;
    if (isSelectMode()) {
        quickSelectAll();
    } else if (g_findText.isEmpty()) {
        g_window.goToPreviousRecord();
    } else {
        FindRequest request = requestFor(keys);
        request.backwards = true;
        g_finding.find(request);
    }
}

void EditorSearchController::quickSelect()
{
    if (g_findText.isEmpty()) {
        g_window.goToNextRecord();
        return;
    }
    if (!g_window.leaveEditing())
        return;
    const KeyOptions options{.caseSensitive = isCaseSensitive()};
    auto work =
        std::make_unique<FindSelectionWork>(g_window.document(), targetStringList(g_findText), options);
    connect(work.get(), &LongWork::ended, this, [this, work = work.get()] {
        g_window.leaveEditing();
        const Result<bool> selected = work->selection.apply(g_window.document());
        if (!selected && selected.error().kind == Error::Kind::Refused)
            quickSelect(); // Of the records as they are now.
        else
            showSelected(selected);
    });
    g_work.begin(std::move(work));
}

void EditorSearchController::showSelected(const Result<bool> &selected)
{
    if (!selected)
        return;
    if (*selected) {
        g_window.loadRecordAtIndex(0);
        g_window.freshenWindowContentSettings();
    } else {
        g_finding.beepForFailure();
    }
}

void EditorSearchController::quickSelectAll()
{
    g_window.selecting().selectAllRecords();
    g_window.freshenWindowContentSettings();
}

} // namespace tavrin
