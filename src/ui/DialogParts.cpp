// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/DialogParts.h"

#include "editor/QVSheetController.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace tavrin {

QDialogButtonBox *makeSheetButtons(QVSheetController &sheet, const QString &acceptLabel, QDialog *dialog)
{
    auto *buttons = new QDialogButtonBox(dialog);
    // Made first, so that Tab comes to it before it comes to Cancel.
    QPushButton *accept = buttons->addButton(acceptLabel, QDialogButtonBox::AcceptRole);
    accept->setDefault(true);
    buttons->addButton(QDialogButtonBox::Cancel);
    accept->setEnabled(sheet.isAcceptable());
    QObject::connect(&sheet, &QVSheetController::changed, accept, [&sheet, accept] {
        accept->setEnabled(sheet.isAcceptable());
    });
    QObject::connect(buttons, &QDialogButtonBox::accepted, &sheet, &QVSheetController::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return buttons;
}

QLabel *makeNoteLabel(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->hide();
    return label;
}

void setNote(QLabel *label, const QString &text)
{
    label->setText(text);
    label->setVisible(!text.isEmpty());
}

void setItems(QComboBox *box, const QList<CodedItem> &items, qsizetype chosen)
{
    const QSignalBlocker blocked(box);
    box->clear();
    for (const CodedItem &item : items)
        box->addItem(item.text);
    box->setCurrentIndex(static_cast<int>(chosen));
}

QStringList withMnemonics(QStringList texts)
{
    QString taken;
    for (QString &text : texts) {
        const auto letter = std::ranges::find_if(std::as_const(text), [&taken](QChar character) {
            return character.isLetterOrNumber() && !taken.contains(character.toLower());
        });
        if (letter == text.cend() || text.contains(u'&'))
            continue;
        taken += letter->toLower();
        text.insert(letter - text.cbegin(), u'&');
    }
    return texts;
}

} // namespace tavrin
