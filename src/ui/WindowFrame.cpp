// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/WindowFrame.h"

#include <QList>
#include <QRegularExpression>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tavrin {

QString frameString(const QRect &frame, const QRect &screen)
{
    const int bottom = screen.y() + screen.height() - (frame.y() + frame.height());
    return u"%1 %2 %3 %4 %5 %6 %7 %8 "_s.arg(frame.x())
        .arg(bottom)
        .arg(frame.width())
        .arg(frame.height())
        .arg(screen.x())
        .arg(screen.y())
        .arg(screen.width())
        .arg(screen.height());
}

namespace {

/// Empty when these are not the four or eight numbers of a frame.
QList<int> numbersIn(const QString &text)
{
    // Both forms are numbers with something between them.
    static const QRegularExpression between(u"[\\s{},]+"_s);
    const QStringList words = text.split(between, Qt::SkipEmptyParts);
    if (words.size() != 4 && words.size() != 8)
        return {};
    QList<int> numbers;
    for (const QString &word : words) {
        bool isNumber = false;
        const double number = word.toDouble(&isNumber);
        // Larger than any desktop: nonsense that must not overflow.
        if (!isNumber || !(std::abs(number) < 1e6))
            return {};
        numbers.append(qRound(number));
    }
    return numbers;
}

} // namespace

std::optional<QRect> frameFromString(const QString &text, const QRect &screen)
{
    const QList<int> numbers = numbersIn(text);
    if (numbers.isEmpty())
        return {};
    const int width = numbers[2];
    const int height = numbers[3];
    if (width <= 0 || height <= 0)
        return {};
    const int top = screen.y() + screen.height() - (numbers[1] + height);
    return QRect(numbers[0], top, width, height);
}

std::optional<QRect> screenFromString(const QString &text)
{
    const QList<int> numbers = numbersIn(text);
    return numbers.size() == 8 ? std::optional(QRect(numbers[4], numbers[5], numbers[6], numbers[7]))
                               : std::nullopt;
}

QRect fittedFrame(QRect frame, const QRect &screen)
{
    frame.setSize(frame.size().boundedTo(screen.size()));
    frame.moveLeft(std::clamp(frame.x(), screen.x(), screen.x() + screen.width() - frame.width()));
    frame.moveTop(std::clamp(frame.y(), screen.y(), screen.y() + screen.height() - frame.height()));
    return frame;
}

QMargins decorationOf(const QWidget &window)
{
    constexpr QMargins usual(8, 40, 8, 8);
    if (!window.isVisible())
        return usual;
    const QRect inner = window.geometry();
    const QRect outer = window.frameGeometry();
    return {inner.left() - outer.left(),
            inner.top() - outer.top(),
            outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

} // namespace tavrin
