// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/ImportAdding.h"

#include "app/MainController.h"
#include "editor/AlertSheetController.h"

#include <QLocale>

namespace tavrin {

using namespace Qt::StringLiterals;

ImportAdding::ImportAdding(MainController &controller, SheetHost &sheets, WorkHost &work)
    : g_controller(controller)
    , g_sheets(sheets)
    , g_work(work)
    , g_environment(controller.services().environment)
{}

std::unique_ptr<DatafileDocument> ImportAdding::newDatafile(const QStringList &fieldNames) const
{
    return newDatafileForImport(g_controller.services(), DatafileKind::Pro, fieldNames);
}

void ImportAdding::tell(const Error &error)
{
    if (error.kind == Error::Kind::Cancelled)
        return;
    // What could not be read has nothing to import.
    const bool isOurs = error.message == nothingImported().message;
    showAlert(g_sheets, nothingImported().message, isOurs ? error.detail : error.message);
}

void ImportAdding::showNewDatafile(std::unique_ptr<DatafileDocument> made,
                                   const QString &name,
                                   const Result<ImportedRecords> &records)
{
    if (!records) {
        tell(records.error());
        return;
    }
    DatafileDocument &document = *made;
    const bool isEmpty = records->batch.count() == 0;
    if (isEmpty && document.datafileSettings().fields().isEmpty()) {
        tell(nothingImported());
        return;
    }
    if (isEmpty) {
        document.addRecord(QString());
    } else {
        Progress progress;
        const auto added = addToDatafile(document, records->batch, ImportDestination::NewDatafile, progress);
        if (!added) {
            tell(added.error());
            return;
        }
    }
    document.setDefaultDraftName(name);
    g_controller.showNewDatafile(std::move(made));
    DatafileWindow *window = g_controller.windowOf(document);
    if (!window)
        return;
    EditorWindowController &editor = window->controller();
    window->bringToFront();
    editor.goToFirstRecord();
    if (isEmpty) {
        showAlert(editor.sheets(), nothingImported().message, nothingImported().detail);
        return;
    }
    tellAfterwards(editor, *records, 0);
    if (records->kind == TableKind::Tab || records->kind == TableKind::Custom)
        editor.saveDocument();
}

void ImportAdding::addTo(const ImportWindow &window,
                         const Result<ImportedRecords> &records,
                         ImportDestination destination)
{
    if (!records || records->batch.count() == 0) {
        tell(records ? nothingImported() : records.error());
        return;
    }
    if (!window || !window->leaveEditing())
        return;
    const auto addition = std::make_shared<RecordsAddition>(window->document(), records->batch, destination);
    const auto run = [addition](Progress &progress) -> Result<bool> {
        addition->run(progress);
        return true;
    };
    const auto next = [=, this, records = *records](const Result<bool> &) {
        if (!window)
            return;
        const Result<quint64> removed = addition->finish();
        if (!removed) {
            tell(removed.error());
            return;
        }
        window->goToFirstRecord();
        tellAfterwards(*window, records, *removed);
    };
    if (destination == ImportDestination::Merge)
        inBackground<bool>({tr("Removing duplicate records…")}, run, next);
    else
        next(true);
}

/// In the window that took the records: it need not be the one from which the import was begun.
void ImportAdding::tellAfterwards(EditorWindowController &window,
                                  const ImportedRecords &records,
                                  quint64 removed)
{
    const QLocale locale;
    QStringList parts = {tr("Records imported: %1").arg(locale.toString(records.batch.count()))};
    if (removed > 0)
        parts.append(tr("duplicates removed: %1").arg(locale.toString(removed)));
    if (records.dropped > 0)
        parts.append(tr("surplus values dropped: %1").arg(locale.toString(records.dropped)));
    if (records.skipped > 0)
        parts.append(tr("files passed over: %1").arg(locale.toString(records.skipped)));
    Q_EMIT window.statusMessage(parts.join(u", "_s));
    const bool wasMended = records.kind == TableKind::Csv || records.kind == TableKind::Ssv;
    if (wasMended && records.malformed > 0)
        showAlert(window.sheets(), malformedMessage(), malformedInformativeText(records.malformed));
}

} // namespace tavrin
