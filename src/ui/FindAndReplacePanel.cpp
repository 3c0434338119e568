// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FindAndReplacePanel.h"

#include "app/FindAndReplaceController.h"
#include "ui/DialogParts.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

namespace tavrin {

using namespace Qt::StringLiterals;
using Controller = FindAndReplaceController;

FindAndReplacePanel::FindAndReplacePanel(FindAndReplaceController &controller) : g_controller(controller)
{
    setWindowTitle(tr("Find and Replace"));
    setObjectName(u"findAndReplacePanel"_s);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(makeEntries());
    layout->addLayout(makeOptions());
    layout->addStretch();
    layout->addLayout(makeButtons());
    const auto addKeys = [this](const QString &keys, void (Controller::*command)()) {
        auto *action = new QAction(this);
        action->setShortcuts(QKeySequence::listFromString(keys));
        connect(action, &QAction::triggered, &g_controller, command);
        addAction(action);
    };
    addKeys(u"Ctrl+G; F3"_s, &Controller::findNext);
    addKeys(u"Ctrl+Shift+G; Shift+F3"_s, &Controller::findPrevious);
    connect(&controller, &Controller::targetChanged, this, &FindAndReplacePanel::updateTarget);
    connect(&controller, &Controller::changed, this, &FindAndReplacePanel::updateButtons);
    connect(&controller, &Controller::beep, this, [] { QApplication::beep(); });
    updateTarget();
    updateButtons();
}

void FindAndReplacePanel::standBefore(QWidget &window)
{
    winId(); // From now on it has a handle.
    windowHandle()->setTransientParent(window.windowHandle());
}

void FindAndReplacePanel::openFindAndReplaceDialog()
{
    show();
    raise();
    activateWindow();
    g_findWhat->setFocus();
    g_findWhat->selectAll();
}

QLayout *FindAndReplacePanel::makeEntries()
{
    auto *form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    g_datafile = new QLabel(this);
    g_datafile->setTextFormat(Qt::PlainText);
    form->addRow(tr("Datafile:"), g_datafile);
    g_findWhat = new QLineEdit(this);
    g_findWhat->setMinimumWidth(fontMetrics().averageCharWidth() * 42);
    g_replaceWith = new QLineEdit(this);
    form->addRow(tr("F&ind:"), g_findWhat);
    form->addRow(tr("Replace &with:"), g_replaceWith);
    g_fields = new QComboBox(this);
    form->addRow(tr("I&n:"), g_fields);
    connect(g_findWhat, &QLineEdit::textChanged, &g_controller, &Controller::setFindWhat);
    connect(g_replaceWith, &QLineEdit::textChanged, &g_controller, &Controller::setReplaceWith);
    connect(g_fields, &QComboBox::activated, &g_controller, [this](int index) {
        g_controller.selectField(g_controller.fieldsList().at(index).code);
    });
    return form;
}

QLayout *FindAndReplacePanel::makeOptions()
{
    auto *column = new QVBoxLayout;
    const auto addBox = [&](const QString &text, void (Controller::*set)(bool)) {
        auto *box = new QCheckBox(text, this);
        connect(box, &QCheckBox::toggled, &g_controller, set);
        column->addWidget(box);
    };
    addBox(tr("&Case sensitive"), &Controller::setCaseSensitiveIsOn);
    addBox(tr("Whole w&ords only"), &Controller::setWholeWordIsOn);
    addBox(tr("Replace all in the c&urrent record only"), &Controller::setLimitToCurrentRecord);
    return column;
}

QLayout *FindAndReplacePanel::makeButtons()
{
    // In two rows, so that the panel stays beside a window rather than over it.
    auto *grid = new QGridLayout;
    const auto addButton = [&](const QString &text, void (Controller::*command)(), int row, int column) {
        auto *button = new QPushButton(text, this);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, &g_controller, command);
        grid->addWidget(button, row, column);
        g_buttons.append(button);
        return button;
    };
    addButton(tr("Replace &All"), &Controller::replaceAll, 0, 0);
    addButton(tr("&Replace"), &Controller::replace, 0, 1);
    addButton(tr("Replace && &Find"), &Controller::replaceThenFind, 0, 2);
    addButton(tr("Find &Previous"), &Controller::findPrevious, 1, 1);
    addButton(tr("Find Ne&xt"), &Controller::findNext, 1, 2)->setDefault(true);
    return grid;
}

void FindAndReplacePanel::updateTarget()
{
    const QString name = g_controller.datafileName();
    g_datafile->setText(name.isEmpty() ? tr("No datafile is open") : name);
    const QList<CodedItem> fields = g_controller.fieldsList();
    setItems(g_fields, fields, indexOfCode(fields, g_controller.fieldsToSearchIn()));
    g_fields->setEnabled(!fields.isEmpty());
}

void FindAndReplacePanel::updateButtons()
{
    for (QPushButton *button : g_buttons)
        button->setEnabled(g_controller.canFind());
}

} // namespace tavrin
