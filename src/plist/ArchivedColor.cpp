// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/KeyedArchive.h"
#include "plist/ScalarText.h"
#include "plist/Writer.h"

#include <QList>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tavrin::plist {

using namespace Qt::StringLiterals;

namespace {

enum ColorSpace {
    CalibratedRgb = 1,
    DeviceRgb = 2,
    CalibratedWhite = 3,
    DeviceWhite = 4,
    Cmyk = 5,
    Named = 6,
};

// A named colour holds the colour it stood for, which may be a named one again.
constexpr int deepestNaming = 8;

// Decimals between blanks; empty when there is anything else. A NUL may end them.
QList<double> components(const Value &value)
{
    QList<double> numbers;
    if (!value.isData())
        return numbers;
    QByteArray text = *value.data();
    while (text.endsWith('\0'))
        text.chop(1);
    text = text.simplified();
    for (const QByteArray &word : text.split(' ')) {
        const std::optional<double> number = parseReal(word);
        if (!number || !std::isfinite(*number))
            return {};
        numbers.append(std::clamp(*number, 0.0, 1.0));
    }
    return numbers;
}

std::optional<ArchivedColor> fromWhite(const QList<double> &numbers)
{
    if (numbers.size() != 1 && numbers.size() != 2)
        return {};
    return ArchivedColor{numbers[0], numbers[0], numbers[0], numbers.value(1, 1.0)};
}

std::optional<ArchivedColor> fromRgb(const QList<double> &numbers)
{
    if (numbers.size() != 3 && numbers.size() != 4)
        return {};
    return ArchivedColor{numbers[0], numbers[1], numbers[2], numbers.value(3, 1.0)};
}

std::optional<ArchivedColor> fromCmyk(const QList<double> &numbers)
{
    if (numbers.size() != 4 && numbers.size() != 5)
        return {};
    const double light = 1 - numbers[3];
    return ArchivedColor{
        (1 - numbers[0]) * light, (1 - numbers[1]) * light, (1 - numbers[2]) * light, numbers.value(4, 1.0)};
}

// What the person picked, when the colour was converted for older readers.
std::optional<ArchivedColor> fromCustomSpace(const KeyedArchive &archive, const Dictionary &object)
{
    if (!object.contains(u"NSCustomColorSpace"_s))
        return {};
    const QList<double> numbers = components(archive.member(object, u"NSComponents"_s));
    if (numbers.size() == 4)
        return fromRgb(numbers);
    return numbers.size() == 2 ? fromWhite(numbers) : std::nullopt;
}

std::optional<ArchivedColor> colorOf(const KeyedArchive &archive, const Value &value, int naming);

std::optional<ArchivedColor> fromName(const KeyedArchive &archive, const Dictionary &object, int naming)
{
    if (naming == deepestNaming)
        return {};
    if (auto color = colorOf(archive, archive.member(object, u"NSColor"_s), naming + 1))
        return color;
    const QString name = archive.member(object, u"NSColorName"_s).toText();
    if (name.contains("background"_L1, Qt::CaseInsensitive))
        return ArchivedColor{1, 1, 1, 1};
    if (name.endsWith("textColor"_L1, Qt::CaseInsensitive))
        return ArchivedColor{0, 0, 0, 1};
    return {};
}

std::optional<ArchivedColor> colorOf(const KeyedArchive &archive, const Value &value, int naming)
{
    const Dictionary *object = value.dictionary();
    if (!object || !archive.isKindOf(*object, u"NSColor"_s))
        return {};
    if (auto custom = fromCustomSpace(archive, *object))
        return custom;
    const Value space = archive.member(*object, u"NSColorSpace"_s);
    switch (space.isInteger() ? space.toInt64() : 0) {
    case CalibratedRgb:
    case DeviceRgb:
        return fromRgb(components(archive.member(*object, u"NSRGB"_s)));
    case CalibratedWhite:
    case DeviceWhite:
        return fromWhite(components(archive.member(*object, u"NSWhite"_s)));
    case Cmyk: {
        const Value inks = archive.member(*object, u"NSCMYK"_s);
        // Some writers misspell the key.
        return fromCmyk(components(inks.isNull() ? archive.member(*object, u"NSCYMK"_s) : inks));
    }
    case Named:
        return fromName(archive, *object, naming);
    default:
        return {};
    }
}

QByteArray partText(double part)
{
    // Adding zero takes the sign from a negative one.
    const double inRange = std::isnan(part) ? 0.0 : std::clamp(part, 0.0, 1.0) + 0.0;
    constexpr int precision = 10;
    std::array<char, 32> digits{};
    const auto [end, error] =
        std::to_chars(digits.begin(), digits.end(), inRange, std::chars_format::general, precision);
    return {digits.data(), end - digits.data()};
}

QByteArray componentText(const ArchivedColor &color)
{
    QByteArray text = partText(color.red) + ' ' + partText(color.green) + ' ' + partText(color.blue);
    const QByteArray alpha = partText(color.alpha);
    if (alpha != "1")
        text += ' ' + alpha;
    return text + '\0';
}

} // namespace

std::optional<ArchivedColor> unarchiveColor(const QByteArray &data)
{
    const std::optional<KeyedArchive> archive = KeyedArchive::open(data);
    return archive ? colorOf(*archive, archive->root(), 0) : std::nullopt;
}

QByteArray archiveColor(const ArchivedColor &color)
{
    const Dictionary object{{u"NSRGB"_s, componentText(color)},
                            {u"NSColorSpace"_s, static_cast<int>(CalibratedRgb)},
                            {u"$class"_s, Uid{2}}};
    const Dictionary description{{u"$classname"_s, u"NSColor"_s},
                                 {u"$classes"_s, Array{u"NSColor"_s, u"NSObject"_s}}};
    return toBinary(Dictionary{{u"$version"_s, 100000},
                               {u"$archiver"_s, u"NSKeyedArchiver"_s},
                               {u"$top"_s, Dictionary{{u"root"_s, Uid{1}}}},
                               {u"$objects"_s, Array{u"$null"_s, object, description}}});
}

} // namespace tavrin::plist
