// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// The dated copies of a datafile: writing one, which there are, and what can be done with them.

#include "document/BackupWriting.h"
#include "document/DatafileContents.h"
#include "editor/AlertSheetController.h"
#include "editor/EditorRecords.h"
#include "editor/EditorWindowController.h"
#include "editor/FileSheetController.h"
#include "editor/FormPreview.h"
#include "editor/LongWork.h"

#include <QFileInfo>
#include <QLocale>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

enum class BackupUse { Open, Restore };

/// How many records a backup holds.
class BackupLook : public FormPreview::Look
{
public:
    explicit BackupLook(const DatafileBackups::Backup &backup) : g_backup(backup) {}

    void run(Progress &progress) override
    {
        if (const auto contents = readDatafile(g_backup.path, progress))
            g_count = contents->records->count();
    }
    FormSheetController::Preview preview() const override
    {
        const QLocale locale;
        return {{},
                {EditorRecords::tr("This backup"), u""_s},
                {{EditorRecords::tr("Written"), locale.toString(g_backup.written, QLocale::ShortFormat)},
                 {EditorRecords::tr("Size"), locale.formattedDataSize(g_backup.size)},
                 {EditorRecords::tr("Records"),
                  g_count ? locale.toString(*g_count) : EditorRecords::tr("It cannot be read.")}}};
    }

private:
    DatafileBackups::Backup g_backup;
    std::optional<quint32> g_count;
};

class BackupWork : public LongWork
{
public:
    explicit BackupWork(DatafileDocument &document) : g_writing(document) {}

    QString title() const override { return EditorRecords::tr("Writing a backup…"); }
    void run(Progress &progress) override { g_writing.run(progress); }
    BackupWriting &writing() { return g_writing; }

private:
    BackupWriting g_writing;
};

} // namespace

void EditorRecords::backUp(const std::function<void()> &done)
{
    auto work = std::make_unique<BackupWork>(g_window.document());
    connect(work.get(), &LongWork::ended, this, [this, done, work = work.get()] {
        const Result<QString> written = work->writing().finish();
        if (written)
            done();
        else if (written.error().kind == Error::Kind::Cancelled)
            Q_EMIT g_window.statusMessage(tr("No backup was written."));
        else
            showAlert(g_sheets, tr("The backup could not be written."), written.error().message);
    });
    g_work.begin(std::move(work));
}

void EditorRecords::saveCurrentDatafileToBackups()
{
    if (g_window.leaveEditing())
        backUp([this] { Q_EMIT g_window.statusMessage(tr("A backup was written.")); });
}

void EditorRecords::browseBackups()
{
    const QList<DatafileBackups::Backup> backups = DatafileBackups(g_window.document()).list();
    if (backups.isEmpty()) {
        showAlert(g_sheets,
                  tr("There are no backups of this datafile."),
                  tr("One is written before all selected records are deleted, and by Back Up Now."));
        return;
    }
    auto form = std::make_unique<FormSheetController>(tr("Browse Backups"), tr("&Continue"), true);
    QList<CodedItem> items;
    for (const DatafileBackups::Backup &backup : backups)
        items.append({QLocale().toString(backup.written, QLocale::ShortFormat) + u" — "_s
                      + QFileInfo(backup.path).fileName()
                      + (backup.isOwn ? QString() : tr(" (perhaps of another datafile of this name)"))});
    const auto which = form->addChoice(tr("&Backup:"), items);
    const auto use = form->addChoice(tr("&Do this:"),
                                     {{tr("Open it read-only"), codeOf(BackupUse::Open)},
                                      {tr("Restore it as a copy"), codeOf(BackupUse::Restore)}});
    g_preview = std::make_unique<FormPreview>(
        *form, [backups, which, form = form.get()]() -> std::shared_ptr<FormPreview::Look> {
            return std::make_shared<BackupLook>(backups[form->rows()[which].chosen]);
        });
    connect(form.get(), &QVSheetController::finished, this, [=, this, form = form.get()](int code) {
        g_preview.reset();
        if (code != QVSheetController::FirstButton)
            return;
        const QString path = backups[form->rows()[which].chosen].path;
        if (form->choice(use).code == codeOf(BackupUse::Open))
            Q_EMIT g_window.openDatafile(path);
        else
            restoreBackup(path);
    });
    g_sheets.begin(std::move(form));
}

void EditorRecords::restoreBackup(const QString &path)
{
    FileSheetController::Request request;
    request.purpose = FileSheetController::Purpose::SaveFile;
    request.title = tr("Restore as a Copy");
    request.acceptLabel = tr("Restore");
    const QFileInfo copy(DatafileBackups(g_window.document()).pathForCopyOf(path));
    request.folder = copy.path();
    request.suggestedName = copy.fileName();
    request.requiredExtension = copy.suffix();
    request.nameFilters = {u"%1 (*.%2)"_s.arg(typeNameOf(g_window.document().kind()), copy.suffix())};
    auto panel = std::make_unique<FileSheetController>(request);
    connect(panel.get(), &QVSheetController::finished, this, [this, path, panel = panel.get()](int code) {
        if (code != QVSheetController::FirstButton || panel->paths().isEmpty())
            return;
        const QString target = panel->paths().constFirst();
        QStringList filesInUse{g_window.document().filePath()};
        if (g_openFiles)
            filesInUse += g_openFiles();
        // The panel has asked already whether to replace what is there.
        if (const Result<> restored = DatafileBackups::restore(path, target, filesInUse); !restored)
            showAlert(g_sheets, tr("The backup could not be copied."), restored.error().message);
        else
            Q_EMIT g_window.openDatafile(target);
    });
    g_sheets.begin(std::move(panel));
}

} // namespace tavrin
