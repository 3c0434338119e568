// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FindBox.h"

#include "ui/Icons.h"
#include "ui/TextState.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

EditorSearchController::HeldKeys heldKeys(Qt::KeyboardModifiers modifiers)
{
    return {.option = modifiers.testFlag(Qt::AltModifier),
            .control = modifiers.testFlag(Qt::ControlModifier)};
}

} // namespace

FindBox::FindBox(EditorSearchController &controller, QWidget *parent)
    : QWidget(parent)
    , g_controller(controller)
    , g_entry(new QLineEdit(this))
{
    setObjectName(u"findBox"_s);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    g_entry->setObjectName(u"findBoxText"_s);
    g_entry->setAccessibleName(tr("Find Box"));
    g_entry->setClearButtonEnabled(true);
    g_entry->setMinimumWidth(g_entry->fontMetrics().averageCharWidth() * 14);
    g_entry->setMaximumWidth(g_entry->fontMetrics().averageCharWidth() * 50);
    g_entry->installEventFilter(this);
    layout->addWidget(g_entry, 1);
    g_reverse = addButton(u"findBoxReverse"_s);
    g_forward = addButton(u"findBoxForward"_s);
    g_toggle = addButton(u"findBoxToggle"_s);
    layout->addStretch();
    setFocusProxy(g_entry);

    connect(g_entry, &QLineEdit::textChanged, &controller, &EditorSearchController::setFindText);
    connect(g_reverse, &QToolButton::clicked, &controller, [this] {
        g_controller.reverseSearch(heldKeys(QGuiApplication::keyboardModifiers()));
    });
    connect(g_forward, &QToolButton::clicked, &controller, [this] {
        g_controller.forwardSearch(heldKeys(QGuiApplication::keyboardModifiers()));
    });
    connect(g_toggle, &QToolButton::clicked, &controller, [this] {
        g_controller.toggleFindButton(heldKeys(QGuiApplication::keyboardModifiers()));
    });
    g_toggle->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(g_toggle, &QWidget::customContextMenuRequested, this, &FindBox::showToggleMenu);
    connect(&controller, &EditorSearchController::modesChanged, this, &FindBox::updateModes);
    updateModes();
}

void FindBox::forgetTyping()
{
    const QSignalBlocker blocker(g_entry);
    const int cursor = g_entry->cursorPosition();
    const int start = g_entry->selectionStart();
    const int length = g_entry->selectionLength();
    g_entry->setText(g_entry->text());
    g_entry->setCursorPosition(cursor);
    if (start >= 0)
        g_entry->setSelection(start, length);
}

QToolButton *FindBox::addButton(const QString &name)
{
    auto *button = new QToolButton(this);
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setIconSize({20, 20});
    button->setFocusPolicy(Qt::TabFocus);
    layout()->addWidget(button);
    return button;
}

void FindBox::updateModes()
{
    const bool selects = g_controller.isSelectMode();
    g_entry->setPlaceholderText(selects ? tr("Select records with") : tr("Find"));
    g_forward->setIcon(imageNamed(g_controller.forwardImage()));
    g_forward->setToolTip(g_controller.forwardToolTip());
    g_forward->setAccessibleName(selects ? tr("Select Records") : tr("Find Next"));
    g_reverse->setIcon(imageNamed(g_controller.reverseImage()));
    g_reverse->setToolTip(g_controller.reverseToolTip());
    g_reverse->setAccessibleName(selects ? tr("Select All Records") : tr("Find Previous"));
    g_toggle->setIcon(imageNamed(g_controller.toggleImage()));
    g_toggle->setToolTip(g_controller.toggleToolTip());
    g_toggle->setAccessibleName(tr("Find Options"));
    g_toggle->setAccessibleDescription(g_controller.toggleToolTip());
}

/// What the held keys do: window managers take Alt with a click for themselves.
void FindBox::showToggleMenu(const QPoint &position)
{
    auto *menu = new QMenu(g_toggle);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [this, menu](const QString &text, bool isOn, EditorSearchController::HeldKeys keys) {
        QAction *action =
            menu->addAction(text, &g_controller, [this, keys] { g_controller.toggleFindButton(keys); });
        action->setCheckable(true);
        action->setChecked(isOn);
        action->setEnabled(!g_controller.areOptionsLocked());
    };
    add(tr("&Select Instead of Finding"), g_controller.isSelectMode(), {});
    add(tr("Keys Between &Blanks, Phrases in Quotes"), g_controller.isInternetStyle(), {.option = true});
    add(tr("&Case Sensitive"), g_controller.isCaseSensitive(), {.control = true});
    menu->popup(g_toggle->mapToGlobal(position));
}

bool FindBox::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QWidget::eventFilter(object, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (event->type() == QEvent::ShortcutOverride) {
        event->setAccepted(false);
        return leavesKeyToWindow(g_entry, *key);
    }
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return QWidget::eventFilter(object, event);
    if (key->modifiers().testFlag(Qt::ShiftModifier))
        g_controller.reverseSearch(heldKeys(key->modifiers()));
    else
        g_controller.forwardSearch(heldKeys(key->modifiers()));
    return true;
}

} // namespace tavrin
