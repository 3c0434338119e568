// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

class QDialog;
class QWidget;

namespace tavrin {

class QVSheetController;

/// The dialog that shows a sheet, not yet visible. Its buttons answer the sheet; a rejected dialog leaves the
/// answer to the caller. A sheet class without a dialog of its own is a programming error.
QDialog *makeSheetDialog(QVSheetController &sheet, QWidget *parent);

} // namespace tavrin
