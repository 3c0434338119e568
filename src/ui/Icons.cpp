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

/// Draws an SVG whose lines are black in the colour that text has at the moment of drawing.
class DrawingEngine : public QIconEngine
{
public:
    explicit DrawingEngine(QByteArray drawing) : g_drawing(std::move(drawing)) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const QPalette palette = QGuiApplication::palette();
        const QPalette::ColorGroup group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor color =
            palette.color(group, mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText);
        QByteArray colored = g_drawing;
        colored.replace("#000000", color.name().toLatin1());
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

    QIconEngine *clone() const override { return new DrawingEngine(g_drawing); }

private:
    QByteArray g_drawing;
};

} // namespace

QIcon imageNamed(const QString &name)
{
    QFile file(u":/icons/%1.svg"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new DrawingEngine(file.readAll()));
}

} // namespace tavrin
