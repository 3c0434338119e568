// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/BackgroundWork.h"
#include "base/Result.h"
#include "document/FileStamp.h"

namespace tavrin {

/// A datafile being written on another thread, and what its document wants to know when that has ended.
///
/// The destructor waits for the write under way; nobody is told of its end then.
class BackgroundSave
{
public:
    /// Writes the file and says how it is stamped then, on whatever thread.
    using Write = std::function<Result<FileStamp>()>;
    using Ended = std::function<void(const Result<FileStamp> &written)>;

    void begin(Write write, Ended ended);

    bool isRunning() const { return g_work.isRunning(); }
    void wait() { g_work.wait(); }

    qint64 changeCount = 0;       ///< How many of the document's changes are being saved.
    bool settingsChanged = false; ///< Changes of the settings are among what is being saved.

private:
    Result<FileStamp> g_written;
    BackgroundWork g_work; ///< Goes first: its thread uses the result.
};

} // namespace tavrin
