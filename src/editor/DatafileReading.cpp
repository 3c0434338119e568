// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/DatafileReading.h"

#include <QFileInfo>

namespace tavrin {

DatafileReading::DatafileReading(const QString &path, const QString &title)
    : g_path(path)
    , g_title(title.arg(QFileInfo(path).fileName()))
{}

void DatafileReading::run(Progress &progress)
{
    g_contents = readDatafile(g_path, progress);
    // Cancelled between the last look and the end: who cancelled does not want it any more.
    if (progress.isCancelled())
        g_contents = Error{Error::Kind::Cancelled, {}, g_path};
}

} // namespace tavrin
