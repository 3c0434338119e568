// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/TextFormats.h"

#include <QTextOption>

#include <array>
#include <utility>

namespace tavrin {

using namespace richtext;

namespace {

constexpr double thousandths = 1000;
constexpr Color black{0, 0, 0, 255};
// What a long list of tab stops still has at an even distance.
constexpr int mostEvenTabStops = 64;

template <typename Value>
Value propertyOf(const QTextFormat &format, int property)
{
    return qvariant_cast<Value>(format.property(property));
}

constexpr std::array underlineStyles{
    std::pair{Underline::None, QTextCharFormat::NoUnderline},
    std::pair{Underline::Single, QTextCharFormat::SingleUnderline},
    std::pair{Underline::Double, QTextCharFormat::SingleUnderline},
    std::pair{Underline::Thick, QTextCharFormat::SingleUnderline},
    std::pair{Underline::Words, QTextCharFormat::SingleUnderline},
    std::pair{Underline::Dotted, QTextCharFormat::DotLine},
    std::pair{Underline::Dashed, QTextCharFormat::DashUnderline},
    std::pair{Underline::DashDotted, QTextCharFormat::DashDotLine},
    std::pair{Underline::DashDotDotted, QTextCharFormat::DashDotDotLine},
};

void setLines(QTextCharFormat &format, const CharacterFormat &look)
{
    if (look.underline != Underline::None) {
        format.setUnderlineStyle(underlineStyles[static_cast<size_t>(look.underline)].second);
        if (look.underlineColor)
            format.setUnderlineColor(toQColor(*look.underlineColor));
    }
    if (look.strike != Strike::None)
        format.setFontStrikeOut(true);
}

/// The colour that is read best on another one.
QColor readableOn(const Color &background)
{
    constexpr float middle = 0.45F;
    return toQColor(background).lightnessF() > middle ? Qt::black : Qt::white;
}

void setColors(QTextCharFormat &format, const CharacterFormat &look)
{
    const bool hasColor = look.foreground && *look.foreground != black;
    const bool hasBackground = look.background && look.background->alpha != 0;
    if (hasColor)
        format.setForeground(toQColor(*look.foreground));
    else if (hasBackground)
        format.setForeground(readableOn(*look.background));
    if (hasBackground)
        format.setBackground(toQColor(*look.background));
}

void setPlace(QTextCharFormat &format, const CharacterFormat &look)
{
    if (look.script != Script::Normal)
        format.setVerticalAlignment(look.script == Script::Super ? QTextCharFormat::AlignSuperScript
                                                                 : QTextCharFormat::AlignSubScript);
    if (look.baseline != 0 && look.size > 0)
        format.setBaselineOffset(100.0 * look.baseline / 2 / (look.size / thousandths));
    if (look.kerning) {
        format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
        format.setFontLetterSpacing(pixelsForTwips(*look.kerning));
    }
}

/// Points of a font that is not ours; 0: it says nothing.
double pointSizeOf(const QTextCharFormat &format, double base)
{
    constexpr double pointsPerPixel = 0.75;
    if (format.hasProperty(QTextFormat::FontPointSize))
        return format.fontPointSize();
    if (format.hasProperty(QTextFormat::FontPixelSize))
        return format.intProperty(QTextFormat::FontPixelSize) * pointsPerPixel;
    if (!format.hasProperty(QTextFormat::FontSizeAdjustment))
        return 0;
    static constexpr double factors[] = {0.7, 0.8, 1.0, 1.2, 1.5, 2.0, 2.4};
    return base * factors[qBound(0, format.intProperty(QTextFormat::FontSizeAdjustment) + 2, 6)];
}

void takeFont(CharacterFormat &look, const QTextCharFormat &format)
{
    constexpr int largestSize = 1'000'000;
    const QString family = format.fontFamilies().toStringList().value(0);
    if (!family.isEmpty())
        look.family = family;
    if (const double size = pointSizeOf(format, look.size / thousandths); size > 0)
        look.size = qBound(1, qRound(size * thousandths), largestSize);
    look.bold = format.fontWeight() >= QFont::DemiBold;
    look.italic = format.fontItalic();
    if (format.fontStrikeOut())
        look.strike = Strike::Single;
    for (const auto &[underline, style] : underlineStyles) {
        if (style == format.underlineStyle()) {
            look.underline = underline;
            break;
        }
    }
}

/// Of a format that is not ours.
CharacterFormat foreignLook(const QTextCharFormat &format, const CharacterFormat &base)
{
    CharacterFormat look;
    look.family = base.family;
    look.size = base.size;
    takeFont(look, format);
    if (format.foreground().style() != Qt::NoBrush)
        look.foreground = toColor(format.foreground().color());
    if (format.background().style() != Qt::NoBrush)
        look.background = toColor(format.background().color());
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        look.script = Script::Super;
    else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        look.script = Script::Sub;
    if (!format.anchorHref().isEmpty()) {
        // The view has a colour for links.
        look.link = format.anchorHref();
        look.foreground.reset();
        look.underline = Underline::None;
    }
    return look;
}

QList<QTextOption::Tab> shownTabStops(const ParagraphFormat &paragraph)
{
    // Qt counts from where the first line begins.
    const double start = pixelsForTwips(paragraph.headIndent + paragraph.firstLineIndent);
    static constexpr QTextOption::TabType kinds[] = {
        QTextOption::LeftTab, QTextOption::CenterTab, QTextOption::RightTab, QTextOption::DelimiterTab};
    QList<QTextOption::Tab> tabs;
    qint32 last = 0;
    for (const TabStop &stop : paragraph.tabStops) {
        const double position = pixelsForTwips(stop.position) - start;
        last = qMax(last, stop.position);
        if (position > 0)
            tabs.append(QTextOption::Tab(position,
                                         kinds[static_cast<size_t>(stop.kind)],
                                         stop.kind == TabKind::Decimal ? QLatin1Char('.') : QChar()));
    }
    if (paragraph.tabInterval <= 0)
        return tabs;
    for (int i = 1; i <= mostEvenTabStops; ++i) {
        const double even = (last / paragraph.tabInterval + i) * static_cast<double>(paragraph.tabInterval);
        if (pixelsForTwips(even) > start)
            tabs.append(QTextOption::Tab(pixelsForTwips(even) - start, QTextOption::LeftTab));
    }
    return tabs;
}

void setLineHeight(QTextBlockFormat &format, const ParagraphFormat &paragraph)
{
    constexpr double oneLine = 240;
    if (paragraph.lineMultiple > 0)
        format.setLineHeight(100 * paragraph.lineMultiple / oneLine, QTextBlockFormat::ProportionalHeight);
    else if (paragraph.maximumLineHeight > 0)
        format.setLineHeight(pixelsForTwips(paragraph.maximumLineHeight), QTextBlockFormat::FixedHeight);
    else if (paragraph.minimumLineHeight > 0)
        format.setLineHeight(pixelsForTwips(paragraph.minimumLineHeight), QTextBlockFormat::MinimumHeight);
    else if (paragraph.lineSpacing > 0)
        format.setLineHeight(pixelsForTwips(paragraph.lineSpacing), QTextBlockFormat::LineDistanceHeight);
}

/// Of a format that is not ours.
ParagraphFormat foreignParagraph(const QTextBlockFormat &format)
{
    ParagraphFormat paragraph;
    if (format.hasProperty(QTextFormat::BlockAlignment)) {
        const Qt::Alignment alignment = format.alignment();
        paragraph.alignment = alignment & Qt::AlignRight     ? Alignment::Right
                              : alignment & Qt::AlignHCenter ? Alignment::Center
                              : alignment & Qt::AlignJustify ? Alignment::Justified
                                                             : Alignment::Left;
    }
    if (format.layoutDirection() == Qt::RightToLeft)
        paragraph.direction = Direction::RightToLeft;
    constexpr double pixelsPerLevel = 40;
    paragraph.headIndent = twipsForPixels(format.leftMargin() + format.indent() * pixelsPerLevel);
    paragraph.firstLineIndent = twipsForPixels(format.textIndent());
    paragraph.tailIndent = twipsForPixels(format.rightMargin());
    paragraph.spaceBefore = twipsForPixels(format.topMargin());
    paragraph.spaceAfter = twipsForPixels(format.bottomMargin());
    return paragraph;
}

} // namespace

qint32 twipsForPixels(double pixels)
{
    constexpr double most = 1'000'000;
    return qRound(qBound(-most, pixels * 15, most));
}

QColor toQColor(const Color &color)
{
    return {color.red, color.green, color.blue, color.alpha};
}

Color toColor(const QColor &color)
{
    const QRgb rgb = color.rgba();
    const auto component = [](int value) { return static_cast<quint8>(value); };
    return {component(qRed(rgb)), component(qGreen(rgb)), component(qBlue(rgb)), component(qAlpha(rgb))};
}

QTextCharFormat charFormatFor(const Look &look)
{
    QTextCharFormat format;
    format.setProperty(LookProperty, QVariant::fromValue(look));
    format.setFontFamilies(QStringList{look->family});
    format.setFontPointSize(qMax(1, look->size) / thousandths);
    if (look->bold)
        format.setFontWeight(QFont::Bold);
    if (look->italic)
        format.setFontItalic(true);
    setLines(format, *look);
    setColors(format, *look);
    setPlace(format, *look);
    if (!look->link.isEmpty()) {
        format.setAnchor(true);
        format.setAnchorHref(look->link);
        format.setToolTip(look->link);
    }
    if (look->attachment)
        format.setObjectType(attachmentObject);
    return format;
}

Look lookOf(const QTextCharFormat &format, const CharacterFormat &base)
{
    if (format.hasProperty(LookProperty))
        return propertyOf<Look>(format, LookProperty);
    return Look(foreignLook(format, base));
}

QTextBlockFormat blockFormatFor(const ParagraphLook &paragraph)
{
    QTextBlockFormat format;
    format.setProperty(ParagraphProperty, QVariant::fromValue(paragraph));
    static constexpr Qt::Alignment alignments[] = {{},
                                                   Qt::AlignLeft | Qt::AlignAbsolute,
                                                   Qt::AlignHCenter,
                                                   Qt::AlignRight | Qt::AlignAbsolute,
                                                   Qt::AlignJustify};
    if (paragraph->alignment != Alignment::Natural)
        format.setAlignment(alignments[static_cast<size_t>(paragraph->alignment)]);
    if (paragraph->direction != Direction::Natural)
        format.setLayoutDirection(paragraph->direction == Direction::RightToLeft ? Qt::RightToLeft
                                                                                 : Qt::LeftToRight);
    format.setLeftMargin(qMax(0.0, pixelsForTwips(paragraph->headIndent)));
    format.setTextIndent(pixelsForTwips(paragraph->firstLineIndent));
    format.setRightMargin(qMax(0.0, pixelsForTwips(paragraph->tailIndent)));
    format.setTopMargin(qMax(0.0, pixelsForTwips(paragraph->spaceBefore)));
    format.setBottomMargin(qMax(0.0, pixelsForTwips(paragraph->spaceAfter)));
    setLineHeight(format, *paragraph);
    if (const auto tabs = shownTabStops(*paragraph); !tabs.isEmpty())
        format.setTabPositions(tabs);
    return format;
}

ParagraphLook paragraphLookOf(const QTextBlockFormat &format)
{
    if (format.hasProperty(ParagraphProperty))
        return propertyOf<ParagraphLook>(format, ParagraphProperty);
    if (format.hasProperty(FillerProperty) || format.propertyCount() == 0)
        return {};
    return ParagraphLook(foreignParagraph(format));
}

QTextTableCellFormat cellFormatFor(const CellStyle &style, const Look &look)
{
    QTextTableCellFormat format;
    format.merge(charFormatFor(look));
    format.setProperty(CellProperty, QVariant::fromValue(style));
    static constexpr QTextCharFormat::VerticalAlignment alignments[] = {
        QTextCharFormat::AlignTop, QTextCharFormat::AlignMiddle, QTextCharFormat::AlignBottom};
    format.setVerticalAlignment(alignments[static_cast<size_t>(style.alignment)]);
    format.clearProperty(QTextFormat::BackgroundBrush);
    if (style.background)
        format.setBackground(toQColor(*style.background));
    // The sides in Qt's order of properties: top, bottom, left, right.
    static constexpr std::pair<Side, int> sides[] = {
        {Side::Top, 0}, {Side::Bottom, 1}, {Side::Left, 2}, {Side::Right, 3}};
    for (const auto &[side, number] : sides) {
        const CellSide &border = style.sides[static_cast<size_t>(side)];
        format.setProperty(QTextFormat::TableCellTopPadding + number, pixelsForTwips(border.padding));
        format.setProperty(QTextFormat::TableCellTopBorder + number, pixelsForTwips(border.borderWidth));
        format.setProperty(QTextFormat::TableCellTopBorderStyle + number,
                           static_cast<int>(border.borderWidth > 0 ? QTextFrameFormat::BorderStyle_Solid
                                                                   : QTextFrameFormat::BorderStyle_None));
        if (border.borderColor)
            format.setProperty(QTextFormat::TableCellTopBorderBrush + number,
                               QBrush(toQColor(*border.borderColor)));
    }
    return format;
}

CellStyle cellStyleOf(const QTextCharFormat &format)
{
    if (format.hasProperty(CellProperty))
        return propertyOf<CellStyle>(format, CellProperty);
    // Of a table that is not ours.
    constexpr qint32 thin = 20;
    constexpr qint32 someSpace = 100;
    CellStyle style;
    for (CellSide &side : style.sides)
        side = {thin, someSpace, Color{170, 170, 170}};
    if (format.background().style() != Qt::NoBrush)
        style.background = toColor(format.background().color());
    return style;
}

} // namespace tavrin
