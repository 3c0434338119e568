// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/ExportSheetController.h"
#include "editor/SheetHost.h"
#include "io/ExportedRecords.h"
#include "io/TextExport.h"

#include <QObject>

#include <functional>
#include <memory>

class QMimeData;
class QTemporaryDir;

namespace tavrin {

class EditorWindowController;
class WorkHost;

/// Exporting the selected records as an editor window offers it: the questions, and the export itself, which
/// is done on another thread and can be cancelled. A failed export leaves nothing behind.
class EditorExporting : public QObject
{
    Q_OBJECT

public:
    EditorExporting(EditorWindowController &window, SheetHost &sheets, WorkHost &work);
    ~EditorExporting() override;

    void exportAsCSV();
    void exportAsTabDelimited();
    void exportAsTextFile();
    void exportAsRTFD();
    void exportAsFolderofTextFiles();
    void exportAsFolderofRTFDFiles();
    void exportAsFreeformDatafile();
    void exportAsJSON();
    void exportAsHTML();
    void exportAsFolderofHTMLFiles();
    void exportAsMarkdown();

    /// All selected records as text for other programs.
    QByteArray tabDelimitedText();
    /// Records by their places among the selected ones, with the names of the fields.
    QByteArray csvText(const QList<qint64> &places) const;
    /// The same for dragging: as text, and as a file that is there as long as this window.
    std::unique_ptr<QMimeData> draggedRecords(const QList<qint64> &places);

private:
    /// What was chosen.
    struct Place
    {
        QString path;
        bool replacesFolder = false;
    };
    /// Writes there; called on another thread. Refused when a folder is there already.
    using Write =
        std::function<Result<>(const ExportedRecords &records, const Place &place, Progress &progress)>;
    using WriteFile = Result<> (*)(const ExportedRecords &records, const QString &path, Progress &progress);
    using WriteFolder = Result<qsizetype> (*)(const ExportedRecords &records,
                                              const FolderExportOptions &options,
                                              Progress &progress);
    struct Panel
    {
        QString title;
        QString extension;       ///< Empty: a folder is chosen.
        QString nameEnding = {}; ///< Behind the datafile's name.
        QString folder = {};     ///< Where it starts; empty: where the last export went.
    };
    class ExportingWork;

    void exportTable(TableExportOptions::Form form, const Panel &panel);
    void exportToFile(const Panel &panel, WriteFile writeFile);
    void exportToFolder(const QString &title, WriteFolder writeFolder);
    void askForPlace(const Panel &panel, const Write &write);
    void write(const Place &place, const Write &write);
    void tell(const Error &error, const Place &place, const Write &write);
    void exportFreeform(const richtext::AttributedText &format);
    QStringList fieldNames() const;
    void takeEditedRecord();
    ExportedRecords recordsAt(const QList<qint64> &places) const;

    EditorWindowController &g_window;
    SheetHost &g_sheets;
    WorkHost &g_work;
    std::unique_ptr<QTemporaryDir> g_draggedFiles;
};

} // namespace tavrin
