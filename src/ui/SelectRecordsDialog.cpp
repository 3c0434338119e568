// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/SelectRecordsDialog.h"

#include "editor/SelectRecordsSheetController.h"
#include "ui/DialogParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tavrin {

using Sheet = SelectRecordsSheetController;

SelectRecordsDialog::SelectRecordsDialog(SelectRecordsSheetController &sheet, QWidget *parent)
    : QDialog(parent)
    , g_sheet(sheet)
{
    const bool fromOmitted = sheet.from() == Sheet::From::Omitted;
    setWindowTitle(fromOmitted ? tr("Select from Omitted Records") : tr("Select Records"));
    auto *grid = new QGridLayout(this);
    grid->setColumnStretch(3, 1);
    auto *introduction = new QLabel(fromOmitted ? tr("Add the omitted records that meet the condition.")
                                                : tr("Keep the selected records that meet the condition."),
                                    this);
    grid->addWidget(introduction, 0, 0, 1, 4);
    const std::array headings{tr("Based on"), tr("Treat as"), tr("Where it"), tr("This")};
    for (int column = 0; column < 4; ++column)
        grid->addWidget(new QLabel(headings.at(size_t(column)), this), 1, column);
    g_rows[0] = makeRow(0, grid, 2);

    g_and = new QCheckBox(tr("A&nd"), this);
    g_or = new QCheckBox(tr("O&r"), this);
    auto *joining = new QHBoxLayout;
    joining->addWidget(g_and);
    joining->addWidget(g_or);
    joining->addStretch(1);
    grid->addLayout(joining, 3, 0, 1, 4);
    const auto connectJoining = [this](QCheckBox *box, void (Sheet::*choose)(bool)) {
        connect(box, &QCheckBox::clicked, &g_sheet, [this, choose](bool on) {
            (g_sheet.*choose)(on);
            if (on)
                g_rows[1].value->setFocus();
        });
    };
    connectJoining(g_and, &Sheet::handleAndSelectClick);
    connectJoining(g_or, &Sheet::handleOrSelectClick);

    g_rows[1] = makeRow(1, grid, 4);
    g_note = makeNoteLabel(this);
    g_note->setMinimumHeight(fontMetrics().height());
    grid->addWidget(g_note, 5, 0, 1, 4);
    grid->setRowStretch(6, 1);
    QDialogButtonBox *buttons =
        makeSheetButtons(sheet, fromOmitted ? tr("&Add to Selection") : tr("&Select"), this);
    QPushButton *reset = buttons->addButton(tr("Reset"), QDialogButtonBox::ResetRole);
    reset->setAutoDefault(false);
    connect(reset, &QPushButton::clicked, &sheet, &Sheet::resetSelectRecordsSheet);
    grid->addWidget(buttons, 7, 0, 1, 4);

    connect(&sheet, &QVSheetController::changed, this, &SelectRecordsDialog::showSheet);
    showSheet();
    g_rows[0].value->setFocus();
    g_rows[0].value->selectAll();
    resize(sizeHint().expandedTo(QSize(fontMetrics().averageCharWidth() * 95, 0)));
}

SelectRecordsDialog::Row SelectRecordsDialog::makeRow(int number, QGridLayout *grid, int line)
{
    const auto makeBox = [&](int column, const QString &name, void (Sheet::*choose)(int, qsizetype)) {
        auto *box = new QComboBox(this);
        box->setAccessibleName(name);
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        grid->addWidget(box, line, column);
        connect(box, &QComboBox::activated, &g_sheet, [this, number, choose](int index) {
            (g_sheet.*choose)(number, index);
        });
        return box;
    };
    const auto named = [number](const QString &first, const QString &second) {
        return number == 0 ? first : second;
    };
    Row row{makeBox(0, named(tr("Based on"), tr("Second condition based on")), &Sheet::handleBasedOnClick),
            makeBox(1, named(tr("Treat as"), tr("Second condition treats as")), &Sheet::handleTreatAsClick),
            makeBox(2, named(tr("Operator"), tr("Second operator")), &Sheet::handleWhereClick),
            new QLineEdit(this)};
    row.value->setAccessibleName(named(tr("Value"), tr("Second value")));
    grid->addWidget(row.value, line, 3);
    connect(row.value, &QLineEdit::textEdited, &g_sheet, [this, number](const QString &text) {
        g_sheet.setValue(number, text);
    });
    return row;
}

void SelectRecordsDialog::showSheet()
{
    g_and->setChecked(g_sheet.joining() == Sheet::Joining::And);
    g_or->setChecked(g_sheet.joining() == Sheet::Joining::Or);
    for (const int number : {0, 1}) {
        const SelectionCondition &condition = g_sheet.condition(number);
        const Row &row = g_rows.at(size_t(number));
        setItems(row.basedOn, condition.basedOnItems(), condition.basedOn());
        setItems(row.treatAs, condition.treatAsItems(), condition.treatAs());
        setItems(row.where, condition.whereItems(), condition.where());
        // Not while it is typed into: the caret would jump.
        if (row.value->text() != condition.value())
            row.value->setText(condition.value());
        const bool active = g_sheet.isActive(number);
        for (QWidget *box : {row.basedOn, row.treatAs, row.where})
            box->setEnabled(active);
        row.value->setEnabled(active && condition.takesValue());
    }
    setNote(g_note, g_sheet.problem().isEmpty() ? g_sheet.hint() : g_sheet.problem());
    g_note->show(); // Its room is kept, so that nothing jumps while typing.
}

} // namespace tavrin
