// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QLabel;

namespace tavrin {

class RecordInfoPaletteController;

/// A small window that stays above the others: when the record was made, changed and looked at, and its size.
class RecordInfoPalette : public QWidget
{
    Q_OBJECT

public:
    /// The controller outlives the palette.
    explicit RecordInfoPalette(RecordInfoPaletteController &controller, QWidget *parent = nullptr);

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QLabel *addRow(const QString &name);
    void update();
    void updateShown();

    RecordInfoPaletteController &g_controller;
    QLabel *g_title;
    QLabel *g_modified;
    QLabel *g_viewed;
    QLabel *g_created;
    QLabel *g_size;
    bool g_placed = false;
};

} // namespace tavrin
