// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "editor/EditorFinding.h"

#include <memory>

namespace tavrin {

class FindCount;

/// The find box of an editor window: the keys in its text, its modes, and what its buttons do.
///
/// Modes are settings of the datafile; only whether they may be changed is a preference of the person.
class EditorSearchController : public QObject
{
    Q_OBJECT

public:
    /// The keys held down with a button or with Return.
    struct HeldKeys
    {
        bool option = false;  ///< Alt: begins behind the current record; on the toggle, the style.
        bool control = false; ///< Ctrl: leaves the focus where the hit is; on the toggle, the case.
    };

    EditorSearchController(EditorWindowController &window,
                           SheetHost &sheets,
                           WorkHost &work,
                           Preferences &preferences);
    ~EditorSearchController() override;

    void attachView(FindView &view) { g_finding.attachView(view); }
    EditorFinding &finding() { return g_finding; }
    const EditorFinding &finding() const { return g_finding; }

    QString findText() const { return g_findText; }
    /// As the person types it.
    void setFindText(const QString &text);
    QStringList targetStringList(const QString &findText) const;

    // The modes.
    bool isSelectMode() const;
    bool isInternetStyle() const;
    bool isCaseSensitive() const;
    bool areOptionsLocked() const;
    /// Does nothing but beep when the options are locked.
    void toggleFindButton(HeldKeys keys);
    void toggleSelectMode() { toggleFindButton({}); }
    void toggleEntryStyle() { toggleFindButton({.option = true}); }
    void toggleCaseSensitivity() { toggleFindButton({.control = true}); }
    void toggleOptionsLock();

    // What the buttons show.
    QString forwardImage() const;
    QString reverseImage() const;
    QString toggleImage() const;
    QString forwardToolTip() const;
    QString reverseToolTip() const;
    QString toggleToolTip() const;

    // What the buttons do; see HeldKeys.
    void forwardSearch(HeldKeys keys);
    void reverseSearch(HeldKeys keys);
    /// Of the selected records, those that hold the keys stay so.
    void quickSelect();
    void quickSelectAll();
    /// The next forward search leaves the focus as if Control were held down.
    void setSimulatedControlKeyDown() { g_simulatedControlKeyDown = true; }

    void activateFindBox();
    /// The same where the find box can be seen.
    void selectSearchField() { g_finding.view().focusFindBox(); }
    void useSelectionForFind();
    void insertAmpersand();

Q_SIGNALS:
    void modesChanged();
    /// How many records hold the keys, as a line for the status bar; empty when there is nothing to tell.
    void counted(const QString &line);

private:
    FindRequest requestFor(HeldKeys keys) const;
    void showSelected(const Result<bool> &selected);

    EditorWindowController &g_window;
    WorkHost &g_work;
    Preferences &g_preferences;
    EditorFinding g_finding;
    std::unique_ptr<FindCount> g_count;
    QString g_findText;
    bool g_simulatedControlKeyDown = false;
};

} // namespace tavrin
