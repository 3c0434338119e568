// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/LookDialogs.h"

#include "editor/LookSheetControllers.h"
#include "editor/TextSheetController.h"
#include "ui/DialogParts.h"

#include <QColorDialog>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFontDialog>
#include <QFormLayout>
#include <QLineEdit>

namespace tavrin {

namespace {

QDialog *makeFontDialog(FontSheetController &sheet, QWidget *parent)
{
    auto *dialog = new QFontDialog(sheet.font(), parent);
    dialog->setCurrentFont(sheet.font());
    QObject::connect(dialog, &QFontDialog::fontSelected, &sheet, [&sheet](const QFont &font) {
        sheet.setFont(font);
        sheet.accept();
    });
    return dialog;
}

QDialog *makeColorDialog(ColorSheetController &sheet, QWidget *parent)
{
    auto *dialog = new QColorDialog(sheet.color(), parent);
    QObject::connect(dialog, &QColorDialog::colorSelected, &sheet, [&sheet](const QColor &color) {
        sheet.setColor(color);
        sheet.accept();
    });
    return dialog;
}

QDialog *makeTextDialog(TextSheetController &sheet, QWidget *parent)
{
    auto *dialog = new QDialog(parent);
    dialog->setWindowTitle(sheet.title());
    dialog->setMinimumWidth(dialog->fontMetrics().averageCharWidth() * 55);
    auto *layout = new QFormLayout(dialog);
    auto *entry = new QLineEdit(sheet.text(), dialog);
    entry->selectAll();
    layout->addRow(sheet.label(), entry);
    layout->addRow(makeSheetButtons(sheet, QCoreApplication::translate("LookDialogs", "OK"), dialog));
    QObject::connect(entry, &QLineEdit::textChanged, &sheet, &TextSheetController::setText);
    return dialog;
}

QDialog *makeNumbersDialog(NumbersSheetController &sheet, QWidget *parent)
{
    auto *dialog = new QDialog(parent);
    dialog->setWindowTitle(sheet.title());
    auto *layout = new QFormLayout(dialog);
    for (qsizetype i = 0; i < sheet.numbers().size(); ++i) {
        const NumbersSheetController::Number &number = sheet.numbers().at(i);
        auto *box = new QDoubleSpinBox(dialog);
        box->setRange(number.least, number.most);
        box->setDecimals(number.decimals);
        box->setSuffix(number.unit);
        if (number.decimals > 1)
            box->setSingleStep(0.1);
        box->setValue(number.value);
        layout->addRow(number.label, box);
        QObject::connect(box, &QDoubleSpinBox::valueChanged, &sheet, [&sheet, i](double value) {
            sheet.setValue(i, value);
        });
    }
    layout->addRow(makeSheetButtons(sheet, sheet.acceptLabel(), dialog));
    return dialog;
}

} // namespace

QDialog *makeLookDialog(QVSheetController &sheet, QWidget *parent)
{
    if (auto *font = qobject_cast<FontSheetController *>(&sheet))
        return makeFontDialog(*font, parent);
    if (auto *color = qobject_cast<ColorSheetController *>(&sheet))
        return makeColorDialog(*color, parent);
    if (auto *text = qobject_cast<TextSheetController *>(&sheet))
        return makeTextDialog(*text, parent);
    if (auto *numbers = qobject_cast<NumbersSheetController *>(&sheet))
        return makeNumbersDialog(*numbers, parent);
    return nullptr;
}

} // namespace tavrin
