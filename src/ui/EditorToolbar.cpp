// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/EditorToolbar.h"

#include "editor/EditorToolbarController.h"
#include "ui/Icons.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace tavrin {

namespace {

using Display = EditorToolbarController::Display;

QString withoutMark(QString text)
{
    return text.remove(u'&').remove(u'…');
}

} // namespace

EditorToolbar::EditorToolbar(EditorToolbarController &controller, ActionSource actions, QWidget *parent)
    : QToolBar(tr("Toolbar"), parent)
    , g_controller(controller)
    , g_actions(std::move(actions))
{
    setObjectName(u"toolbar"_s);
    setMovable(false);
    // Its own menu says more than the one that every main window has.
    setContextMenuPolicy(Qt::DefaultContextMenu);
    toggleViewAction()->setVisible(false);
    connect(&controller, &EditorToolbarController::itemsChanged, this, &EditorToolbar::build);
    connect(&controller, &EditorToolbarController::toolbarStyleChanged, this, &EditorToolbar::build);
}

void EditorToolbar::setCompact(bool compact)
{
    if (g_compact != compact) {
        g_compact = compact;
        applyStyle();
    }
}

void EditorToolbar::setOtherView(const QString &image, const QString &label)
{
    g_viewImage = image;
    g_viewLabel = label;
    QAction *action = g_actions(u"switchView:"_s);
    if (!action)
        return;
    action->setIcon(imageNamed(g_controller.imageName(image)));
    action->setIconText(label);
}

void EditorToolbar::build()
{
    // Lines and spaces are the toolbar's own, made anew each time.
    const QList<QAction *> before = actions();
    clear();
    for (QAction *action : before) {
        if (action->parent() == this)
            action->deleteLater();
    }
    for (const QString &identifier : g_controller.items())
        addItem(identifier);
    applyStyle();
}

void EditorToolbar::applyStyle()
{
    const Display display = g_compact && g_controller.display() == Display::IconsAndText
                                ? Display::IconsOnly
                                : g_controller.display();
    constexpr int large = 24;
    constexpr int small = 20;
    const int size = display == Display::IconsAndText ? large : small;
    setIconSize(QSize(size, size));
    setToolButtonStyle(display == Display::IconsAndText ? Qt::ToolButtonTextUnderIcon
                       : display == Display::IconsOnly  ? Qt::ToolButtonIconOnly
                                                        : Qt::ToolButtonTextOnly);
    // Labels are names under pictures here, quieter than the person's own texts.
    QFont labels = parentWidget()->font();
    constexpr double quieter = 0.88;
    labels.setPointSizeF(labels.pointSizeF() * quieter);
    for (QToolButton *button : findChildren<QToolButton *>(QString(), Qt::FindDirectChildrenOnly))
        button->setFont(labels);
    // The platform draws the overflow's arrows dark on dark.
    if (auto *more = findChild<QToolButton *>(u"qt_toolbar_ext_button"_s))
        more->setIcon(imageNamed(u"TB_M_more"_s));
    setVisible(g_controller.isShown());
}

void EditorToolbar::addItem(const QString &identifier)
{
    const ToolbarItem &item = *EditorToolbarController::item(identifier);
    if (identifier == QLatin1StringView(EditorToolbarController::Separator))
        addSeparator();
    else if (EditorToolbarController::mayRepeat(identifier))
        addSpace(identifier == QLatin1StringView(EditorToolbarController::FlexibleSpace));
    else if (identifier != QLatin1StringView(EditorToolbarController::FindBox)) // That has a row of its own.
        addCommand(item);
}

void EditorToolbar::addCommand(const ToolbarItem &item)
{
    QAction *action = g_actions(g_controller.selectorOf(item));
    if (!action)
        return;
    const bool isView = qstrcmp(item.identifier, "SwitchView") == 0;
    const QString image = isView && !g_viewImage.isEmpty() ? g_viewImage : QString::fromLatin1(item.image);
    const QString label =
        isView && !g_viewLabel.isEmpty() ? g_viewLabel : EditorToolbarController::label(item);
    action->setIcon(imageNamed(g_controller.imageName(image)));
    action->setIconText(label);
    const QString name = withoutMark(action->text());
    const QString keys = action->shortcut().toString(QKeySequence::NativeText);
    action->setToolTip(keys.isEmpty() ? name : u"%1 (%2)"_s.arg(name, keys));
    addAction(action);
    if (auto *button = qobject_cast<QToolButton *>(widgetForAction(action))) {
        button->setAccessibleName(name);
        button->setFocusPolicy(Qt::TabFocus);
    }
}

void EditorToolbar::addSpace(bool flexible)
{
    constexpr int width = 16;
    auto *space = new QWidget(this);
    space->setSizePolicy(flexible ? QSizePolicy::Expanding : QSizePolicy::Fixed, QSizePolicy::Preferred);
    space->setMinimumWidth(flexible ? 0 : width);
    addWidget(space);
}

void EditorToolbar::contextMenuEvent(QContextMenuEvent *event)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString &text, Display display) {
        QAction *action =
            menu->addAction(text, &g_controller, [this, display] { g_controller.setDisplay(display); });
        action->setCheckable(true);
        action->setChecked(g_controller.display() == display);
    };
    add(tr("Icons &and Text"), Display::IconsAndText);
    add(tr("&Icons Only"), Display::IconsOnly);
    add(tr("&Text Only"), Display::TextOnly);
    menu->addSeparator();
    menu->addAction(tr("&Hide Toolbar"), &g_controller, [this] { g_controller.setShown(false); });
    menu->addAction(tr("&Customize Toolbar…"), this, &EditorToolbar::customizeRequested);
    menu->popup(event->globalPos());
}

} // namespace tavrin
