// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/SheetHost.h"

#include <QObject>
#include <QPointer>

#include <deque>
#include <functional>
#include <memory>

class QDialog;
class QWidget;

namespace tavrin {

/// Shows sheets as dialogs that are modal to one window, one at a time and without a nested event loop.
///
/// The focus returns to where it was. The host outlives the dialogs that it shows.
class WidgetSheetHost : public QObject, public SheetHost
{
    Q_OBJECT

public:
    /// `parent` gives the window to which the next sheet belongs; null for none.
    explicit WidgetSheetHost(std::function<QWidget *()> parent);
    ~WidgetSheetHost() override;

    void begin(std::unique_ptr<QVSheetController> sheet) override;

    bool isShowing() const { return g_current != nullptr; }

private:
    void showNext();
    void endCurrent();

    std::function<QWidget *()> g_parent;
    std::deque<std::unique_ptr<QVSheetController>> g_waiting;
    std::unique_ptr<QVSheetController> g_current;
    QPointer<QDialog> g_dialog;
    QPointer<QWidget> g_focusBefore;
};

} // namespace tavrin
