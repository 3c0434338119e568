// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfWords.h"

#include <array>
#include <iterator>

namespace tavrin::richtext {

namespace {

constexpr RtfWord character(QByteArrayView name, char16_t code)
{
    return {name, RtfWordKind::Character, code};
}

constexpr RtfWordKind kindOf(RtfGroupPurpose)
{
    return RtfWordKind::Group;
}
constexpr RtfWordKind kindOf(RtfTextWord)
{
    return RtfWordKind::Text;
}
constexpr RtfWordKind kindOf(RtfLookWord)
{
    return RtfWordKind::Look;
}
constexpr RtfWordKind kindOf(RtfParagraphWord)
{
    return RtfWordKind::Paragraph;
}
constexpr RtfWordKind kindOf(RtfCellWord)
{
    return RtfWordKind::Cell;
}
constexpr RtfWordKind kindOf(RtfTableWord)
{
    return RtfWordKind::Table;
}
constexpr RtfWordKind kindOf(RtfPictureWord)
{
    return RtfWordKind::Picture;
}

template <typename Value>
constexpr RtfWord word(QByteArrayView name, Value value)
{
    return {name, kindOf(value), static_cast<quint16>(value)};
}

constexpr RtfWord words[] = {
    character("line", 0x2028),
    character("lbr", 0x2028),
    character("softline", 0x2028),
    character("page", 0x000C),
    character("tab", 0x0009),
    character("emdash", 0x2014),
    character("endash", 0x2013),
    character("emspace", 0x2003),
    character("enspace", 0x2002),
    character("qmspace", 0x2005),
    character("bullet", 0x2022),
    character("lquote", 0x2018),
    character("rquote", 0x2019),
    character("ldblquote", 0x201C),
    character("rdblquote", 0x201D),
    character("zwj", 0x200D),
    character("zwnj", 0x200C),
    character("zwbo", 0x200B),
    character("zwnbo", 0x2060),
    character("ltrmark", 0x200E),
    character("rtlmark", 0x200F),
    character("column", 0x000C),
    word("stylesheet", RtfGroupPurpose::Skipped),
    word("info", RtfGroupPurpose::Skipped),
    word("generator", RtfGroupPurpose::Skipped),
    word("themedata", RtfGroupPurpose::Skipped),
    word("colorschememapping", RtfGroupPurpose::Skipped),
    word("latentstyles", RtfGroupPurpose::Skipped),
    word("datastore", RtfGroupPurpose::Skipped),
    word("header", RtfGroupPurpose::Skipped),
    word("headerl", RtfGroupPurpose::Skipped),
    word("headerr", RtfGroupPurpose::Skipped),
    word("headerf", RtfGroupPurpose::Skipped),
    word("footer", RtfGroupPurpose::Skipped),
    word("footerl", RtfGroupPurpose::Skipped),
    word("footerr", RtfGroupPurpose::Skipped),
    word("footerf", RtfGroupPurpose::Skipped),
    word("footnote", RtfGroupPurpose::Skipped),
    word("annotation", RtfGroupPurpose::Skipped),
    word("ftnsep", RtfGroupPurpose::Skipped),
    word("ftnsepc", RtfGroupPurpose::Skipped),
    word("ftncn", RtfGroupPurpose::Skipped),
    word("aftnsep", RtfGroupPurpose::Skipped),
    word("aftnsepc", RtfGroupPurpose::Skipped),
    word("aftncn", RtfGroupPurpose::Skipped),
    word("nonshppict", RtfGroupPurpose::Skipped),
    word("nonesttables", RtfGroupPurpose::Skipped),
    word("NeXTHelpLink", RtfGroupPurpose::Skipped),
    word("NeXTHelpMarker", RtfGroupPurpose::Skipped),
    word("revtbl", RtfGroupPurpose::Skipped),
    word("rsidtbl", RtfGroupPurpose::Skipped),
    word("filetbl", RtfGroupPurpose::Skipped),
    word("xmlnstbl", RtfGroupPurpose::Skipped),
    word("listpicture", RtfGroupPurpose::Skipped),
    word("pgptbl", RtfGroupPurpose::Skipped),
    word("bkmkstart", RtfGroupPurpose::Skipped),
    word("bkmkend", RtfGroupPurpose::Skipped),
    word("xe", RtfGroupPurpose::Skipped),
    word("tc", RtfGroupPurpose::Skipped),
    word("tcn", RtfGroupPurpose::Skipped),
    word("rxe", RtfGroupPurpose::Skipped),
    word("txe", RtfGroupPurpose::Skipped),
    word("falt", RtfGroupPurpose::Skipped),
    word("panose", RtfGroupPurpose::Skipped),
    word("fontemb", RtfGroupPurpose::Skipped),
    word("fname", RtfGroupPurpose::Skipped),
    word("listname", RtfGroupPurpose::Skipped),
    word("leveltext", RtfGroupPurpose::Skipped),
    word("levelnumbers", RtfGroupPurpose::Skipped),
    word("pntxta", RtfGroupPurpose::Skipped),
    word("pntxtb", RtfGroupPurpose::Skipped),
    word("private", RtfGroupPurpose::Skipped),
    word("template", RtfGroupPurpose::Skipped),
    word("title", RtfGroupPurpose::Skipped),
    word("objdata", RtfGroupPurpose::Skipped),
    word("objclass", RtfGroupPurpose::Skipped),
    word("objname", RtfGroupPurpose::Skipped),
    word("datafield", RtfGroupPurpose::Skipped),
    word("formfield", RtfGroupPurpose::Skipped),
    word("picprop", RtfGroupPurpose::Skipped),
    word("blipuid", RtfGroupPurpose::Skipped),
    word("fldtype", RtfGroupPurpose::Skipped),
    word("userprops", RtfGroupPurpose::Skipped),
    word("keycode", RtfGroupPurpose::Skipped),
    word("background", RtfGroupPurpose::Skipped),
    word("wgrffmtfilter", RtfGroupPurpose::Skipped),
    word("mmathPr", RtfGroupPurpose::Skipped),
    word("docvar", RtfGroupPurpose::Skipped),
    word("levelprefix", RtfGroupPurpose::Skipped),
    word("liststylename", RtfGroupPurpose::Skipped),
    word("passwordhash", RtfGroupPurpose::Skipped),
    word("pnseclvl", RtfGroupPurpose::Skipped),
    word("atnid", RtfGroupPurpose::Skipped),
    word("atnauthor", RtfGroupPurpose::Skipped),
    word("atntime", RtfGroupPurpose::Skipped),
    word("atndate", RtfGroupPurpose::Skipped),
    word("atnref", RtfGroupPurpose::Skipped),
    word("atrfstart", RtfGroupPurpose::Skipped),
    word("atrfend", RtfGroupPurpose::Skipped),
    word("atnicn", RtfGroupPurpose::Skipped),
    word("atnparent", RtfGroupPurpose::Skipped),
    word("fonttbl", RtfGroupPurpose::Fonts),
    word("colortbl", RtfGroupPurpose::Colors),
    word("expandedcolortbl", RtfGroupPurpose::ExpandedColors),
    word("listtable", RtfGroupPurpose::Lists),
    word("listlevel", RtfGroupPurpose::ListLevel),
    word("levelmarker", RtfGroupPurpose::ListMarker),
    word("listoverridetable", RtfGroupPurpose::ListOverrides),
    word("field", RtfGroupPurpose::Field),
    word("fldinst", RtfGroupPurpose::FieldInstruction),
    word("fldrslt", RtfGroupPurpose::FieldResult),
    word("NeXTGraphic", RtfGroupPurpose::Graphic),
    word("pict", RtfGroupPurpose::Picture),
    word("shppict", RtfGroupPurpose::Body),
    word("shp", RtfGroupPurpose::Body),
    word("shpinst", RtfGroupPurpose::Body),
    word("shptxt", RtfGroupPurpose::Body),
    word("shprslt", RtfGroupPurpose::Skipped),
    word("sp", RtfGroupPurpose::Skipped),
    word("listtext", RtfGroupPurpose::Body),
    word("pntext", RtfGroupPurpose::Body),
    word("do", RtfGroupPurpose::Body),
    word("dptxbx", RtfGroupPurpose::Body),
    word("dptxbxtext", RtfGroupPurpose::Body),
    word("object", RtfGroupPurpose::Body),
    word("result", RtfGroupPurpose::Body),
    word("upr", RtfGroupPurpose::Alternatives),
    word("ud", RtfGroupPurpose::UnicodeAlternative),
    word("rtf", RtfTextWord::Root),
    word("u", RtfTextWord::UnicodeUnit),
    word("uc", RtfTextWord::UnicodeSkip),
    word("ansi", RtfTextWord::Ansi),
    word("mac", RtfTextWord::Mac),
    word("pc", RtfTextWord::Pc),
    word("pca", RtfTextWord::Pca),
    word("ansicpg", RtfTextWord::CodePage),
    word("deff", RtfTextWord::DefaultFont),
    word("deftab", RtfTextWord::DefaultTab),
    word("par", RtfTextWord::Paragraph),
    word("sect", RtfTextWord::Paragraph),
    word("cell", RtfTextWord::Cell),
    word("nestcell", RtfTextWord::NestedCell),
    word("row", RtfTextWord::Row),
    word("lastrow", RtfTextWord::LastRow),
    word("plain", RtfLookWord::Plain),
    word("f", RtfLookWord::Font),
    word("fs", RtfLookWord::Size),
    word("fsmilli", RtfLookWord::MilliSize),
    word("b", RtfLookWord::Bold),
    word("i", RtfLookWord::Italic),
    word("ul", RtfLookWord::Underline),
    word("uldb", RtfLookWord::UnderlineDouble),
    word("ulth", RtfLookWord::UnderlineThick),
    word("ulw", RtfLookWord::UnderlineWords),
    word("uld", RtfLookWord::UnderlineDotted),
    word("uldash", RtfLookWord::UnderlineDashed),
    word("ulldash", RtfLookWord::UnderlineDashed),
    word("ulthdash", RtfLookWord::UnderlineDashed),
    word("ulthldash", RtfLookWord::UnderlineDashed),
    word("uldashd", RtfLookWord::UnderlineDashDotted),
    word("ulthdashd", RtfLookWord::UnderlineDashDotted),
    word("uldashdd", RtfLookWord::UnderlineDashDotDotted),
    word("ulthdashdd", RtfLookWord::UnderlineDashDotDotted),
    word("ulwave", RtfLookWord::Underline),
    word("ulhwave", RtfLookWord::Underline),
    word("ululdbwave", RtfLookWord::UnderlineDouble),
    word("ulthd", RtfLookWord::UnderlineDotted),
    word("ulnone", RtfLookWord::UnderlineNone),
    word("ulstyle", RtfLookWord::UnderlineStyle),
    word("ulc", RtfLookWord::UnderlineColor),
    word("strike", RtfLookWord::Strike),
    word("striked", RtfLookWord::StrikeDouble),
    word("strikestyle", RtfLookWord::StrikeStyle),
    word("strikec", RtfLookWord::StrikeColor),
    word("cf", RtfLookWord::Foreground),
    word("cb", RtfLookWord::Background),
    word("chcbpat", RtfLookWord::Background),
    word("highlight", RtfLookWord::Highlight),
    word("super", RtfLookWord::Super),
    word("sub", RtfLookWord::Sub),
    word("nosupersub", RtfLookWord::NoSuperSub),
    word("up", RtfLookWord::Up),
    word("dn", RtfLookWord::Down),
    word("kerning", RtfLookWord::Kerning),
    word("expnd", RtfLookWord::ExpandQuarterPoints),
    word("expndtw", RtfLookWord::ExpandTwips),
    word("CocoaLigature", RtfLookWord::Ligature),
    word("pard", RtfParagraphWord::Default),
    word("ql", RtfParagraphWord::AlignLeft),
    word("qc", RtfParagraphWord::AlignCenter),
    word("qr", RtfParagraphWord::AlignRight),
    word("qj", RtfParagraphWord::AlignJustified),
    word("qd", RtfParagraphWord::AlignJustified),
    word("qnatural", RtfParagraphWord::AlignNatural),
    word("pardirnatural", RtfParagraphWord::DirectionNatural),
    word("ltrpar", RtfParagraphWord::LeftToRight),
    word("rtlpar", RtfParagraphWord::RightToLeft),
    word("li", RtfParagraphWord::HeadIndent),
    word("lin", RtfParagraphWord::HeadIndent),
    word("fi", RtfParagraphWord::FirstLineIndent),
    word("ri", RtfParagraphWord::TailIndent),
    word("rin", RtfParagraphWord::TailIndent),
    word("sb", RtfParagraphWord::SpaceBefore),
    word("sa", RtfParagraphWord::SpaceAfter),
    word("sl", RtfParagraphWord::LineHeight),
    word("slmult", RtfParagraphWord::LineIsMultiple),
    word("slminimum", RtfParagraphWord::MinimumLineHeight),
    word("slmaximum", RtfParagraphWord::MaximumLineHeight),
    word("slleading", RtfParagraphWord::LineSpacing),
    word("pardeftab", RtfParagraphWord::TabInterval),
    word("tx", RtfParagraphWord::Tab),
    word("tqc", RtfParagraphWord::TabCenter),
    word("tqr", RtfParagraphWord::TabRight),
    word("tqdec", RtfParagraphWord::TabDecimal),
    word("ls", RtfParagraphWord::List),
    word("ilvl", RtfParagraphWord::ListLevel),
    word("intbl", RtfParagraphWord::InTable),
    word("itap", RtfParagraphWord::TableDepth),
    word("trowd", RtfCellWord::RowDefinition),
    word("trleft", RtfCellWord::RowLeft),
    word("cellx", RtfCellWord::RightEdge),
    word("clmgf", RtfCellWord::MergeFirst),
    word("clmrg", RtfCellWord::Merged),
    word("clvmgf", RtfCellWord::MergeFirstDown),
    word("clvmrg", RtfCellWord::MergedDown),
    word("clvertalt", RtfCellWord::Top),
    word("clvertalc", RtfCellWord::Center),
    word("clvertalb", RtfCellWord::Bottom),
    word("clcbpat", RtfCellWord::Background),
    word("clbrdrt", RtfCellWord::BorderTop),
    word("clbrdrl", RtfCellWord::BorderLeft),
    word("clbrdrb", RtfCellWord::BorderBottom),
    word("clbrdrr", RtfCellWord::BorderRight),
    word("clpadt", RtfCellWord::PaddingTop),
    word("clpadl", RtfCellWord::PaddingLeft),
    word("clpadb", RtfCellWord::PaddingBottom),
    word("clpadr", RtfCellWord::PaddingRight),
    word("trbrdrt", RtfCellWord::OtherBorder),
    word("trbrdrl", RtfCellWord::OtherBorder),
    word("trbrdrb", RtfCellWord::OtherBorder),
    word("trbrdrr", RtfCellWord::OtherBorder),
    word("trbrdrh", RtfCellWord::OtherBorder),
    word("trbrdrv", RtfCellWord::OtherBorder),
    word("brdrt", RtfCellWord::OtherBorder),
    word("brdrl", RtfCellWord::OtherBorder),
    word("brdrb", RtfCellWord::OtherBorder),
    word("brdrr", RtfCellWord::OtherBorder),
    word("brdrbtw", RtfCellWord::OtherBorder),
    word("brdrbar", RtfCellWord::OtherBorder),
    word("box", RtfCellWord::OtherBorder),
    word("chbrdr", RtfCellWord::OtherBorder),
    word("brdrnil", RtfCellWord::NoBorder),
    word("brdrnone", RtfCellWord::NoBorder),
    word("brdrs", RtfCellWord::SingleBorder),
    word("brdrth", RtfCellWord::SingleBorder),
    word("brdrdb", RtfCellWord::SingleBorder),
    word("brdrdot", RtfCellWord::SingleBorder),
    word("brdrdash", RtfCellWord::SingleBorder),
    word("brdrhair", RtfCellWord::SingleBorder),
    word("brdrw", RtfCellWord::BorderWidth),
    word("brdrcf", RtfCellWord::BorderColor),
    word("fcharset", RtfTableWord::FontCharset),
    word("cpg", RtfTableWord::FontCodePage),
    word("red", RtfTableWord::Red),
    word("green", RtfTableWord::Green),
    word("blue", RtfTableWord::Blue),
    word("c", RtfTableWord::Component),
    word("cname", RtfTableWord::ColorName),
    word("csgray", RtfTableWord::GrayColorSpace),
    word("list", RtfTableWord::List),
    word("listoverride", RtfTableWord::ListOverride),
    word("listid", RtfTableWord::ListIdentifier),
    word("levelnfc", RtfTableWord::NumberKind),
    word("levelnfcn", RtfTableWord::NumberKind),
    word("levelstartat", RtfTableWord::StartAt),
    word("pngblip", RtfPictureWord::Png),
    word("jpegblip", RtfPictureWord::Jpeg),
    word("wmetafile", RtfPictureWord::Metafile),
    word("emfblip", RtfPictureWord::EnhancedMetafile),
    word("macpict", RtfPictureWord::MacPicture),
    word("dibitmap", RtfPictureWord::Bitmap),
    word("wbitmap", RtfPictureWord::Bitmap),
    word("width", RtfPictureWord::Width),
    word("height", RtfPictureWord::Height),
    word("picwgoal", RtfPictureWord::GoalWidth),
    word("pichgoal", RtfPictureWord::GoalHeight),
    word("picscalex", RtfPictureWord::ScaleX),
    word("picscaley", RtfPictureWord::ScaleY),
};

constexpr quint32 slotCount = 1024;

constexpr quint32 slotOf(QByteArrayView name)
{
    quint32 hash = 0;
    for (const char letter : name)
        hash = hash * 31 + static_cast<uchar>(letter);
    return (hash ^ hash >> 10) % slotCount;
}

/// For each slot the number of its word, from 1; a word whose slot is taken has the next free one.
constexpr std::array<quint16, slotCount> wordsBySlot = [] {
    std::array<quint16, slotCount> filled{};
    for (quint16 i = 0; i < std::size(words); ++i) {
        quint32 slot = slotOf(words[i].name);
        while (filled[slot] != 0)
            slot = (slot + 1) % slotCount;
        filled[slot] = static_cast<quint16>(i + 1);
    }
    return filled;
}();

} // namespace

const RtfWord *rtfWord(QByteArrayView name)
{
    for (quint32 slot = slotOf(name); wordsBySlot[slot] != 0; slot = (slot + 1) % slotCount) {
        const RtfWord &word = words[wordsBySlot[slot] - 1U];
        if (word.name == name)
            return &word;
    }
    return nullptr;
}

} // namespace tavrin::richtext
