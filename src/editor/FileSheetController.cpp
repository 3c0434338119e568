// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/FileSheetController.h"

#include "model/Preferences.h"

#include <QFileInfo>

namespace tavrin {

void FileSheetController::keepFolder(Preferences &preferences, const QString &key)
{
    const QString last = preferences.stringForKey(key);
    if (g_request.folder.isEmpty() && QFileInfo(last).isDir())
        g_request.folder = last;
    connect(this, &QVSheetController::finished, this, [this, &preferences, key](int code) {
        if (code != FirstButton || path().isEmpty())
            return;
        const bool isFolder = g_request.purpose == Purpose::OpenFolder;
        QFileInfo folder(isFolder ? path() : QFileInfo(path()).absolutePath());
        // A folder that is a document is no place for others.
        while (folder.suffix().compare(QLatin1StringView("rtfd"), Qt::CaseInsensitive) == 0)
            folder = QFileInfo(folder.absolutePath());
        preferences.setObject(folder.absoluteFilePath(), key);
    });
}

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
