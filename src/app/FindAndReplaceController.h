// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/CodedItem.h"
#include "search/SearchCodes.h"

#include <QObject>
#include <QPointer>

namespace tavrin {

class EditorWindowController;
class Preferences;

/// The panel "Find and Replace": what it looks for, and in which datafile: the one whose window was the front
/// one last.
class FindAndReplaceController : public QObject
{
    Q_OBJECT

public:
    /// The preferences outlive it.
    explicit FindAndReplaceController(const Preferences &preferences) : g_preferences(preferences) {}
    ~FindAndReplaceController() override;

    /// Its window was turned to. It is let go of when it closes.
    void setDatafileWindowController(EditorWindowController *window);
    bool hasDatafile() const { return !g_window.isNull(); }
    /// Empty without one.
    QString datafileName() const;

    void setFindWhat(const QString &text);
    void setReplaceWith(const QString &text) { g_replaceWith = text; }
    void setCaseSensitiveIsOn(bool on) { g_caseSensitiveIsOn = on; }
    void setWholeWordIsOn(bool on) { g_wholeWordIsOn = on; }
    void setLimitToCurrentRecord(bool on) { g_limitToCurrentRecord = on; }
    qint64 fieldsToSearchIn() const { return g_fieldsToSearchIn; }
    void selectField(qint64 fieldsToSearchIn) { g_fieldsToSearchIn = fieldsToSearchIn; }
    /// Where can be searched: the codes of the search, with the names of the fields.
    QList<CodedItem> fieldsList() const;

    /// There is something to look for, and somewhere.
    bool canFind() const { return hasDatafile() && !g_findWhat.isEmpty(); }

    void findNext() { find(false); }
    void findPrevious() { find(true); }
    /// Beeps when there is no hit to replace.
    void replace();
    void replaceThenFind();
    void replaceAll();

Q_SIGNALS:
    /// Another datafile, or other fields.
    void targetChanged();
    void changed();
    void beep();

private:
    void find(bool backwards);
    bool isRefused();
    void letGo();
    void updateFields();

    const Preferences &g_preferences;
    QPointer<EditorWindowController> g_window;
    QString g_findWhat;
    QString g_replaceWith;
    qint64 g_fieldsToSearchIn = FieldsToSearchIn::everything;
    bool g_caseSensitiveIsOn = false;
    bool g_wholeWordIsOn = false;
    bool g_limitToCurrentRecord = false;
};

} // namespace tavrin
