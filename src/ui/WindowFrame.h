// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMargins>
#include <QRect>
#include <QString>

#include <optional>

class QWidget;

namespace tavrin {

/// A window's place as datafiles store it: "x y w h screenX screenY screenW screenH ", the origin at the
/// bottom left of the screen. Qt's origin is at the top left.
QString frameString(const QRect &frame, const QRect &screen);

/// Reads that form, and "{{x, y}, {w, h}}", against the height of the screen at hand. Empty for anything
/// else.
std::optional<QRect> frameFromString(const QString &text, const QRect &screen);

/// The screen on which that frame lay, if it says so.
std::optional<QRect> screenFromString(const QString &text);

/// The frame shrunk and moved so that it lies on the screen whole.
QRect fittedFrame(QRect frame, const QRect &screen);

/// What the desktop puts around a window: of one that is not shown yet, what it may be.
QMargins decorationOf(const QWidget &window);

} // namespace tavrin
