// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/SheetDialogs.h"

#include "app/ImportAssistantSheetController.h"
#include "app/ImportSheetController.h"
#include "app/NewDatafileSheetController.h"
#include "base/InternalInconsistency.h"
#include "editor/AlertSheetController.h"
#include "editor/EnterPasswordSheetController.h"
#include "editor/ExportSheetController.h"
#include "editor/FileSheetController.h"
#include "editor/FormSheetController.h"
#include "editor/FreeformSheetController.h"
#include "editor/GotoRecordSheetController.h"
#include "editor/ModifyFieldsSheetController.h"
#include "editor/SelectRecordsSheetController.h"
#include "editor/SortFieldsSheetController.h"
#include "editor/SortFreeformSheetController.h"
#include "editor/SortTaskNameSheetController.h"
#include "editor/SortTasksSheetController.h"
#include "ui/DialogParts.h"
#include "ui/ExportDialogs.h"
#include "ui/FormDialog.h"
#include "ui/FreeformDialog.h"
#include "ui/ImportAssistantDialog.h"
#include "ui/ImportDialogs.h"
#include "ui/LookDialogs.h"
#include "ui/ModifyFieldsDialog.h"
#include "ui/NewDatafileDialog.h"
#include "ui/SelectRecordsDialog.h"
#include "ui/SortDialogs.h"
#include "ui/SortTasksDialog.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <memory>

namespace tavrin {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("SheetDialogs", text);
}

QDialog *makeAlert(AlertSheetController &sheet, QWidget *parent)
{
    auto *box = new QMessageBox(parent);
    if (parent)
        box->setWindowTitle(parent->windowTitle().remove(QStringLiteral("[*]")));
    box->setText(sheet.messageText());
    box->setInformativeText(sheet.informativeText());
    box->setIcon(sheet.buttons().size() > 1 ? QMessageBox::Question : QMessageBox::Information);
    // Return alone must not lose anything.
    const qsizetype defaultButton = sheet.destructiveButton() == 0 ? sheet.cancelButton() : 0;
    const QStringList labels = withMnemonics(sheet.buttons());
    // By the button that was hit, not by its role: the desktop orders and the sheet numbers them.
    for (qsizetype i = 0; i < sheet.buttons().size(); ++i) {
        QMessageBox::ButtonRole role = i == 0 ? QMessageBox::AcceptRole : QMessageBox::ActionRole;
        if (i == sheet.destructiveButton())
            role = QMessageBox::DestructiveRole;
        else if (i != 0 && i == sheet.cancelButton())
            role = QMessageBox::RejectRole;
        QPushButton *button = box->addButton(labels.at(i), role);
        if (i == defaultButton)
            box->setDefaultButton(button);
        if (i == sheet.cancelButton())
            box->setEscapeButton(button);
        QObject::connect(button, &QPushButton::clicked, &sheet, [&sheet, i] {
            sheet.finish(QVSheetController::FirstButton + static_cast<int>(i));
        });
    }
    return box;
}

/// Accepting a folder means going into it; this takes it.
void addFolderButton(FileSheetController &sheet, QFileDialog &panel)
{
    // The desktop's own panels have no place for a button.
    panel.setOption(QFileDialog::DontUseNativeDialog);
    const auto current = std::make_shared<QString>();
    QObject::connect(
        &panel, &QFileDialog::currentChanged, &panel, [current](const QString &path) { *current = path; });
    QObject::connect(&panel, &QFileDialog::directoryEntered, &panel, [current] { current->clear(); });
    auto *select = panel.findChild<QDialogButtonBox *>()->addButton(translated("Select &Folder"),
                                                                    QDialogButtonBox::ActionRole);
    QObject::connect(select, &QPushButton::clicked, &sheet, [&sheet, &panel, current] {
        sheet.setPaths({QFileInfo(*current).isDir() ? *current : panel.directory().absolutePath()});
        sheet.accept();
    });
}

/// A panel for which a folder with the document's extension is a document, too: accepting it does not mean to
/// go into it.
class FilePanel : public QFileDialog
{
public:
    FilePanel(QWidget *parent, const FileSheetController::Request &request)
        : QFileDialog(parent, request.title, request.folder)
        , g_extension(request.requiredExtension)
    {
        // Without a folder, Qt begins where its last panel of any kind was.
        if (request.folder.isEmpty())
            setDirectory(folderAroundDocuments(directory().absolutePath()));
    }

protected:
    void accept() override
    {
        const QFileInfo chosen(selectedFiles().value(0));
        const bool isDocument = acceptMode() == AcceptSave && !g_extension.isEmpty() && chosen.isDir()
                                && chosen.suffix() == g_extension;
        if (isDocument)
            askWhetherToReplace(chosen.fileName());
        else
            QFileDialog::accept();
    }

private:
    void askWhetherToReplace(const QString &name)
    {
        // In the words in which Qt asks for a file.
        const QString text = tr("%1 already exists.\nDo you want to replace it?").arg(name);
        auto *question = new QMessageBox(
            QMessageBox::Warning, windowTitle(), text, QMessageBox::Yes | QMessageBox::No, this);
        question->setDefaultButton(QMessageBox::No);
        question->setAttribute(Qt::WA_DeleteOnClose);
        connect(question, &QDialog::finished, this, [this](int answer) {
            if (answer == QMessageBox::Yes)
                QDialog::accept();
        });
        question->open();
    }

    QString g_extension;
};

QDialog *makeFilePanel(FileSheetController &sheet, QWidget *parent)
{
    const FileSheetController::Request &request = sheet.request();
    using Purpose = FileSheetController::Purpose;
    auto *panel = new FilePanel(parent, request);
    switch (request.purpose) {
    case Purpose::OpenFile:
        panel->setFileMode(QFileDialog::ExistingFile);
        break;
    case Purpose::OpenFiles:
        panel->setFileMode(QFileDialog::ExistingFiles);
        break;
    case Purpose::OpenFolder:
        panel->setFileMode(QFileDialog::Directory);
        panel->setOption(QFileDialog::ShowDirsOnly);
        break;
    case Purpose::OpenFileOrFolder:
        panel->setFileMode(QFileDialog::ExistingFile);
        addFolderButton(sheet, *panel);
        break;
    case Purpose::SaveFile:
        panel->setAcceptMode(QFileDialog::AcceptSave);
        panel->setFileMode(QFileDialog::AnyFile);
        panel->setDefaultSuffix(request.requiredExtension);
        panel->selectFile(request.suggestedName);
        break;
    }
    panel->setNameFilters(request.nameFilters);
    if (!request.acceptLabel.isEmpty())
        panel->setLabelText(QFileDialog::Accept, request.acceptLabel);
    QObject::connect(panel, &QFileDialog::accepted, &sheet, [&sheet, panel] {
        sheet.setPaths(panel->selectedFiles());
        sheet.accept();
    });
    return panel;
}

/// A dialog of one labelled entry with OK and Cancel, the state of OK following the sheet.
struct EntryDialog
{
    QDialog *dialog;
    QLineEdit *entry;
    QDialogButtonBox *buttons;
};

EntryDialog
makeEntryDialog(QVSheetController &sheet, const QString &title, const QString &label, QWidget *parent)
{
    auto *dialog = new QDialog(parent);
    dialog->setWindowTitle(title);
    auto *layout = new QFormLayout(dialog);
    auto *entry = new QLineEdit(dialog);
    layout->addRow(label, entry);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
    layout->addRow(buttons);
    QPushButton *okay = buttons->button(QDialogButtonBox::Ok);
    okay->setEnabled(sheet.isAcceptable());
    QObject::connect(&sheet, &QVSheetController::changed, okay, [&sheet, okay] {
        okay->setEnabled(sheet.isAcceptable());
    });
    QObject::connect(buttons, &QDialogButtonBox::accepted, &sheet, &QVSheetController::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return {dialog, entry, buttons};
}

QDialog *makeGotoRecord(GotoRecordSheetController &sheet, QWidget *parent)
{
    const bool goes = sheet.purpose() == GotoRecordSheetController::Purpose::GoTo;
    const QString label = goes ? translated("Number (1 to %1), or start of “%2”:")
                               : translated("Move behind record number (1 to %1):");
    const QString maximum = QLocale().toString(sheet.maximum());
    const EntryDialog made =
        makeEntryDialog(sheet,
                        goes ? translated("Go to Record") : translated("Move After Record Number"),
                        goes ? label.arg(maximum, sheet.titleName()) : label.arg(maximum),
                        parent);
    QLabel *note = makeNoteLabel(made.dialog);
    static_cast<QFormLayout *>(made.dialog->layout())->insertRow(1, note);
    QObject::connect(
        &sheet, &QVSheetController::changed, note, [&sheet, note] { setNote(note, sheet.problem()); });
    made.entry->setText(sheet.entry());
    made.entry->selectAll();
    QObject::connect(made.entry, &QLineEdit::textChanged, &sheet, &GotoRecordSheetController::setEntry);
    return made.dialog;
}

QDialog *makeSortTaskName(SortTaskNameSheetController &sheet, QWidget *parent)
{
    const EntryDialog made =
        makeEntryDialog(sheet, translated("Save as Sort Task"), translated("Name:"), parent);
    made.dialog->setMinimumWidth(made.dialog->fontMetrics().averageCharWidth() * 55);
    static_cast<QFormLayout *>(made.dialog->layout())
        ->insertRow(0, new QLabel(translated("Sorts by: %1").arg(sheet.description()), made.dialog));
    made.entry->setText(sheet.entry());
    made.entry->selectAll();
    QObject::connect(made.entry, &QLineEdit::textChanged, &sheet, &SortTaskNameSheetController::setEntry);
    return made.dialog;
}

QDialog *makePassword(EnterPasswordSheetController &sheet, QWidget *parent)
{
    const EntryDialog made =
        makeEntryDialog(sheet, translated("Datafile Password"), translated("Password:"), parent);
    made.entry->setEchoMode(QLineEdit::Password);
    QObject::connect(made.entry, &QLineEdit::textChanged, &sheet, &EnterPasswordSheetController::setEntry);
    QPushButton *readOnly =
        made.buttons->addButton(translated("Open Read-Only"), QDialogButtonBox::DestructiveRole);
    readOnly->setAutoDefault(false);
    QObject::connect(readOnly, &QPushButton::clicked, &sheet, &EnterPasswordSheetController::openReadOnly);
    QObject::connect(&sheet, &EnterPasswordSheetController::wrongPassword, made.entry, [entry = made.entry] {
        QApplication::beep();
        entry->selectAll();
        entry->setFocus();
    });
    return made.dialog;
}

} // namespace

QDialog *makeSheetDialog(QVSheetController &sheet, QWidget *parent)
{
    if (auto *alert = qobject_cast<AlertSheetController *>(&sheet))
        return makeAlert(*alert, parent);
    if (auto *file = qobject_cast<FileSheetController *>(&sheet))
        return makeFilePanel(*file, parent);
    if (auto *number = qobject_cast<GotoRecordSheetController *>(&sheet))
        return makeGotoRecord(*number, parent);
    if (auto *password = qobject_cast<EnterPasswordSheetController *>(&sheet))
        return makePassword(*password, parent);
    if (auto *select = qobject_cast<SelectRecordsSheetController *>(&sheet))
        return new SelectRecordsDialog(*select, parent);
    if (auto *fields = qobject_cast<SortFieldsSheetController *>(&sheet))
        return new SortFieldsDialog(*fields, parent);
    if (auto *freeform = qobject_cast<SortFreeformSheetController *>(&sheet))
        return new SortFreeformDialog(*freeform, parent);
    if (auto *name = qobject_cast<SortTaskNameSheetController *>(&sheet))
        return makeSortTaskName(*name, parent);
    if (auto *tasks = qobject_cast<SortTasksSheetController *>(&sheet))
        return new SortTasksDialog(*tasks, parent);
    if (auto *form = qobject_cast<FormSheetController *>(&sheet))
        return new FormDialog(*form, parent);
    if (auto *modify = qobject_cast<ModifyFieldsSheetController *>(&sheet))
        return new ModifyFieldsDialog(*modify, parent);
    if (auto *datafile = qobject_cast<NewDatafileSheetController *>(&sheet))
        return new NewDatafileDialog(*datafile, parent);
    if (QDialog *look = makeLookDialog(sheet, parent))
        return look;
    if (auto *import = qobject_cast<ImportSheetController *>(&sheet))
        return new ImportDialog(*import, parent);
    if (auto *assistant = qobject_cast<ImportAssistantSheetController *>(&sheet))
        return new ImportAssistantDialog(*assistant, parent);
    if (auto *differences = qobject_cast<ImportDifferencesSheetController *>(&sheet))
        return new ImportDifferencesDialog(*differences, parent);
    if (auto *table = qobject_cast<ExportSheetController *>(&sheet))
        return new ExportDialog(*table, parent);
    if (auto *textFormat = qobject_cast<FreeformSheetController *>(&sheet))
        return new FreeformDialog(*textFormat, parent);
    throw InternalInconsistency("-makeSheetDialog: -- The sheet has no dialog.");
}

} // namespace tavrin
