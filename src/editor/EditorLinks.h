// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/SheetHost.h"

#include <QObject>

#include <functional>

class QUrl;

namespace tavrin {

class EditorWindowController;
class RecordData;
enum class EditorFocus;

/// The links of an editor window: finding them in the freeform text, following them, making and removing
/// them.
class EditorLinks : public QObject
{
    Q_OBJECT

public:
    EditorLinks(EditorWindowController &window, SheetHost &sheets);

    /// Makes every address in the freeform text a link, as something that is seen and not an edit.
    void activateFreeformLinks();
    /// The same as a command of the person's: an edit.
    void activateLinks();

    /// Goes to the record or lets the system open what the link names: web and mail addresses, telephone
    /// numbers and files, nothing else. A program is not run without a question. False when nobody could.
    bool followLink(const QString &link);
    /// The same, and tells the person when nobody could.
    void openLink(const QString &link);
    void loadLinkedRecord(RecordData *record);
    /// Has a record that is there shown: at once when it is selected, else if the person wants to select it.
    void showSelectedOrAsk(const QString &identifier, const std::function<void()> &show);
    bool mayFollow(const QString &link) const;

    /// The link at the caret, in the text or in the cell being edited; empty: there is none.
    QString linkAtCaret() const;
    void openLinkAtCaret() { openLink(linkAtCaret()); }

    /// Asks for a file and links to it at the caret, or puts its address into the cell being edited.
    void insertFileLink();
    void removeLink();
    /// The addresses in the cell being edited are but text, until it is edited anew.
    void deactivateFieldLink();
    /// Asks where the selected text, or the link at the caret, is to lead.
    void editLink();
    /// Copies a link to the current record, to be pasted into another one's text.
    void copyRecordLink();

    /// Who opens addresses; the desktop unless a test says otherwise.
    void setOpener(std::function<bool(const QUrl &)> opener) { g_opener = std::move(opener); }

private:
    bool openFile(const QUrl &url, const QString &link);
    void linkDidFail(const QString &link);
    void linkFile(const QString &path, EditorFocus focus, int row, int column);
    void insertLinkedText(const QString &text, const QString &link);

    EditorWindowController &g_window;
    SheetHost &g_sheets;
    std::function<bool(const QUrl &)> g_opener;
};

} // namespace tavrin
