// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/WindowFrame.h"

#include <QList>
#include <QRegularExpression>

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

std::optional<QRect> frameFromString(const QString &text, const QRect &screen)
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
    const int width = numbers[2];
    const int height = numbers[3];
    if (width <= 0 || height <= 0)
        return {};
    const int top = screen.y() + screen.height() - (numbers[1] + height);
    return QRect(numbers[0], top, width, height);
}

QRect fittedFrame(QRect frame, const QRect &screen)
{
    frame.setSize(frame.size().boundedTo(screen.size()));
    frame.moveLeft(std::clamp(frame.x(), screen.x(), screen.x() + screen.width() - frame.width()));
    frame.moveTop(std::clamp(frame.y(), screen.y(), screen.y() + screen.height() - frame.height()));
    return frame;
}

} // namespace tavrin
