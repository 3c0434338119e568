// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/BackupWriting.h"

#include "base/Progress.h"
#include "document/DatafileDocument.h"

#include <QFile>

#include <utility>

namespace tavrin {

BackupWriting::BackupWriting(DatafileDocument &document) : g_backups(document), g_path(g_backups.newPath())
{
    if (g_path)
        g_write = document.copyWriting(*g_path);
}

void BackupWriting::run(Progress &progress)
{
    if (!g_path)
        return;
    const QString path = *g_path;
    // What the document held goes with it.
    const std::function<Result<>()> write = std::exchange(g_write, {});
    if (!progress.isCancelled()) {
        if (const Result<> written = write(); !written)
            g_path = written.error();
    }
    if (!progress.isCancelled())
        return;
    QFile::remove(path);
    g_path = Error{Error::Kind::Cancelled, {}, path};
}

Result<QString> BackupWriting::finish()
{
    if (g_path)
        g_backups.didWrite(*g_path);
    return g_path;
}

} // namespace tavrin
