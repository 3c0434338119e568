// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/ListMarker.h"

#include <array>

namespace tavrin::richtext {

using namespace Qt::StringLiterals;

namespace {

enum class Kind : quint8 { Bullet, Decimal, LeadingZero, Roman, Letters };

constexpr int bulletKind = 23;

struct MarkerName
{
    QStringView name;
    Kind kind = Kind::Bullet;
    bool isUpper = false;
    char16_t bullet = 0;
    int numberKind = bulletKind;
};

constexpr std::array markerNames{
    MarkerName{u"{disc}", Kind::Bullet, false, u'\u2022', bulletKind},
    MarkerName{u"{circle}", Kind::Bullet, false, u'\u25E6', bulletKind},
    MarkerName{u"{square}", Kind::Bullet, false, u'\u25AA', bulletKind},
    MarkerName{u"{box}", Kind::Bullet, false, u'\u25A1', bulletKind},
    MarkerName{u"{diamond}", Kind::Bullet, false, u'\u25C6', bulletKind},
    MarkerName{u"{hyphen}", Kind::Bullet, false, u'\u2043', bulletKind},
    MarkerName{u"{check}", Kind::Bullet, false, u'\u2713', bulletKind},
    MarkerName{u"{decimal}", Kind::Decimal, false, 0, 0},
    MarkerName{u"{upper-roman}", Kind::Roman, true, 0, 1},
    MarkerName{u"{lower-roman}", Kind::Roman, false, 0, 2},
    MarkerName{u"{upper-alpha}", Kind::Letters, true, 0, 3},
    MarkerName{u"{upper-latin}", Kind::Letters, true, 0, 3},
    MarkerName{u"{lower-alpha}", Kind::Letters, false, 0, 4},
    MarkerName{u"{lower-latin}", Kind::Letters, false, 0, 4},
    MarkerName{u"{decimal-leading-zero}", Kind::LeadingZero, false, 0, 22},
};

const MarkerName *nameIn(const QString &marker)
{
    for (const MarkerName &name : markerNames) {
        if (marker.contains(name.name))
            return &name;
    }
    return nullptr;
}

QString roman(qint32 number)
{
    static constexpr struct
    {
        int value = 0;
        QLatin1StringView digits;
    } signs[] = {{1000, "M"_L1},
                 {900, "CM"_L1},
                 {500, "D"_L1},
                 {400, "CD"_L1},
                 {100, "C"_L1},
                 {90, "XC"_L1},
                 {50, "L"_L1},
                 {40, "XL"_L1},
                 {10, "X"_L1},
                 {9, "IX"_L1},
                 {5, "V"_L1},
                 {4, "IV"_L1},
                 {1, "I"_L1}};
    QString text;
    for (const auto &sign : signs) {
        for (; number >= sign.value; number -= sign.value)
            text += sign.digits;
    }
    return text;
}

/// a, b, ..., z, aa, ab.
QString letters(qint32 number)
{
    QString text;
    for (; number > 0; number = (number - 1) / 26)
        text.prepend(QChar(u'A' + (number - 1) % 26));
    return text;
}

QString numberText(const MarkerName &name, qint32 number)
{
    constexpr qint32 largestRoman = 3999;
    QString text = QString::number(number);
    if (name.kind == Kind::LeadingZero)
        text = text.rightJustified(2, u'0');
    else if (name.kind == Kind::Roman && number > 0 && number <= largestRoman)
        text = roman(number);
    else if (name.kind == Kind::Letters && number > 0)
        text = letters(number);
    return name.isUpper ? text : text.toLower();
}

} // namespace

QString markerText(const QString &marker, qint32 number)
{
    const MarkerName *name = nameIn(marker);
    if (!name)
        return marker;
    const QString item =
        name->kind == Kind::Bullet ? QString(QChar(name->bullet)) : numberText(*name, number);
    QString text = marker;
    return text.replace(marker.indexOf(name->name), name->name.size(), item);
}

int numberKindOf(const QString &marker)
{
    const MarkerName *name = nameIn(marker);
    return name ? name->numberKind : bulletKind;
}

QString markerOfNumberKind(int kind)
{
    for (const MarkerName &name : markerNames) {
        if (name.numberKind == kind)
            return kind == bulletKind ? name.name.toString() : name.name.toString() + u'.';
    }
    return u"{disc}"_s;
}

} // namespace tavrin::richtext
