// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/DatafileDocument.h"
#include "document/LockFile.h"
#include "editor/SheetHost.h"

#include <QObject>
#include <QTimer>

namespace tavrin {

class EnterPasswordSheetController;

/// Whether an editor window may write its datafile: read-only opening, the lock file, the password.
///
/// Saving is not permitted until decide() has run and the password, if there is one, was given.
class EditorPermission : public QObject
{
    Q_OBJECT

public:
    EditorPermission(DatafileDocument &document, SheetHost &sheets);

    /// Opens the document read-only where the settings or somebody else's lock file say so, and makes our
    /// own lock file where it is wanted. Permits saving at once where there is neither a file nor a password.
    void setUpReadOnlyAndLock();

    /// Tells of a datafile that grows too large to be handled well.
    void warnWhenTooLarge();

    /// The first call decides a second later: by then the person sees the window.
    void windowDidBecomeMain();

    /// Permits saving, or asks for the password first; runs once.
    void decide();

    bool canSaveChanges() const { return g_canSaveChanges; }
    bool isAskingPassword() const { return g_askingPassword; }
    /// The datafile is in use elsewhere: nothing of ours may be written over it.
    bool isLockedBySomebodyElse() const { return g_lockedBySomebodyElse; }

    /// Removes the lock file if we made it.
    void releaseLock();

Q_SIGNALS:
    void changed();

private:
    void setUpLock();
    void datafileReadOnly();
    void datafileLocked();
    void lockFailed(const Error &error);
    void enterPasswordSheetDidEnd(const EnterPasswordSheetController &sheet, int returnCode);

    DatafileDocument &g_document;
    SheetHost &g_sheets;
    LockFile g_lockFile; ///< Held when this window made it.
    QTimer g_timer;
    bool g_canSaveChanges = false;
    bool g_passwordChecked = false;
    bool g_askingPassword = false;
    bool g_readOnlyByOpening = false; ///< Whatever the password: by the settings or a lock file.
    bool g_lockedBySomebodyElse = false;
};

} // namespace tavrin
