// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/DatafileDrop.h"

#include "document/DatafileKind.h"

#include <QMimeData>
#include <QUrl>

namespace tavrin {

QStringList droppedDatafiles(const QMimeData &data)
{
    QStringList paths;
    for (const QUrl &url : data.urls()) {
        const QString path = url.toLocalFile();
        if (!path.isEmpty() && datafileKindOfPath(path))
            paths.append(path);
    }
    return paths;
}

} // namespace tavrin
