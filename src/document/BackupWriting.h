// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/DatafileBackups.h"

#include <functional>

namespace tavrin {

class Progress;

/// A backup being written: of what the document holds when this is made, on whatever thread.
class BackupWriting
{
public:
    /// The document outlives it.
    explicit BackupWriting(DatafileDocument &document);

    /// On whatever thread, once. Cancelled, it leaves no file.
    void run(Progress &progress);

    /// On the document's thread, behind run(): the backup is known from now on, and old ones may go. Its
    /// path; Cancelled, or the errors of DatafileBackups::write().
    Result<QString> finish();

private:
    DatafileBackups g_backups;
    Result<QString> g_path;
    std::function<Result<>()> g_write;
};

} // namespace tavrin
