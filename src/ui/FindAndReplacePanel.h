// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tavrin {

class FindAndReplaceController;

/// The one panel "Find and Replace" of the application. It stays open beside the windows.
class FindAndReplacePanel : public QDialog
{
    Q_OBJECT

public:
    /// The controller outlives it.
    explicit FindAndReplacePanel(FindAndReplaceController &controller);

    /// Keeps it in front of the window that it searches, whatever that window shows. On a window of the
    /// desktop's own only.
    void standBefore(QWidget &window);

    /// Shows it, ready to be typed into.
    void openFindAndReplaceDialog();

private:
    QLayout *makeEntries();
    QLayout *makeOptions();
    QLayout *makeButtons();
    void updateTarget();
    void updateButtons();

    FindAndReplaceController &g_controller;
    QLabel *g_datafile = nullptr;
    QLineEdit *g_findWhat = nullptr;
    QLineEdit *g_replaceWith = nullptr;
    QComboBox *g_fields = nullptr;
    QList<QPushButton *> g_buttons;
};

} // namespace tavrin
