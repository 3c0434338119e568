// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/ImportAssistantDialog.h"

#include "app/ImportAssistantSheetController.h"
#include "ui/ColumnMapping.h"
#include "ui/DialogParts.h"
#include "ui/ImportParts.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrin {

namespace {

void showItems(QComboBox *box, const QStringList &items)
{
    QStringList shown;
    for (int i = 0; i < box->count(); ++i)
        shown.append(box->itemText(i));
    if (shown == items)
        return;
    box->clear();
    box->addItems(items);
}

} // namespace

ImportAssistantDialog::ImportAssistantDialog(ImportAssistantSheetController &sheet, QWidget *parent)
    : QDialog(parent)
    , g_sheet(sheet)
    , g_destinations(new QButtonGroup(this))
    , g_key(new QComboBox(this))
    , g_targets(new TargetList(this))
    , g_preview(new ColumnTable(this))
    , g_note(makeNoteLabel(this))
{
    setWindowTitle(sheet.title());
    auto *layout = new QVBoxLayout(this);
    auto *forms = new QHBoxLayout;
    auto *reading = new QFormLayout;
    auto *destinations = new QFormLayout;
    forms->addLayout(reading, 1);
    forms->addSpacing(fontMetrics().averageCharWidth() * 4);
    forms->addLayout(destinations, 1);
    layout->addLayout(forms);
    addReading(reading);
    addDestinations(destinations);

    addColumns(layout);
    layout->addWidget(g_note);
    layout->addWidget(makeSheetButtons(sheet, tr("&Import"), this));
    connect(&sheet, &QVSheetController::changed, this, &ImportAssistantDialog::showSheet);
    showSheet();
    g_destinations->checkedButton()->setFocus();
    resize(fontMetrics().averageCharWidth() * 110, fontMetrics().lineSpacing() * 34);
}

// Where a column goes is chosen above it, or by dragging.
void ImportAssistantDialog::addColumns(QVBoxLayout *layout)
{
    auto *label = new QLabel(tr("Above each column stands &where it goes. Columns can also be dragged onto "
                                "the list, and from there:"),
                             this);
    label->setWordWrap(true);
    label->setBuddy(g_preview);
    auto *targets = new QLabel(tr("&Fields:"), this);
    targets->setBuddy(g_targets);
    preparePreview(g_preview, tr("Columns and first rows"));
    g_targets->setAccessibleName(tr("Where columns go"));
    auto *halves = new QGridLayout;
    halves->addWidget(targets, 0, 0, Qt::AlignBottom);
    halves->addWidget(label, 0, 1);
    halves->addWidget(g_targets, 1, 0);
    halves->addWidget(g_preview, 1, 1);
    halves->setColumnStretch(0, 1);
    halves->setColumnStretch(1, 3);
    layout->addLayout(halves, 1);
    // A change makes both halves anew, so not from inside of their own events.
    const auto setTarget = [this](int column, int target) { g_sheet.setTarget(column, target); };
    connect(g_preview, &ColumnTable::targetDropped, &g_sheet, setTarget, Qt::QueuedConnection);
    connect(g_targets, &TargetList::columnDropped, &g_sheet, setTarget, Qt::QueuedConnection);
}

void ImportAssistantDialog::addReading(QFormLayout *form)
{
    using Sheet = ImportAssistantSheetController;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    auto *separator = new QComboBox(this);
    setItems(separator, g_sheet.separatorItems(), g_sheet.separator());
    form->addRow(tr("&Values end with:"), separator);
    connect(separator, &QComboBox::currentIndexChanged, &g_sheet, &Sheet::setSeparator);

    auto *quote = new QComboBox(this);
    setItems(quote, g_sheet.quoteItems(), g_sheet.quote());
    form->addRow(tr("&Quotes:"), quote);
    connect(quote, &QComboBox::currentIndexChanged, &g_sheet, &Sheet::setQuote);

    const auto choose = [this](TextEncoding encoding) { g_sheet.setEncoding(encoding); };
    form->addRow(tr("&Encoding:"), makeEncodingBox(g_sheet.encoding(), this, choose));

    auto *names = new QCheckBox(tr("&Names of the columns in the first row"), this);
    names->setChecked(g_sheet.namesInFirstRecord());
    form->addRow(QString(), names);
    connect(names, &QCheckBox::toggled, &g_sheet, &Sheet::setNamesInFirstRecord);
}

void ImportAssistantDialog::addDestinations(QFormLayout *form)
{
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    const QString title = g_sheet.targetTitle().replace(u'&', QStringLiteral("&&"));
    const QString current = g_sheet.hasTarget() ? tr("“%1”").arg(title) : tr("the current datafile");
    const QStringList texts = {tr("Crea&te a new datafile"),
                               tr("&Append to %1").arg(current),
                               tr("&Merge into it, without duplicates"),
                               tr("&Update its records")};
    for (int i = 0; i < texts.size(); ++i) {
        auto *button = new QRadioButton(texts[i], this);
        button->setEnabled(i == 0 || g_sheet.hasTarget());
        g_destinations->addButton(button, i);
        form->addRow(button);
    }
    connect(g_destinations, &QButtonGroup::idClicked, &g_sheet, [this](int id) {
        g_sheet.setDestination(static_cast<ImportAssistantSheetController::Destination>(id));
    });
    form->addRow(tr("&Records are found by:"), g_key);
    connect(g_key, &QComboBox::currentIndexChanged, &g_sheet, &ImportAssistantSheetController::setKeyColumn);
}

void ImportAssistantDialog::showSheet()
{
    using Destination = ImportAssistantSheetController::Destination;
    g_destinations->button(static_cast<int>(g_sheet.destination()))->setChecked(true);
    const QSignalBlocker blocked(g_key);
    g_key->clear();
    for (const auto &column : g_sheet.columns())
        g_key->addItem(column.name);
    g_key->setCurrentIndex(static_cast<int>(g_sheet.keyColumn()));
    g_key->setEnabled(g_sheet.destination() == Destination::Update);
    showColumns();
    setNote(g_note, g_sheet.note());
}

// It stays when the row is shown anew: somebody may be choosing with the keyboard.
QComboBox *ImportAssistantDialog::targetBox(int column)
{
    if (auto *box = qobject_cast<QComboBox *>(g_preview->cellWidget(0, column)))
        return box;
    auto *box = new QComboBox(g_preview);
    g_preview->setCellWidget(0, column, box);
    connect(
        box, &QComboBox::activated, &g_sheet, [this, column](int item) { g_sheet.setTarget(column, item); });
    return box;
}

// The first row of the table says where each column goes.
void ImportAssistantDialog::showColumns()
{
    QStringList names;
    for (const auto &column : g_sheet.columns())
        names.append(column.name);
    showRows(g_preview, names, QList<QStringList>{QStringList()} + g_sheet.previewRows());
    for (int column = 0; column < names.size(); ++column) {
        QComboBox *target = targetBox(column);
        showItems(target, g_sheet.targetItems(column));
        target->setCurrentIndex(static_cast<int>(g_sheet.columns()[column].target));
        target->setAccessibleName(tr("Where column “%1” goes").arg(names[column]));
        g_preview->setColumnWidth(column,
                                  std::max(target->sizeHint().width(), g_preview->columnWidth(column)));
    }
    g_preview->resizeRowToContents(0);
    const int current = g_targets->currentRow();
    g_targets->clear();
    g_targets->addItems(g_sheet.targetSummaries());
    g_targets->setCurrentRow(std::clamp(current, 0, g_targets->count() - 1));
}

ImportDifferencesDialog::ImportDifferencesDialog(ImportDifferencesSheetController &sheet, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Update Records"));
    auto *layout = new QVBoxLayout(this);
    auto *summary = new QLabel(sheet.summary(), this);
    summary->setWordWrap(true);
    layout->addWidget(summary);
    auto *table = new QTableWidget(this);
    preparePreview(table, tr("What changes"));
    QList<QStringList> rows;
    for (const RowDifference &difference : sheet.differences())
        rows.append({difference.key, difference.fieldName, difference.oldContent, difference.newContent});
    showRows(table, {tr("Record"), tr("Field"), tr("Now"), tr("In the file")}, rows);
    layout->addWidget(table, 1);
    layout->addWidget(makeSheetButtons(sheet, tr("&Update"), this));
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().lineSpacing() * 26);
}

} // namespace tavrin
