// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>

namespace tavrin::richtext {

/// What a control word is about; its `value` in RtfWord is one of the enumerations below, or a number.
enum class RtfWordKind : quint8 {
    Character, ///< Stands for the character `value`.
    Group,     ///< Says what its group is for: RtfGroupPurpose.
    Text,      ///< RtfTextWord.
    Look,      ///< RtfLookWord.
    Paragraph, ///< RtfParagraphWord.
    Cell,      ///< RtfCellWord.
    Table,     ///< RtfTableWord: of fonts, colours and lists.
    Picture,   ///< RtfPictureWord.
};

/// What the text of a group is.
enum class RtfGroupPurpose : quint8 {
    Body,
    Skipped,
    Fonts,
    Colors,
    ExpandedColors,
    Lists,
    ListLevel,
    ListMarker,
    ListOverrides,
    Field,
    FieldInstruction,
    FieldResult,
    Graphic,
    Picture,
    Alternatives, ///< Two forms of the same text, of which the second is in Unicode.
    UnicodeAlternative,
};

enum class RtfTextWord : quint8 {
    Root,
    UnicodeUnit,
    UnicodeSkip,
    Ansi,
    Mac,
    Pc,
    Pca,
    CodePage,
    DefaultFont,
    DefaultTab,
    Paragraph,
    Cell,
    NestedCell,
    Row,
    LastRow,
};

enum class RtfLookWord : quint8 {
    Plain,
    Font,
    Size,
    MilliSize,
    Bold,
    Italic,
    Underline, ///< \ul0 ends it, as it does for the next kinds.
    UnderlineDouble,
    UnderlineThick,
    UnderlineWords,
    UnderlineDotted,
    UnderlineDashed,
    UnderlineDashDotted,
    UnderlineDashDotDotted,
    UnderlineNone,
    UnderlineStyle,
    UnderlineColor,
    Strike,
    StrikeDouble,
    StrikeStyle,
    StrikeColor,
    Foreground,
    Background,
    Highlight,
    Super,
    Sub,
    NoSuperSub,
    Up,
    Down,
    Kerning,
    ExpandQuarterPoints,
    ExpandTwips,
    Ligature,
};

enum class RtfParagraphWord : quint8 {
    Default,
    AlignLeft,
    AlignCenter,
    AlignRight,
    AlignJustified,
    AlignNatural,
    DirectionNatural,
    LeftToRight,
    RightToLeft,
    HeadIndent,
    FirstLineIndent,
    TailIndent,
    SpaceBefore,
    SpaceAfter,
    LineHeight,
    LineIsMultiple,
    MinimumLineHeight,
    MaximumLineHeight,
    LineSpacing,
    TabInterval,
    Tab,
    TabCenter,
    TabRight,
    TabDecimal,
    List,
    ListLevel,
    InTable,
    TableDepth,
};

enum class RtfCellWord : quint8 {
    RowDefinition,
    RowLeft,
    RightEdge,
    MergeFirst,
    Merged,
    MergeFirstDown,
    MergedDown,
    Top,
    Center,
    Bottom,
    Background,
    BorderTop, ///< The sides in the order of Side.
    BorderLeft,
    BorderBottom,
    BorderRight,
    PaddingTop,
    PaddingLeft,
    PaddingBottom,
    PaddingRight,
    OtherBorder, ///< Of a row or paragraph: none of ours.
    NoBorder,
    SingleBorder,
    BorderWidth,
    BorderColor,
};

enum class RtfTableWord : quint8 {
    FontCharset,
    FontCodePage,
    Red,
    Green,
    Blue,
    Component, ///< \c of the expanded colours.
    ColorName,
    SystemColorSpace,
    GrayColorSpace,
    List,
    ListOverride,
    ListIdentifier,
    NumberKind,
    StartAt,
};

enum class RtfPictureWord : quint8 {
    Png,
    Jpeg,
    Metafile,
    EnhancedMetafile,
    MacPicture,
    Bitmap,
    Width, ///< As shown, in twips; GoalWidth is before scaling.
    Height,
    GoalWidth,
    GoalHeight,
    ScaleX,
    ScaleY,
};

struct RtfWord
{
    QByteArrayView name;
    RtfWordKind kind = RtfWordKind::Text;
    quint16 value = 0;
};

/// Null for a word that is not ours.
const RtfWord *rtfWord(QByteArrayView name);

} // namespace tavrin::richtext
