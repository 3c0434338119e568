// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/ExportDialogs.h"

#include "editor/ExportSheetController.h"
#include "ui/DialogParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>

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
    form->addRow(tr("Enc&oding:"), encoding);
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

} // namespace tavrin
