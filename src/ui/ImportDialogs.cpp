// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/ImportDialogs.h"

#include "app/ImportSheetController.h"
#include "ui/DialogParts.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrin {

void showRows(QTableWidget *table, const QStringList &names, const QList<QStringList> &rows)
{
    qsizetype width = names.size();
    for (const QStringList &row : rows)
        width = std::max(width, row.size());
    table->setColumnCount(static_cast<int>(width));
    table->setRowCount(static_cast<int>(rows.size()));
    QStringList headers = names;
    while (headers.size() < width)
        headers.append(QString());
    table->setHorizontalHeaderLabels(headers);
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < width; ++column) {
            auto *item = new QTableWidgetItem(rows[row].value(column));
            item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
            table->setItem(row, column, item);
        }
    }
    table->horizontalHeader()->setStretchLastSection(true);
    table->resizeColumnsToContents();
    constexpr int widestInCharacters = 40;
    const int widest = table->fontMetrics().averageCharWidth() * widestInCharacters;
    for (int column = 0; column < width; ++column)
        table->setColumnWidth(column, std::min(table->columnWidth(column), widest));
}

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
    g_preview->verticalHeader()->hide();
    g_preview->setTabKeyNavigation(false);
    g_preview->setAccessibleName(tr("First rows"));
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
    const QStringList texts = {tr("&Create new datafile"),
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
    auto *encoding = new QComboBox(this);
    const QList<TextEncodingName> encodings = textEncodings();
    for (const TextEncodingName &item : encodings)
        encoding->addItem(item.name);
    const auto chosen = std::ranges::find(encodings, g_sheet.encoding(), &TextEncodingName::encoding);
    encoding->setCurrentIndex(static_cast<int>(chosen - encodings.begin()));
    form->addRow(tr("&Encoding:"), encoding);
    connect(encoding, &QComboBox::currentIndexChanged, &g_sheet, [this, encodings](int index) {
        g_sheet.setEncoding(encodings[index].encoding);
    });
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
