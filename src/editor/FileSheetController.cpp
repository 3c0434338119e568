// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/FileSheetController.h"

#include <QFileInfo>

namespace tavrin {

void FileSheetController::setPaths(const QStringList &paths)
{
    g_paths = paths;
    if (g_request.purpose == Purpose::SaveFile && !g_request.requiredExtension.isEmpty()
        && !g_paths.isEmpty()) {
        QString &path = g_paths.front();
        if (QFileInfo(path).suffix().isEmpty())
            path += u'.' + g_request.requiredExtension;
    }
    Q_EMIT changed();
}

} // namespace tavrin
