// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FreeformDialog.h"

#include "editor/FreeformSheetController.h"
#include "editor/TextBridge.h"
#include "editor/TextChanging.h"
#include "io/FreeformExport.h"
#include "ui/DialogParts.h"
#include "ui/FreeformTextEdit.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QShortcut>
#include <QSignalBlocker>
#include <QToolButton>

namespace tavrin {

using richtext::CharacterFormat;

namespace {

constexpr double thousandths = 1000;

} // namespace

FreeformDialog::FreeformDialog(FreeformSheetController &sheet, QWidget *parent)
    : QDialog(parent)
    , g_sheet(sheet)
    , g_template(new FreeformTextEdit(this))
    , g_fields(new QListWidget(this))
    , g_family(new QFontComboBox(this))
    , g_size(new QDoubleSpinBox(this))
{
    setWindowTitle(tr("Export as Freeform Text Datafile"));
    auto *grid = new QGridLayout(this);
    auto *explanation = new QLabel(
        tr("Each record becomes a text: this template, with the contents of the fields in it, and then the "
           "record's own text."),
        this);
    explanation->setWordWrap(true);
    auto *fieldsLabel = new QLabel(tr("&Fields (activate to insert):"), this);
    fieldsLabel->setBuddy(g_fields);
    auto *templateLabel = new QLabel(tr("&Template:"), this);
    templateLabel->setBuddy(g_template);
    auto *formats = new QHBoxLayout;
    addFormats(formats);
    addFieldList();
    grid->addWidget(explanation, 0, 0, 1, 2);
    grid->addWidget(fieldsLabel, 1, 0);
    grid->addWidget(templateLabel, 1, 1);
    grid->addWidget(g_fields, 2, 0, 2, 1);
    grid->addLayout(formats, 2, 1);
    grid->addWidget(g_template, 3, 1);
    grid->addWidget(makeSheetButtons(sheet, tr("&Export…"), this), 4, 0, 1, 2);
    grid->setColumnStretch(1, 2);

    g_template->setFrameShape(QFrame::StyledPanel);
    g_template->setAccessibleName(tr("Template"));
    g_template->setTabChangesFocus(true);
    g_template->setMayHaveFormats(true, false);
    g_template->setText(sheet.freeformTextFormat(), sheet.plain());
    connect(g_template, &FreeformTextEdit::edited, &sheet, [this] {
        g_sheet.setFreeformTextFormat(g_template->formattedText());
    });
    connect(g_template, &QTextEdit::currentCharFormatChanged, this, &FreeformDialog::showFormats);
    g_template->moveCursor(QTextCursor::End);
    g_template->setFocus();
    showFormats();
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().lineSpacing() * 24);
}

void FreeformDialog::addFormats(QHBoxLayout *row)
{
    g_family->setAccessibleName(tr("Font"));
    g_family->setMinimumContentsLength(12);
    g_family->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    row->addWidget(g_family, 1);
    connect(g_family, &QComboBox::textActivated, this, [this](const QString &family) {
        change([&family](CharacterFormat &format) { format.family = family; });
    });
    g_size->setAccessibleName(tr("Size"));
    g_size->setRange(1, 1000);
    g_size->setDecimals(1);
    g_size->setKeyboardTracking(false);
    row->addWidget(g_size);
    connect(g_size, &QDoubleSpinBox::valueChanged, this, [this](double size) {
        change([size](CharacterFormat &format) { format.size = qRound(size * thousandths); });
    });
    addTrait(row, tr("Bold"), Qt::Key_B, &CharacterFormat::bold);
    addTrait(row, tr("Italic"), Qt::Key_I, &CharacterFormat::italic);
}

void FreeformDialog::addTrait(QHBoxLayout *row,
                              const QString &name,
                              Qt::Key key,
                              bool CharacterFormat::*trait)
{
    auto *button = new QToolButton(this);
    button->setText(name);
    button->setCheckable(true);
    button->setShortcut(Qt::CTRL | key);
    button->setToolTip(tr("%1 (%2)").arg(name, button->shortcut().toString(QKeySequence::NativeText)));
    row->addWidget(button);
    g_traits.append({button, trait});
    connect(button, &QToolButton::clicked, this, [this, trait](bool on) {
        change([trait, on](CharacterFormat &format) { format.*trait = on; });
        g_template->setFocus();
    });
}

void FreeformDialog::addFieldList()
{
    g_fields->addItems(g_sheet.fieldNames());
    connect(g_fields, &QListWidget::itemClicked, this, [this] { insertField(g_fields->currentRow()); });
    // By a shortcut: a key that the list lets through presses Export as well.
    auto *activate = new QShortcut(g_fields);
    activate->setKeys({Qt::Key_Return, Qt::Key_Enter});
    activate->setContext(Qt::WidgetShortcut);
    connect(activate, &QShortcut::activated, this, [this] { insertField(g_fields->currentRow()); });
}

void FreeformDialog::change(const std::function<void(CharacterFormat &)> &change)
{
    QTextCursor cursor = g_template->textCursor();
    changeLook(cursor, change);
    g_template->setTextCursor(cursor);
}

void FreeformDialog::insertField(int number)
{
    if (number < 0)
        return;
    QTextCursor cursor = g_template->textCursor();
    const CharacterFormat format = lookAt(cursor);
    insertText(cursor, templateField(g_sheet.fieldNames().at(number), format));
    g_template->setTextCursor(cursor);
    g_template->setFocus();
}

void FreeformDialog::showFormats()
{
    const CharacterFormat format = lookAt(g_template->textCursor());
    const QSignalBlocker family(g_family);
    const QSignalBlocker size(g_size);
    g_family->setCurrentText(format.family);
    g_size->setValue(format.size / thousandths);
    for (const auto &[button, trait] : g_traits)
        button->setChecked(format.*trait);
}

} // namespace tavrin
