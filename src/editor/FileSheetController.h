// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"

#include <QStringList>

namespace tavrin {

class Preferences;

/// The folder itself, or that around it when it is an RTFD document: that is no place for other files.
QString folderAroundDocuments(const QString &folder);

/// Which file to open, or where to save.
class FileSheetController : public QVSheetController
{
    Q_OBJECT

public:
    enum class Purpose { OpenFile, OpenFiles, OpenFolder, OpenFileOrFolder, SaveFile };

    struct Request
    {
        Purpose purpose = Purpose::OpenFiles;
        QString title;
        QString acceptLabel; ///< Empty: the platform's own word.
        QString folder;      ///< Where the panel starts; empty: the platform's choice.
        QString suggestedName;
        QString requiredExtension; ///< Appended to a saved name that has none.
        QStringList nameFilters;   ///< As "Datafiles (*.tv3 *.tvk)".
    };

    explicit FileSheetController(Request request) : g_request(std::move(request)) {}

    /// Starts where the person was last for this purpose, unless the request says where, and remembers the
    /// folder of the answer. The preferences outlive the sheet.
    void keepFolder(Preferences &preferences, const QString &key);

    const Request &request() const { return g_request; }

    /// The chosen paths; one for a folder or a file to save.
    QStringList paths() const { return g_paths; }
    QString path() const { return g_paths.value(0); }
    void setPaths(const QStringList &paths);

    bool isAcceptable() const override { return !g_paths.isEmpty(); }

private:
    Request g_request;
    QStringList g_paths;
};

} // namespace tavrin
