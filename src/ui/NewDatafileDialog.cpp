// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/NewDatafileDialog.h"

#include "app/NewDatafileSheetController.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace tavrin {

NewDatafileDialog::NewDatafileDialog(NewDatafileSheetController &sheet, QWidget *parent)
    : QDialog(parent)
    , g_sheet(sheet)
    , g_problem(new QLabel(this))
{
    setWindowTitle(tr("New Datafile"));
    auto *layout = new QFormLayout(this);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);

    auto *names = new QPlainTextEdit(sheet.fieldNamesText(), this);
    names->setTabChangesFocus(true);
    names->setPlaceholderText(tr("One name on each line, for example\nName\nPhone\nE-mail"));
    auto *namesLabel = new QLabel(tr("&Fields:"), this);
    namesLabel->setBuddy(names);
    layout->addRow(namesLabel, names);
    connect(names, &QPlainTextEdit::textChanged, this, [this, names] {
        g_sheet.setFieldNamesText(names->toPlainText());
    });

    auto *textName = new QLineEdit(sheet.textName(), this);
    textName->setPlaceholderText(tr("Freeform Text Area"));
    layout->addRow(tr("Name of the &text:"), textName);
    connect(textName, &QLineEdit::textChanged, &sheet, &NewDatafileSheetController::setTextName);

    auto *kind = new QComboBox(this);
    kind->addItem(tr("Desktop (.tv3)"));
    kind->addItem(tr("Mobile, plain text (.tvk)"));
    kind->setCurrentIndex(sheet.kind() == DatafileKind::Mobile ? 1 : 0);
    layout->addRow(tr("&Kind:"), kind);
    connect(kind, &QComboBox::currentIndexChanged, &sheet, [&sheet](int index) {
        sheet.setKind(index == 1 ? DatafileKind::Mobile : DatafileKind::Pro);
    });

    g_problem->setWordWrap(true);
    layout->addRow(g_problem);
    auto *buttons = new QDialogButtonBox(this);
    // Made first, so that Tab comes to it before it comes to Cancel.
    g_create = buttons->addButton(tr("Create"), QDialogButtonBox::AcceptRole);
    g_create->setDefault(true);
    buttons->addButton(QDialogButtonBox::Cancel);
    layout->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, &sheet, &QVSheetController::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(&sheet, &QVSheetController::changed, this, &NewDatafileDialog::showProblem);
    showProblem();
    resize(sizeHint().expandedTo(QSize(fontMetrics().averageCharWidth() * 60, 0)));
}

void NewDatafileDialog::showProblem()
{
    g_problem->setText(g_sheet.problem());
    g_problem->setVisible(!g_sheet.problem().isEmpty());
    g_create->setEnabled(g_sheet.isAcceptable());
}

} // namespace tavrin
