// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/ExportDialogs.h"

#include "editor/ExportSheetController.h"
#include "ui/DialogParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QVBoxLayout>

namespace tavrin {

ExportDialog::ExportDialog(ExportSheetController &sheet, QWidget *parent) : QDialog(parent), g_sheet(sheet)
{
    setWindowTitle(sheet.title());
    auto *form = new QFormLayout(this);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    if (sheet.shows() == ExportSheetController::Shows::TableOptions)
        addTableOptions();
    else
        addNameField();
    form->addRow(makeSheetButtons(sheet, tr("&Export…"), this));
    resize(sizeHint().expandedTo(QSize(fontMetrics().averageCharWidth() * 55, 0)));
}

void ExportDialog::addTableOptions()
{
    auto *form = static_cast<QFormLayout *>(layout());
    using LineEnd = ExportSheetController::LineEnd;
    auto *lineEnd = new QComboBox(this);
    lineEnd->addItem(tr("Line feed (Linux, macOS)"));
    lineEnd->addItem(tr("Carriage return (old Mac OS)"));
    lineEnd->addItem(tr("Carriage return and line feed (Windows)"));
    form->addRow(tr("Rows end &with:"), lineEnd);
    connect(lineEnd, &QComboBox::currentIndexChanged, &g_sheet, [this](int index) {
        g_sheet.setLineEnd(static_cast<LineEnd>(index));
    });

    auto *encoding = new QComboBox(this);
    encoding->addItem(tr("UTF-8"));
    encoding->addItem(tr("UTF-16"));
    form->addRow(tr("En&coding:"), encoding);
    connect(encoding, &QComboBox::currentIndexChanged, &g_sheet, [this](int index) {
        g_sheet.setUtf16(index == 1);
    });

    auto *names = new QCheckBox(tr("&Names of the fields in the first row"), this);
    names->setChecked(g_sheet.includingFieldNamesIsOn());
    form->addRow(QString(), names);
    connect(names, &QCheckBox::toggled, &g_sheet, &ExportSheetController::setIncludingFieldNames);

    auto *fieldsOnly = new QCheckBox(tr("&Fields only, without the text"), this);
    fieldsOnly->setEnabled(g_sheet.mayLeaveTextOut());
    form->addRow(QString(), fieldsOnly);
    connect(fieldsOnly, &QCheckBox::toggled, &g_sheet, &ExportSheetController::setFieldContentOnly);
}

void ExportDialog::addNameField()
{
    auto *form = static_cast<QFormLayout *>(layout());
    auto *field = new QComboBox(this);
    field->addItem(tr("Name of the datafile"));
    for (const QString &name : g_sheet.fieldNames())
        field->addItem(tr("Field “%1”").arg(name));
    form->addRow(tr("Files are &named by:"), field);
    connect(field, &QComboBox::currentIndexChanged, &g_sheet, [this](int index) {
        g_sheet.setNameField(index == 0 ? std::optional<int>() : index - 1);
    });
}

FreeformDialog::FreeformDialog(FreeformSheetController &sheet, QWidget *parent) : QDialog(parent)
{
    setWindowTitle(tr("Export as Freeform Text Datafile"));
    auto *grid = new QGridLayout(this);
    auto *explanation = new QLabel(
        tr("Each record becomes a text: this template, with the contents of the fields in it, and then the "
           "record's own text."),
        this);
    explanation->setWordWrap(true);
    grid->addWidget(explanation, 0, 0, 1, 2);

    auto *fields = new QListWidget(this);
    fields->addItems(sheet.fieldNames());
    auto *fieldsLabel = new QLabel(tr("&Fields (activate to insert):"), this);
    fieldsLabel->setBuddy(fields);
    auto *format = new QPlainTextEdit(sheet.freeformTextFormat(), this);
    format->setTabChangesFocus(true);
    auto *formatLabel = new QLabel(tr("&Template:"), this);
    formatLabel->setBuddy(format);
    grid->addWidget(fieldsLabel, 1, 0);
    grid->addWidget(formatLabel, 1, 1);
    grid->addWidget(fields, 2, 0);
    grid->addWidget(format, 2, 1);
    grid->setColumnStretch(1, 2);
    connect(format, &QPlainTextEdit::textChanged, &sheet, [&sheet, format] {
        sheet.setFreeformTextFormat(format->toPlainText());
    });
    const auto insert = [format](const QListWidgetItem *item) {
        if (!item)
            return;
        format->insertPlainText(FreeformSheetController::markOf(item->text()));
        format->setFocus();
    };
    connect(fields, &QListWidget::itemClicked, format, insert);
    // By a shortcut: a key that the list lets through presses Export as well.
    auto *activate = new QShortcut(fields);
    activate->setKeys({Qt::Key_Return, Qt::Key_Enter});
    activate->setContext(Qt::WidgetShortcut);
    connect(activate, &QShortcut::activated, format, [fields, insert] { insert(fields->currentItem()); });
    format->moveCursor(QTextCursor::End);
    format->setFocus();
    grid->addWidget(makeSheetButtons(sheet, tr("&Export…"), this), 3, 0, 1, 2);
    resize(fontMetrics().averageCharWidth() * 90, fontMetrics().lineSpacing() * 22);
}

} // namespace tavrin
