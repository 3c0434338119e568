// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/FileSheetController.h"

#include "model/Preferences.h"

#include <QFileInfo>

namespace tavrin {

QString folderAroundDocuments(const QString &folder)
{
    QFileInfo around(folder);
    while (around.suffix().compare(QLatin1StringView("rtfd"), Qt::CaseInsensitive) == 0)
        around = QFileInfo(around.absolutePath());
    return around.absoluteFilePath();
}

void FileSheetController::keepFolder(Preferences &preferences, const QString &key)
{
    const QString last = preferences.stringForKey(key);
    if (g_request.folder.isEmpty() && QFileInfo(last).isDir())
        g_request.folder = last;
    connect(this, &QVSheetController::finished, this, [this, &preferences, key](int code) {
        if (code != FirstButton || path().isEmpty())
            return;
        const bool isFolder = g_request.purpose == Purpose::OpenFolder;
        const QString folder = isFolder ? path() : QFileInfo(path()).absolutePath();
        preferences.setObject(folderAroundDocuments(folder), key);
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
