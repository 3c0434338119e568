// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/Appearance.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

using namespace Qt::StringLiterals;

namespace tavrin {

namespace {

QPalette palette(const QColor &window, const QColor &base, const QColor &text, const QColor &faint)
{
    QPalette colors(window);
    const QColor accent(0x2f, 0x7f, 0x7a);
    colors.setColor(QPalette::Base, base);
    colors.setColor(QPalette::AlternateBase, base.lightnessF() > 0.5F ? base.darker(104) : base.lighter(125));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        colors.setColor(role, text);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        colors.setColor(QPalette::Disabled, role, faint);
    colors.setColor(QPalette::PlaceholderText, faint);
    colors.setColor(QPalette::Highlight, accent);
    colors.setColor(QPalette::HighlightedText, Qt::white);
    colors.setColor(QPalette::ToolTipBase, base);
    colors.setColor(QPalette::ToolTipText, text);
    return colors;
}

} // namespace

void setUpAppearance(const QString &appearance)
{
    if (appearance == "dark"_L1) {
        QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
        QApplication::setPalette(
            palette({0x2b, 0x2d, 0x30}, {0x1f, 0x21, 0x23}, {0xe8, 0xe8, 0xe8}, {0x9a, 0x9c, 0xa0}));
    } else if (appearance == "light"_L1) {
        QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
        QApplication::setPalette(
            palette({0xf3, 0xf3, 0xf1}, {0xff, 0xff, 0xff}, {0x1c, 0x1e, 0x20}, {0x6e, 0x72, 0x76}));
    }
}

} // namespace tavrin
