// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"

#include <QColor>
#include <QFont>

namespace tavrin {

/// Asks for a font.
class FontSheetController : public QVSheetController
{
    Q_OBJECT

public:
    explicit FontSheetController(const QFont &font) : g_font(font) {}

    QFont font() const { return g_font; }
    void setFont(const QFont &font) { g_font = font; }

private:
    QFont g_font;
};

/// Asks for a colour.
class ColorSheetController : public QVSheetController
{
    Q_OBJECT

public:
    explicit ColorSheetController(const QColor &color) : g_color(color) {}

    QColor color() const { return g_color; }
    void setColor(const QColor &color) { g_color = color; }

private:
    QColor g_color;
};

} // namespace tavrin
