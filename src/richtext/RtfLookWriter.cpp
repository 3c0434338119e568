// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/RtfLookWriter.h"

#include "richtext/RtfEscape.h"

namespace tavrin::richtext {

namespace {

// In the order of Underline.
constexpr const char *underlineWords[] = {
    "\\ulnone", "\\ul", "\\uldb", "\\ulth", "\\ulw", "\\uld", "\\uldash", "\\uldashd", "\\uldashdd"};

void appendFont(QByteArray &rtf, const CharacterFormat &format, const RtfHeader &header)
{
    rtf += '\n';
    appendWord(rtf, "\\f", header.font(format.family));
}

void appendSize(QByteArray &rtf, qint32 size)
{
    constexpr qint32 halfPoint = 500;
    appendWord(rtf, "\\fs", size / halfPoint);
    if (size % halfPoint != 0)
        appendWord(rtf, "\\fsmilli", size);
}

void appendStrike(QByteArray &rtf, Strike strike)
{
    if (strike == Strike::None)
        rtf += "\\strike0\\striked0";
    else
        rtf += strike == Strike::Double ? "\\striked1" : "\\strike";
}

void appendScript(QByteArray &rtf, Script script)
{
    if (script == Script::Normal)
        rtf += "\\nosupersub";
    else
        rtf += script == Script::Super ? "\\super" : "\\sub";
}

void appendBaseline(QByteArray &rtf, qint32 baseline)
{
    appendWord(rtf, baseline < 0 ? "\\dn" : "\\up", std::abs(baseline));
}

void appendKerning(QByteArray &rtf, std::optional<qint32> kerning)
{
    const qint32 twips = kerning.value_or(0);
    rtf += kerning && twips == 0 ? "\\kerning0" : "\\kerning1";
    appendWord(rtf, "\\expnd", twips / 5);
    appendWord(rtf, "\\expndtw", twips);
}

} // namespace

QByteArray lookChange(const std::optional<CharacterFormat> &before,
                      const CharacterFormat &after,
                      const RtfHeader &header)
{
    const CharacterFormat plain;
    const CharacterFormat &old = before ? *before : plain;
    QByteArray rtf;
    if (!before || old.family != after.family)
        appendFont(rtf, after, header);
    if (!before || old.size != after.size)
        appendSize(rtf, after.size);
    if (old.bold != after.bold)
        rtf += after.bold ? "\\b" : "\\b0";
    if (old.italic != after.italic)
        rtf += after.italic ? "\\i" : "\\i0";
    if (!before || old.foreground != after.foreground)
        appendWord(rtf, "\\cf", header.color(after.foreground));
    if (old.background != after.background)
        appendWord(rtf, "\\cb", after.background ? header.color(after.background) : 1);
    if (old.underline != after.underline)
        rtf += underlineWords[static_cast<size_t>(after.underline)];
    if (old.underlineColor != after.underlineColor)
        appendWord(rtf, "\\ulc", header.color(after.underlineColor));
    if (old.strike != after.strike)
        appendStrike(rtf, after.strike);
    if (old.strikeColor != after.strikeColor)
        appendWord(rtf, "\\strikec", header.color(after.strikeColor));
    if (old.script != after.script)
        appendScript(rtf, after.script);
    if (old.baseline != after.baseline)
        appendBaseline(rtf, after.baseline);
    if (old.kerning != after.kerning)
        appendKerning(rtf, after.kerning);
    if (old.ligatures != after.ligatures)
        appendWord(rtf, "\\CocoaLigature", static_cast<qint32>(after.ligatures));
    if (!rtf.isEmpty())
        rtf += ' ';
    return rtf;
}

} // namespace tavrin::richtext
