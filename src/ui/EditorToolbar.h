// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QToolBar>

#include <functional>

namespace tavrin {

class EditorToolbarController;
struct ToolbarItem;

/// The toolbar of an editor window, built from what its controller says and rebuilt when that changes.
class EditorToolbar : public QToolBar
{
    Q_OBJECT

public:
    /// Gives the action of a command; null when there is none.
    using ActionSource = std::function<QAction *(const QString &selector)>;

    /// The controller outlives the toolbar.
    EditorToolbar(EditorToolbarController &controller, ActionSource actions, QWidget *parent);

    /// Without text whatever the person chose, as a datafile may ask.
    void setCompact(bool compact);
    /// The item that switches the views shows the view to which it leads.
    void setOtherView(const QString &image, const QString &label);

    void build();

Q_SIGNALS:
    void customizeRequested();

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void applyStyle();
    void addItem(const QString &identifier);
    void addCommand(const ToolbarItem &item);
    void addSpace(bool flexible);

    EditorToolbarController &g_controller;
    ActionSource g_actions;
    QString g_viewImage;
    QString g_viewLabel;
    bool g_compact = false;
};

} // namespace tavrin
