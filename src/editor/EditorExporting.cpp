// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorExporting.h"

#include "document/DatafileBackups.h"
#include "document/UndoHistory.h"
#include "editor/AlertSheetController.h"
#include "editor/EditorWindowController.h"
#include "editor/FileSheetController.h"
#include "editor/FreeformSheetController.h"
#include "editor/LongWork.h"
#include "io/ExportFolder.h"
#include "io/FreeformExport.h"
#include "io/HtmlExport.h"
#include "io/RecordFiles.h"
#include "io/TableImport.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

Result<> withoutCount(const Result<qsizetype> &exported)
{
    if (!exported)
        return exported.error();
    return {};
}

} // namespace

class EditorExporting::ExportingWork : public LongWork
{
public:
    ExportingWork(const DatafileDocument &document, Place place, Write write)
        : g_records(document)
        , g_place(std::move(place))
        , g_write(std::move(write))
    {}

    QString title() const override { return EditorExporting::tr("Exporting records…"); }
    void run(Progress &progress) override { g_outcome = g_write(g_records, g_place, progress); }
    const Result<> &outcome() const { return g_outcome; }
    qsizetype count() const { return g_records.count(); }

private:
    ExportedRecords g_records;
    Place g_place;
    Write g_write;
    Result<> g_outcome;
};

TableExportOptions ExportSheetController::tableOptions(TableExportOptions::Form form) const
{
    TableExportOptions options;
    options.form = form;
    options.lineEnd = linefeedIsOn() ? "\n" : carriageReturnIsOn() ? "\r" : "\r\n";
    options.utf16 = g_utf16;
    options.includingFieldNames = g_includingFieldNames;
    options.fieldContentOnly = g_fieldContentOnly;
    return options;
}

EditorExporting::EditorExporting(EditorWindowController &window, SheetHost &sheets, WorkHost &work)
    : g_window(window)
    , g_sheets(sheets)
    , g_work(work)
{}

EditorExporting::~EditorExporting() = default;

QStringList EditorExporting::fieldNames() const
{
    QStringList names;
    for (const FieldDefinition &field : g_window.document().datafileSettings().fields())
        names.append(field.name());
    return names;
}

void EditorExporting::exportAsCSV()
{
    exportTable(TableExportOptions::Form::Csv, {tr("Save as CSV File"), u"csv"_s});
}

void EditorExporting::exportAsTabDelimited()
{
    exportTable(TableExportOptions::Form::Tab, {tr("Save as Tab-Delimited File"), u"tab"_s});
}

void EditorExporting::exportTable(TableExportOptions::Form form, const Panel &panel)
{
    const QString title =
        form == TableExportOptions::Form::Tab ? tr("Export as Tab-Delimited File") : tr("Export as CSV File");
    auto sheet = std::make_unique<ExportSheetController>(
        ExportSheetController::Shows::TableOptions, title, fieldNames());
    connect(sheet.get(), &QVSheetController::finished, this, [=, this, sheet = sheet.get()](int code) {
        if (code != QVSheetController::FirstButton)
            return;
        const TableExportOptions options = sheet->tableOptions(form);
        askForPlace(panel, [options](const ExportedRecords &records, const Place &place, Progress &progress) {
            return tavrin::exportTable(records, options, place.path, progress);
        });
    });
    g_sheets.begin(std::move(sheet));
}

void EditorExporting::exportAsTextFile()
{
    exportToFile({tr("Save as Text File"), u"txt"_s}, exportTextFile);
}

void EditorExporting::exportAsRTFD()
{
    exportToFile({tr("Save as RTFD File"), u"rtfd"_s}, exportRtfd);
}

void EditorExporting::exportAsJSON()
{
    exportToFile({tr("Save as JSON File"), u"json"_s}, exportJson);
}

void EditorExporting::exportAsHTML()
{
    exportToFile({tr("Save as HTML File"), u"html"_s}, exportHtml);
}

void EditorExporting::exportToFile(const Panel &panel, WriteFile writeFile)
{
    askForPlace(panel, [writeFile](const ExportedRecords &records, const Place &place, Progress &progress) {
        return writeFile(records, place.path, progress);
    });
}

void EditorExporting::exportAsFolderofTextFiles()
{
    exportToFolder(tr("Select Directory for Text Files"), exportTextFolder);
}

void EditorExporting::exportAsFolderofRTFDFiles()
{
    exportToFolder(tr("Select Directory for RTFD Files"), exportRtfdFolder);
}

void EditorExporting::exportAsFolderofHTMLFiles()
{
    exportToFolder(tr("Select Directory for HTML Files"), exportHtmlFolder);
}

void EditorExporting::exportAsMarkdown()
{
    askForPlace({tr("Select Directory for Markdown Files"), {}},
                [](const ExportedRecords &records, const Place &place, Progress &progress) {
                    const QString folder =
                        place.path + u'/' + fileNamePart(records.datafileName()) + u" Markdown Folder"_s;
                    return withoutCount(exportMarkdown(records, folder, place.replacesFolder, progress));
                });
}

// First how the files are named, where there is a choice.
void EditorExporting::exportToFolder(const QString &title, WriteFolder writeFolder)
{
    const auto askFor = [=, this](std::optional<int> nameField) {
        askForPlace({title, {}}, [=](const ExportedRecords &records, const Place &place, Progress &progress) {
            const FolderExportOptions options{place.path, nameField, place.replacesFolder};
            return withoutCount(writeFolder(records, options, progress));
        });
    };
    if (fieldNames().isEmpty()) {
        askFor({});
        return;
    }
    auto sheet = std::make_unique<ExportSheetController>(
        ExportSheetController::Shows::NameField, tr("Export as Folder of Files"), fieldNames());
    connect(sheet.get(), &QVSheetController::finished, this, [askFor, sheet = sheet.get()](int code) {
        if (code == QVSheetController::FirstButton)
            askFor(sheet->nameField());
    });
    g_sheets.begin(std::move(sheet));
}

void EditorExporting::askForPlace(const Panel &panel, const Write &write)
{
    FileSheetController::Request request;
    request.title = panel.title;
    request.folder = panel.folder;
    if (panel.extension.isEmpty()) {
        request.purpose = FileSheetController::Purpose::OpenFolder;
        request.acceptLabel = tr("Export");
    } else {
        request.purpose = FileSheetController::Purpose::SaveFile;
        request.requiredExtension = panel.extension;
        request.suggestedName = QFileInfo(g_window.document().displayName()).completeBaseName()
                                + panel.nameEnding + u'.' + panel.extension;
        request.nameFilters = {u"*."_s + panel.extension, tr("All files (*)")};
    }
    auto sheet = std::make_unique<FileSheetController>(request);
    sheet->keepFolder(g_window.preferences(), u"LastExportFolder"_s);
    connect(sheet.get(), &QVSheetController::finished, this, [=, this, sheet = sheet.get()](int code) {
        if (code == QVSheetController::FirstButton)
            this->write({sheet->path()}, write);
    });
    g_sheets.begin(std::move(sheet));
}

void EditorExporting::write(const Place &place, const Write &write)
{
    if (!g_window.leaveEditing())
        return;
    auto work = std::make_unique<ExportingWork>(g_window.document(), place, write);
    connect(work.get(), &LongWork::ended, this, [=, this, work = work.get()] {
        if (work->outcome())
            Q_EMIT g_window.statusMessage(tr("Records exported: %1").arg(QLocale().toString(work->count())));
        else
            tell(work->outcome().error(), place, write);
    });
    g_work.begin(std::move(work));
}

void EditorExporting::tell(const Error &error, const Place &place, const Write &write)
{
    if (error.kind == Error::Kind::Cancelled)
        return;
    const bool mayReplace = error.kind == Error::Kind::Refused && !place.replacesFolder;
    if (!mayReplace) {
        showAlert(g_sheets, tr("The records could not be exported."), error.message);
        return;
    }
    auto alert = std::make_unique<AlertSheetController>(
        error.message,
        tr("If it is replaced, what is in it is lost: %1").arg(error.detail),
        QStringList{tr("Replace"), tr("Cancel")});
    alert->setDestructiveButton(0);
    connect(alert.get(), &QVSheetController::finished, this, [=, this](int code) {
        if (code == QVSheetController::FirstButton)
            this->write({place.path, true}, write);
    });
    g_sheets.begin(std::move(alert));
}

void EditorExporting::exportAsFreeformDatafile()
{
    const richtext::CharacterFormat plain = formatOf(g_window.document().datafileSettings().textFont());
    richtext::AttributedText format;
    for (const QString &name : fieldNames()) {
        format.append(richtext::AttributedText(name + u": "_s, plain));
        format.append(templateField(name, plain));
        format.append(richtext::AttributedText(u"\n"_s, plain));
    }
    auto sheet = std::make_unique<FreeformSheetController>(fieldNames(), format, plain);
    connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int code) {
        if (code == QVSheetController::FirstButton)
            exportFreeform(sheet->freeformTextFormat());
    });
    g_sheets.begin(std::move(sheet));
}

void EditorExporting::exportFreeform(const richtext::AttributedText &format)
{
    const DatafileKind kind = g_window.document().kind();
    const DocumentServices services = g_window.document().services();
    const auto write =
        [=](const ExportedRecords &records, const Place &place, Progress &progress) -> Result<> {
        const bool isMobile = kind == DatafileKind::Mobile;
        const Result<RecordBatch> batch =
            freeformRecords(records, format, isMobile, services.environment, progress);
        if (!batch)
            return batch.error();
        const auto document = newDatafileForImport(services, kind, {});
        const auto added = addToDatafile(*document, *batch, ImportDestination::NewDatafile, progress);
        if (!added)
            return added.error();
        return document->saveToFirstFile(place.path);
    };
    askForPlace({tr("Export As Freeform Text"),
                 kind == DatafileKind::Mobile ? u"tvk"_s : u"tv3"_s,
                 u" FF"_s,
                 datafilesFolderPath(&g_window.preferences())},
                write);
}

// A clone's records come from the window that it shows.
void EditorExporting::takeEditedRecord()
{
    if (!g_window.isClone())
        g_window.leaveEditing();
}

ExportedRecords EditorExporting::recordsAt(const QList<qint64> &places) const
{
    const SubsetSortedData &catalog = g_window.document().datafileCatalog();
    std::vector<quint32> numbers;
    for (const qint64 place : places) {
        if (catalog.isValidSelectedIndex(place))
            numbers.push_back(catalog.selectedNumbers(place, 1).front());
    }
    return {g_window.document(), numbers};
}

QByteArray EditorExporting::tabDelimitedText()
{
    takeEditedRecord();
    TableExportOptions options;
    options.form = TableExportOptions::Form::Tab;
    return tableText(ExportedRecords(g_window.document()), options);
}

QByteArray EditorExporting::csvText(const QList<qint64> &places) const
{
    TableExportOptions options;
    options.form = TableExportOptions::Form::Standard;
    options.includingFieldNames = true;
    return tableText(recordsAt(places), options);
}

std::unique_ptr<QMimeData> EditorExporting::draggedRecords(const QList<qint64> &places)
{
    takeEditedRecord();
    const QByteArray csv = csvText(places);
    auto data = std::make_unique<QMimeData>();
    data->setData(u"text/csv"_s, csv);
    data->setText(QString::fromUtf8(csv));
    // The file of the drag before goes; whoever took it has copied it by now.
    auto folder = std::make_unique<QTemporaryDir>();
    QFile file(folder->filePath(QFileInfo(g_window.document().displayName()).completeBaseName() + u".csv"_s));
    if (file.open(QIODevice::WriteOnly) && file.write(csv) == csv.size()) {
        data->setUrls({QUrl::fromLocalFile(file.fileName())});
        g_draggedFiles = std::move(folder);
    }
    return data;
}

} // namespace tavrin
