// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

class QFormLayout;

namespace tavrin {

class SortFieldsSheetController;
class SortFreeformSheetController;
class SortSheetController;
class SortTasksSheetController;

/// What the dialogs that ask how to sort have in common: direction, case, a look at the first results.
/// Each one's sheet outlives its last signal.
class SortDialog : public QDialog
{
    Q_OBJECT

protected:
    SortDialog(SortSheetController &sheet, const QString &title, QWidget *parent);

    /// To be called when the rows above are there.
    void addCommonRows();
    QFormLayout &form() { return *g_form; }

private:
    SortSheetController &g_sheet;
    QFormLayout *g_form;
};

class SortFieldsDialog : public SortDialog
{
    Q_OBJECT

public:
    SortFieldsDialog(SortFieldsSheetController &sheet, QWidget *parent);
};

class SortFreeformDialog : public SortDialog
{
    Q_OBJECT

public:
    SortFreeformDialog(SortFreeformSheetController &sheet, QWidget *parent);

private:
    QWidget *makeNamePage(SortFreeformSheetController &sheet);
    QWidget *makeWordPage(SortFreeformSheetController &sheet);
};

} // namespace tavrin
