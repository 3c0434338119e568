// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

#include <functional>

class QAbstractButton;
class QDoubleSpinBox;
class QFontComboBox;
class QHBoxLayout;
class QListWidget;

namespace tavrin {

namespace richtext {
struct CharacterFormat;
}

class FreeformSheetController;
class FreeformTextEdit;

/// Edits the template of a freeform export: a text with formats, and the fields that are put into it.
class FreeformDialog : public QDialog
{
    Q_OBJECT

public:
    /// The sheet outlives the dialog's last signal.
    FreeformDialog(FreeformSheetController &sheet, QWidget *parent);

private:
    void addFormats(QHBoxLayout *row);
    void addTrait(QHBoxLayout *row, const QString &name, Qt::Key key, bool richtext::CharacterFormat::*trait);
    void addFieldList();
    void change(const std::function<void(richtext::CharacterFormat &)> &change);
    void insertField(int number);
    void showFormats();

    FreeformSheetController &g_sheet;
    FreeformTextEdit *g_template;
    QListWidget *g_fields;
    QFontComboBox *g_family;
    QDoubleSpinBox *g_size;
    QList<std::pair<QAbstractButton *, bool richtext::CharacterFormat::*>> g_traits;
};

} // namespace tavrin
