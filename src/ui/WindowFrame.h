// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>
#include <QString>

#include <optional>

namespace tavrin {

/// A window's place as datafiles store it: "x y w h screenX screenY screenW screenH ", the origin at the
/// bottom left of the screen. Qt's origin is at the top left.
QString frameString(const QRect &frame, const QRect &screen);

/// Reads that form, and "{{x, y}, {w, h}}", against the height of the screen at hand. Empty for anything
/// else.
std::optional<QRect> frameFromString(const QString &text, const QRect &screen);

/// The frame shrunk and moved so that it lies on the screen whole.
QRect fittedFrame(QRect frame, const QRect &screen);

} // namespace tavrin
