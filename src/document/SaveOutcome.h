// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tavrin {

/// What came of the command Save.
enum class SaveOutcome {
    Saved,
    Begun,            ///< The file is being written on another thread.
    NothingToSave,    ///< No unsaved changes, or the window does not permit saving now.
    NotByThisCommand, ///< A mobile-kind document is not saved by Save.
    NeedsSaveAs,      ///< Opened read-only: ask for another file.
};

/// How Save As ended, as its alert tells it.
struct SaveAsOutcome
{
    /// What the writing reported: 0 when nothing was reported, and then the alert is shown.
    int errorCode = 0;
    QString failureReason; ///< For the alert: one sentence.
    bool written = false;
};

} // namespace tavrin
