// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QSyntaxHighlighter>

namespace tavrin {

/// The colour of links that is read on a paper: desktops forget that blue is hard to read on black.
QColor linkColorOn(const QColor &paper);

/// Shows the links of a text as such, in a colour that follows the palette: the text itself knows nothing of
/// it.
class LinkColors : public QSyntaxHighlighter
{
public:
    explicit LinkColors(QTextDocument &document) : QSyntaxHighlighter(&document) {}

    void setColor(const QColor &color);

protected:
    void highlightBlock(const QString &text) override;

private:
    QColor g_color = Qt::blue;
};

} // namespace tavrin
