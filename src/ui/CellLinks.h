// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "text/UrlScanner.h"

#include <QObject>

class QPoint;
class QWidget;

namespace tavrin {

/// The addresses in the cell that is being edited: they look like links, and Ctrl with a click follows them.
/// The value itself knows nothing of it.
class CellLinks : public QObject
{
    Q_OBJECT

public:
    /// `editor` owns it.
    explicit CellLinks(QWidget *editor);
    /// Those of a cell's editor; null for another widget.
    static CellLinks *of(const QWidget *editor);

    /// Empty: there is none.
    QString linkAtCaret() const;
    /// In the editor's own coordinates.
    void followAt(const QPoint &position);
    /// From now on addresses are but text, until the cell is edited anew.
    void deactivate();

Q_SIGNALS:
    void followed(const QString &link);
    /// The caret has come to a link, or left one.
    void caretLinkChanged();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void update();
    void show() const;
    void caretDidMove();
    QString linkAt(const QPoint &position) const;

    QWidget &g_editor;
    std::vector<text::Link> g_links;
    QString g_caretLink;
    bool g_isActive = true;
};

} // namespace tavrin
