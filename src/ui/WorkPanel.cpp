// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/WorkPanel.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrin {

WorkPanel::WorkPanel(const QString &title, QWidget *window)
    : QDialog(window)
    , g_bar(new QProgressBar(this))
    , g_done(new QLabel(this))
{
    constexpr int widthInCharacters = 60;
    const int width = fontMetrics().averageCharWidth() * widthInCharacters;
    setWindowTitle(QApplication::applicationName());
    setWindowModality(window ? Qt::WindowModal : Qt::NonModal);

    auto *label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setText(fontMetrics().elidedText(title, Qt::ElideMiddle, width));
    label->setToolTip(title);
    label->setMinimumWidth(width);
    g_bar->setTextVisible(false);
    g_bar->setAccessibleName(title);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // It came up by itself: a key that was meant for something else is not to end the work. Escape does.
    QPushButton *cancel = buttons->button(QDialogButtonBox::Cancel);
    cancel->setAutoDefault(false);
    cancel->setFocusPolicy(Qt::NoFocus);

    auto *layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(label);
    layout->addWidget(g_bar);
    layout->addWidget(g_done);
    layout->addWidget(buttons);
    setFraction(-1);
    if (window)
        window->installEventFilter(this);
}

bool WorkPanel::eventFilter(QObject *object, QEvent *event)
{
    // Escape is to be heard, however the window behind came to the front.
    if (event->type() == QEvent::WindowActivate && isVisible())
        activateWindow();
    return QDialog::eventFilter(object, event);
}

void WorkPanel::setFraction(double fraction)
{
    constexpr int steps = 1000;
    // A bar without a range moves to and fro.
    const bool isKnown = fraction > 0 && fraction < 1;
    g_bar->setRange(0, isKnown ? steps : 0);
    g_bar->setValue(qRound(fraction * steps));
}

void WorkPanel::setDoneText(const QString &text)
{
    g_done->setText(text);
}

} // namespace tavrin
