// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace tavrin {

class MultiFileFindController;

/// The window "Multi-File Find": what is looked for, where, and the list of what was found.
class MultiFileFindWindow : public QWidget
{
    Q_OBJECT

public:
    /// The controller outlives it.
    explicit MultiFileFindWindow(MultiFileFindController &controller);

    /// Shows it, ready to be typed into.
    void bringToFront();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    QLayout *makeQuery();
    QLayout *makePlaces();
    QLayout *makeFoot();
    void makeTable();
    void choose();
    void openCurrent();
    void copy();
    void updateState();

    MultiFileFindController &g_controller;
    QLineEdit *g_text = nullptr;
    QComboBox *g_where = nullptr;
    QPushButton *g_choose = nullptr;
    QLabel *g_chosen = nullptr;
    QPushButton *g_search = nullptr;
    QPushButton *g_cancel = nullptr;
    QPushButton *g_open = nullptr;
    QLabel *g_summary = nullptr;
    QTableView *g_table = nullptr;
};

} // namespace tavrin
