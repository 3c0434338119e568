// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/ImportDialogs.h"

#include "app/ImportSheetController.h"
#include "ui/DialogParts.h"
#include "ui/ImportParts.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavrin {

ImportDialog::ImportDialog(ImportSheetController &sheet, QWidget *parent)
    : QDialog(parent)
    , g_sheet(sheet)
    , g_destinations(new QButtonGroup(this))
    , g_current(new QLabel(this))
    , g_preview(new QTableWidget(this))
    , g_note(makeNoteLabel(this))
    , g_assistant(new QPushButton(tr("&Use the Import Assistant…"), this))
{
    setWindowTitle(sheet.title());
    auto *layout = new QVBoxLayout(this);
    auto *form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    layout->addLayout(form);
    addDestinations(form);
    addOptions(form);

    auto *label = new QLabel(tr("First &rows as they are read:"), this);
    label->setBuddy(g_preview);
    layout->addWidget(label);
    preparePreview(g_preview, tr("First rows"));
    layout->addWidget(g_preview, 1);
    layout->addWidget(g_note);
    layout->addWidget(g_assistant, 0, Qt::AlignLeft);
    connect(g_assistant, &QPushButton::clicked, &sheet, [&sheet] {
        sheet.finish(QVSheetController::ThirdButton);
    });
    layout->addWidget(makeSheetButtons(sheet, tr("&Import"), this));
    connect(&sheet, &QVSheetController::changed, this, &ImportDialog::showSheet);
    showSheet();
    if (sheet.kind() != TableKind::Custom)
        g_destinations->checkedButton()->setFocus();
    resize(fontMetrics().averageCharWidth() * 90, fontMetrics().lineSpacing() * 30);
}

void ImportDialog::addDestinations(QFormLayout *form)
{
    const QStringList texts = {tr("Crea&te new datafile"),
                               tr("&Append to current datafile"),
                               tr("&Merge into current datafile, without duplicates")};
    for (int i = 0; i < texts.size(); ++i) {
        auto *button = new QRadioButton(texts[i], this);
        g_destinations->addButton(button, i);
        form->addRow(i == 0 ? tr("Records:") : QString(), button);
    }
    form->addRow(tr("Current datafile:"), g_current);
    connect(g_destinations, &QButtonGroup::idClicked, &g_sheet, [this](int id) {
        g_sheet.setDestination(static_cast<ImportDestination>(id));
    });
}

void ImportDialog::addOptions(QFormLayout *form)
{
    if (g_sheet.kind() == TableKind::Custom) {
        auto *delimiter = new QPlainTextEdit(g_sheet.delimiterText(), this);
        delimiter->setFocus();
        delimiter->setTabChangesFocus(true);
        delimiter->setMaximumHeight(fontMetrics().lineSpacing() * 4);
        form->addRow(tr("&Delimiter between records:"), delimiter);
        connect(delimiter, &QPlainTextEdit::textChanged, &g_sheet, [this, delimiter] {
            g_sheet.setDelimiterText(delimiter->toPlainText());
        });
    } else {
        auto *names = new QCheckBox(tr("&Names of the fields in the first record"), this);
        names->setChecked(g_sheet.namesInFirstRecordIsOn());
        form->addRow(QString(), names);
        connect(names, &QCheckBox::toggled, &g_sheet, &ImportSheetController::setNamesInFirstRecord);
    }
    if (!g_sheet.asksForEncoding())
        return;
    const auto choose = [this](TextEncoding encoding) { g_sheet.setEncoding(encoding); };
    form->addRow(tr("&Encoding:"), makeEncodingBox(g_sheet.encoding(), this, choose));
}

void ImportDialog::showSheet()
{
    const int checked = g_sheet.createNewIsOn() ? 0 : g_sheet.appendToCurrentIsOn() ? 1 : 2;
    g_destinations->button(checked)->setChecked(true);
    for (const int id : {1, 2})
        g_destinations->button(id)->setEnabled(g_sheet.canUseCurrent());
    g_current->setText(g_sheet.currentDatafileName());
    showRows(g_preview, g_sheet.previewNames(), g_sheet.previewRows());
    setNote(g_note, g_sheet.note());
    g_assistant->setVisible(g_sheet.offersAssistant());
}

} // namespace tavrin
