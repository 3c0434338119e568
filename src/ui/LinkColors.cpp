// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/LinkColors.h"

#include <QTextBlock>

namespace tavrin {

QColor linkColorOn(const QColor &paper)
{
    constexpr float middle = 0.45F;
    return paper.lightnessF() > middle ? QColor(0, 0, 200) : QColor(140, 180, 255);
}

void LinkColors::setColor(const QColor &color)
{
    if (g_color == color)
        return;
    g_color = color;
    rehighlight();
}

void LinkColors::highlightBlock(const QString & /*text*/)
{
    QTextCharFormat shown;
    shown.setForeground(g_color);
    shown.setFontUnderline(true);
    const QTextBlock block = currentBlock();
    for (auto part = block.begin(); part != block.end(); ++part) {
        const QTextFragment fragment = part.fragment();
        if (fragment.charFormat().isAnchor())
            setFormat(fragment.position() - block.position(), fragment.length(), shown);
    }
}

} // namespace tavrin
