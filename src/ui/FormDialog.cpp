// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FormDialog.h"

#include "editor/FormSheetController.h"
#include "ui/DialogParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavrin {

using Row = FormSheetController::Row;

FormDialog::FormDialog(FormSheetController &sheet, QWidget *parent) : QDialog(parent), g_sheet(sheet)
{
    setWindowTitle(sheet.title());
    auto *layout = new QVBoxLayout(this);
    auto *rows = new QWidget(this);
    auto *form = new QFormLayout(rows);
    form->setContentsMargins(0, 0, 0, 0);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (qsizetype row = 0; row < sheet.rows().size(); ++row)
        g_rows.append(makeRow(row, form));
    constexpr qsizetype mostRows = 12;
    if (sheet.rows().size() > mostRows) {
        auto *area = new QScrollArea(this);
        area->setWidgetResizable(true);
        area->setWidget(rows);
        layout->addWidget(area, 1);
    } else {
        layout->addWidget(rows);
    }
    g_note = makeNoteLabel(this);
    g_note->setMinimumHeight(fontMetrics().height());
    layout->addWidget(g_note);
    if (sheet.hasPreview())
        addPreview(layout);
    else
        layout->addStretch(1);
    layout->addWidget(makeSheetButtons(sheet, sheet.acceptLabel(), this));
    connect(&sheet, &QVSheetController::changed, this, &FormDialog::showSheet);
    showSheet();
    const int width = fontMetrics().averageCharWidth() * (sheet.hasPreview() ? 110 : 80);
    resize(sizeHint().expandedTo(QSize(width, sheet.hasPreview() ? fontMetrics().lineSpacing() * 28 : 0)));
    if (!g_rows.isEmpty())
        g_rows.constFirst()->setFocus();
}

QWidget *FormDialog::makeRow(qsizetype row, QFormLayout *layout)
{
    const Row &shown = g_sheet.rows().at(row);
    switch (shown.kind) {
    case Row::Kind::Choice: {
        auto *box = new QComboBox(this);
        setItems(box, shown.items, shown.chosen);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        layout->addRow(shown.label, box);
        connect(box, &QComboBox::activated, &g_sheet, [this, row](int index) { g_sheet.choose(row, index); });
        return box;
    }
    case Row::Kind::Text: {
        auto *entry = new QLineEdit(shown.text, this);
        layout->addRow(shown.label, entry);
        connect(entry, &QLineEdit::textEdited, &g_sheet, [this, row](const QString &text) {
            g_sheet.setText(row, text);
        });
        return entry;
    }
    case Row::Kind::Check:
        break;
    }
    auto *box = new QCheckBox(shown.label, this);
    box->setChecked(shown.isOn);
    layout->addRow(QString(), box);
    connect(box, &QCheckBox::clicked, &g_sheet, [this, row](bool on) { g_sheet.setOn(row, on); });
    return box;
}

void FormDialog::addPreview(QVBoxLayout *layout)
{
    g_summary = new QLabel(this);
    g_summary->setWordWrap(true);
    layout->addWidget(g_summary);
    g_preview = new QTableWidget(this);
    g_preview->setAccessibleName(tr("Preview"));
    g_preview->setEditTriggers(QAbstractItemView::NoEditTriggers);
    g_preview->setSelectionBehavior(QAbstractItemView::SelectRows);
    g_preview->setTabKeyNavigation(false);
    g_preview->setWordWrap(false);
    g_preview->verticalHeader()->hide();
    g_preview->horizontalHeader()->setStretchLastSection(true);
    g_preview->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    layout->addWidget(g_preview, 1);
    connect(&g_sheet, &FormSheetController::previewChanged, this, &FormDialog::showPreview);
    showPreview();
}

void FormDialog::showSheet()
{
    for (qsizetype row = 0; row < g_rows.size(); ++row)
        g_rows[row]->setEnabled(g_sheet.rows().at(row).isEnabled);
    setNote(g_note, g_sheet.problem());
    g_note->show(); // Its room is kept, so that nothing jumps while typing.
}

void FormDialog::showPreview()
{
    const FormSheetController::Preview &preview = g_sheet.preview();
    g_summary->setText(preview.summary);
    g_preview->setColumnCount(static_cast<int>(preview.headings.size()));
    g_preview->setHorizontalHeaderLabels(preview.headings);
    g_preview->setRowCount(static_cast<int>(preview.rows.size()));
    for (int row = 0; row < g_preview->rowCount(); ++row) {
        for (int column = 0; column < g_preview->columnCount(); ++column)
            g_preview->setItem(row, column, new QTableWidgetItem(preview.rows.at(row).value(column)));
    }
    // The last two, where there are more, are for contents.
    const int contents = qMax(1, g_preview->columnCount() - 2);
    for (int column = 0; column < contents; ++column)
        g_preview->resizeColumnToContents(column);
    if (contents < g_preview->columnCount() - 1)
        g_preview->setColumnWidth(contents, fontMetrics().averageCharWidth() * 32);
}

} // namespace tavrin
