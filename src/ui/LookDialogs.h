// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

class QDialog;
class QWidget;

namespace tavrin {

class QVSheetController;

/// The dialog for a sheet about how text looks; null when the sheet is about something else.
QDialog *makeLookDialog(QVSheetController &sheet, QWidget *parent);

} // namespace tavrin
