// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/WidgetSheetHost.h"

#include "ui/SheetDialogs.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace tavrin {

WidgetSheetHost::WidgetSheetHost(std::function<QWidget *()> parent) : g_parent(std::move(parent)) {}

WidgetSheetHost::~WidgetSheetHost()
{
    delete g_dialog;
}

void WidgetSheetHost::begin(std::unique_ptr<QVSheetController> sheet)
{
    g_waiting.push_back(std::move(sheet));
    if (!g_current)
        showNext();
}

void WidgetSheetHost::showNext()
{
    if (g_current || g_waiting.empty())
        return;
    g_current = std::move(g_waiting.front());
    g_waiting.pop_front();
    QWidget *window = g_parent();
    g_focusBefore = QApplication::focusWidget();
    g_dialog = makeSheetDialog(*g_current, window);
    // Whose sheet it is. Alerts and file panels have titles of their own.
    const QString title = g_dialog->windowTitle();
    const QString file = window ? QFileInfo(window->windowFilePath()).fileName() : QString();
    if (!file.isEmpty() && !qobject_cast<QMessageBox *>(g_dialog) && !qobject_cast<QFileDialog *>(g_dialog))
        g_dialog->setWindowTitle(QStringLiteral("%1 – %2").arg(title, file));
    g_dialog->setWindowModality(window ? Qt::WindowModal : Qt::ApplicationModal);

    QVSheetController *sheet = g_current.get();
    connect(sheet, &QVSheetController::closed, this, &WidgetSheetHost::endCurrent);
    // A dialog closed by its frame or by Escape gives the cancelling answer.
    connect(g_dialog.data(), &QDialog::rejected, sheet, [sheet] {
        if (!sheet->isFinished())
            sheet->cancel();
    });
    // So does one that goes with its window: otherwise no later sheet would ever be shown.
    connect(
        g_dialog.data(),
        &QObject::destroyed,
        sheet,
        [sheet] {
            if (!sheet->isFinished())
                sheet->cancel();
        },
        Qt::QueuedConnection);
    g_dialog->open();
}

void WidgetSheetHost::endCurrent()
{
    if (g_dialog) {
        g_dialog->hide();
        g_dialog->deleteLater();
        g_dialog.clear();
    }
    if (g_focusBefore)
        g_focusBefore->setFocus();
    // The sheet is still telling its answer; the next one waits until that was heard.
    QVSheetController *ended = g_current.release();
    ended->deleteLater();
    QMetaObject::invokeMethod(this, &WidgetSheetHost::showNext, Qt::QueuedConnection);
}

} // namespace tavrin
