// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace tavrin {

namespace {

constexpr auto drawnLine = "#000000";
constexpr auto drawnAccent = "#2f7f7a";

/// The accent as it is seen well on that ground.
QColor accentOn(const QColor &ground)
{
    return ground.lightnessF() < 0.5F ? QColor(0x62, 0xc4, 0xbb) : QColor(0x22, 0x76, 0x70);
}

/// Draws an SVG whose lines are black in the colour that text has at the moment of drawing, and its accents
/// in one that suits the ground.
class DrawingEngine : public QIconEngine
{
public:
    DrawingEngine(QByteArray drawing, bool monochrome)
        : g_drawing(std::move(drawing))
        , g_monochrome(monochrome)
    {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const QPalette palette = QGuiApplication::palette();
        const QPalette::ColorGroup group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor color =
            palette.color(group, mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText);
        QByteArray colored = g_drawing;
        const bool plain = g_monochrome || mode == QIcon::Disabled || mode == QIcon::Selected;
        const QColor accent = plain ? color : accentOn(palette.color(QPalette::Window));
        colored.replace(drawnLine, color.name().toLatin1());
        colored.replace(drawnAccent, accent.name().toLatin1());
        QSvgRenderer(colored).render(painter, rect);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap image(size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return image;
    }

    QIconEngine *clone() const override { return new DrawingEngine(g_drawing, g_monochrome); }

private:
    QByteArray g_drawing;
    bool g_monochrome;
};

} // namespace

QIcon imageNamed(const QString &name)
{
    // The two forms are one drawing.
    const bool monochrome = name.startsWith("TB_M_"_L1);
    const QString drawing = monochrome ? u"TB_C_"_s + name.sliced(5) : name;
    QFile file(u":/icons/%1.svg"_s.arg(drawing));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new DrawingEngine(file.readAll(), monochrome));
}

} // namespace tavrin
