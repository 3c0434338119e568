// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;

namespace tavrin {

/// The small window that tells what long work is being done and how far it is, with a Cancel.
class WorkPanel : public QDialog
{
    Q_OBJECT

public:
    /// With a `window` it is modal to it, without one it stands alone and leaves the other windows free.
    WorkPanel(const QString &title, QWidget *window);

    /// How much is done, where that is known: above 0 and below 1. What is done and still goes on is unknown.
    void setFraction(double fraction);

    void setDoneText(const QString &text);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    QProgressBar *g_bar;
    QLabel *g_done;
};

} // namespace tavrin
