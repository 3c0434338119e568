// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/CodedItem.h"

#include <QString>

class QComboBox;
class QDialog;
class QDialogButtonBox;
class QLabel;
class QWidget;

namespace tavrin {

class QVSheetController;

/// Buttons that answer a sheet: one that accepts, enabled while the sheet may be, and Cancel.
QDialogButtonBox *makeSheetButtons(QVSheetController &sheet, const QString &acceptLabel, QDialog *dialog);

/// A line of small print for problems and notes; it takes no room while empty.
QLabel *makeNoteLabel(QWidget *parent);
void setNote(QLabel *label, const QString &text);

/// Shows these items with one chosen, without telling anybody that the choice changed.
void setItems(QComboBox *box, const QList<CodedItem> &items, qsizetype chosen);

/// The texts of buttons that stand beside each other, each with a letter of its own for the keyboard.
QStringList withMnemonics(QStringList texts);

} // namespace tavrin
