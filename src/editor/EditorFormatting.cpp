// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorFormatting.h"

#include "editor/EditorFreeformText.h"
#include "editor/EditorWindowController.h"
#include "editor/LookSheetControllers.h"
#include "editor/TextLists.h"
#include "editor/TextSheetController.h"

#include <QFont>
#include <QTextCursor>

namespace tavrin {

using namespace richtext;
using namespace Qt::StringLiterals;

namespace {

constexpr qint32 thousandths = 1000;
constexpr qint32 smallestSize = thousandths;
constexpr qint32 largestSize = 1000 * thousandths;
constexpr double twipsPerPoint = 20;
constexpr double oneLine = 240;

using LookTest = bool (*)(const CharacterFormat &look);
using ParagraphTest = bool (*)(const ParagraphFormat &paragraph);

struct LookState
{
    QLatin1StringView selector;
    LookTest isSo;
};

constexpr LookState lookStates[] = {
    {"addFontTrait:bold"_L1, [](const CharacterFormat &look) { return look.bold; }},
    {"addFontTrait:italic"_L1, [](const CharacterFormat &look) { return look.italic; }},
    {"underline:"_L1, [](const CharacterFormat &look) { return look.underline != Underline::None; }},
    {"strikethrough:"_L1, [](const CharacterFormat &look) { return look.strike != Strike::None; }},
    {"superscript:"_L1, [](const CharacterFormat &look) { return look.script == Script::Super; }},
    {"subscript:"_L1, [](const CharacterFormat &look) { return look.script == Script::Sub; }},
    {"useAllLigatures:"_L1, [](const CharacterFormat &look) { return look.ligatures == Ligatures::All; }},
    {"useStandardLigatures:"_L1,
     [](const CharacterFormat &look) { return look.ligatures == Ligatures::Default; }},
    {"turnOffLigatures:"_L1, [](const CharacterFormat &look) { return look.ligatures == Ligatures::None; }},
};

struct ParagraphState
{
    QLatin1StringView selector;
    ParagraphTest isSo;
};

constexpr ParagraphState paragraphStates[] = {
    {"alignLeft:"_L1,
     [](const ParagraphFormat &paragraph) {
         return paragraph.alignment == Alignment::Left || paragraph.alignment == Alignment::Natural;
     }},
    {"alignCenter:"_L1,
     [](const ParagraphFormat &paragraph) { return paragraph.alignment == Alignment::Center; }},
    {"alignRight:"_L1,
     [](const ParagraphFormat &paragraph) { return paragraph.alignment == Alignment::Right; }},
    {"alignJustified:"_L1,
     [](const ParagraphFormat &paragraph) { return paragraph.alignment == Alignment::Justified; }},
};

} // namespace

EditorFormatting::EditorFormatting(EditorWindowController &window, SheetHost &sheets)
    : g_window(window)
    , g_sheets(sheets)
{}

bool EditorFormatting::mayFormat() const
{
    return g_window.text().mayHaveFormats() && g_window.isFreeformTextEditable()
           && g_window.view().focus() == EditorFocus::FreeformText;
}

QTextCursor EditorFormatting::cursor() const
{
    return g_window.view().freeformCursor();
}

void EditorFormatting::setCursor(const QTextCursor &cursor)
{
    g_window.view().setFreeformCursor(cursor);
}

void EditorFormatting::changeLook(const LookChange &change)
{
    QTextCursor edited = cursor();
    if (edited.isNull() || !g_window.isFreeformTextEditable() || !g_window.text().mayHaveFormats())
        return;
    tavrin::changeLook(edited, change);
    setCursor(edited);
}

void EditorFormatting::changeParagraphs(const ParagraphChange &change)
{
    QTextCursor edited = cursor();
    if (edited.isNull() || !g_window.isFreeformTextEditable() || !g_window.text().mayHaveFormats())
        return;
    tavrin::changeParagraphs(edited, change);
    setCursor(edited);
}

// Characters.

void EditorFormatting::toggle(bool CharacterFormat::*trait)
{
    const bool isOn = isWholly(cursor(), [trait](const CharacterFormat &look) { return look.*trait; });
    changeLook([trait, isOn](CharacterFormat &look) { look.*trait = !isOn; });
}

void EditorFormatting::toggleBold()
{
    toggle(&CharacterFormat::bold);
}

void EditorFormatting::toggleItalic()
{
    toggle(&CharacterFormat::italic);
}

void EditorFormatting::toggleUnderline()
{
    const bool isOn = isWholly(cursor(), lookStates[2].isSo);
    changeLook(
        [isOn](CharacterFormat &look) { look.underline = isOn ? Underline::None : Underline::Single; });
}

void EditorFormatting::toggleStrikethrough()
{
    const bool isOn = isWholly(cursor(), lookStates[3].isSo);
    changeLook([isOn](CharacterFormat &look) { look.strike = isOn ? Strike::None : Strike::Single; });
}

void EditorFormatting::chooseFont()
{
    const CharacterFormat look = lookAt(cursor());
    QFont font(look.family);
    font.setPointSizeF(look.size / static_cast<double>(thousandths));
    font.setBold(look.bold);
    font.setItalic(look.italic);
    font.setUnderline(look.underline != Underline::None);
    font.setStrikeOut(look.strike != Strike::None);
    auto sheet = std::make_unique<FontSheetController>(font);
    connect(
        sheet.get(), &QVSheetController::finished, this, [this, font, sheet = sheet.get()](int returnCode) {
            if (returnCode == QVSheetController::FirstButton)
                takeFont(font, sheet->font());
        });
    g_sheets.begin(std::move(sheet));
}

/// What the person left alone stays as it is: all that is selected need not look the same.
void EditorFormatting::takeFont(const QFont &before, const QFont &font)
{
    changeLook([&](CharacterFormat &look) {
        if (font.family() != before.family())
            look.family = font.family();
        if (font.pointSizeF() != before.pointSizeF())
            look.size = qMax(1, qRound(font.pointSizeF() * thousandths));
        if (font.bold() != before.bold())
            look.bold = font.bold();
        if (font.italic() != before.italic())
            look.italic = font.italic();
        if (font.underline() != before.underline())
            look.underline = font.underline() ? Underline::Single : Underline::None;
        if (font.strikeOut() != before.strikeOut())
            look.strike = font.strikeOut() ? Strike::Single : Strike::None;
    });
}

void EditorFormatting::chooseColor()
{
    const auto color = lookAt(cursor()).foreground;
    auto sheet = std::make_unique<ColorSheetController>(color ? toQColor(*color) : QColor(Qt::black));
    connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int returnCode) {
        if (returnCode != QVSheetController::FirstButton)
            return;
        changeLook([chosen = toColor(sheet->color())](CharacterFormat &look) { look.foreground = chosen; });
    });
    g_sheets.begin(std::move(sheet));
}

void EditorFormatting::changeSize(int points)
{
    changeLook([points](CharacterFormat &look) {
        look.size = qBound(smallestSize, look.size + points * thousandths, largestSize);
    });
}

void EditorFormatting::setLigatures(Ligatures ligatures)
{
    changeLook([ligatures](CharacterFormat &look) { look.ligatures = ligatures; });
}

void EditorFormatting::setKerning(std::optional<qint32> twips)
{
    changeLook([twips](CharacterFormat &look) { look.kerning = twips; });
}

void EditorFormatting::changeKerning(qint32 twips)
{
    changeLook([twips](CharacterFormat &look) { look.kerning = look.kerning.value_or(0) + twips; });
}

void EditorFormatting::setScript(Script script)
{
    const bool isOn =
        isWholly(cursor(), [script](const CharacterFormat &look) { return look.script == script; });
    changeLook([=](CharacterFormat &look) { look.script = isOn ? Script::Normal : script; });
}

void EditorFormatting::moveBaseline(qint32 halfPoints)
{
    changeLook([halfPoints](CharacterFormat &look) { look.baseline += halfPoints; });
}

void EditorFormatting::unscript()
{
    changeLook([](CharacterFormat &look) {
        look.script = Script::Normal;
        look.baseline = 0;
    });
}

void EditorFormatting::clearFormatting()
{
    const CharacterFormat plain = g_window.text().plainLook();
    changeLook([&plain](CharacterFormat &look) {
        CharacterFormat cleared = plain;
        cleared.attachment = look.attachment;
        cleared.link = look.link;
        look = cleared;
    });
    if (!cursor().hasSelection())
        return;
    changeParagraphs([](ParagraphFormat &paragraph) {
        // A list is more than a look: its markers are text.
        if (paragraph.list.identifier != 0)
            return;
        ParagraphFormat plainOne;
        plainOne.cell = paragraph.cell;
        paragraph = plainOne;
    });
}

// Paragraphs.

void EditorFormatting::setAlignment(Alignment alignment)
{
    changeParagraphs([alignment](ParagraphFormat &paragraph) { paragraph.alignment = alignment; });
}

void EditorFormatting::chooseSpacing()
{
    constexpr double most = 500;
    const ParagraphFormat now = paragraphAt(cursor());
    const auto points = [](qint32 twips) { return twips / twipsPerPoint; };
    const QString point = tr(" pt");
    using Number = NumbersSheetController::Number;
    auto sheet = std::make_unique<NumbersSheetController>(
        tr("Spacing"),
        tr("OK"),
        QList<Number>{
            {tr("Lines:"), now.lineMultiple > 0 ? now.lineMultiple / oneLine : 1, 0.5, 10, 2, tr(" times")},
            {tr("Before the paragraph:"), points(now.spaceBefore), 0, most, 1, point},
            {tr("After the paragraph:"), points(now.spaceAfter), 0, most, 1, point},
            {tr("Left indent:"), points(now.headIndent), 0, most, 1, point},
            {tr("First line, from the left indent:"), points(now.firstLineIndent), -most, most, 1, point},
            {tr("Right indent:"), points(now.tailIndent), 0, most, 1, point}});
    const QList<Number> before = sheet->numbers();
    connect(sheet.get(), &QVSheetController::finished, this, [=, this, sheet = sheet.get()](int returnCode) {
        if (returnCode != QVSheetController::FirstButton)
            return;
        // What the person left alone stays: the selected paragraphs need not be alike.
        const auto take = [&](qsizetype index, double unit, qint32 &part) {
            if (sheet->value(index) != before[index].value)
                part = qRound(sheet->value(index) * unit);
        };
        changeParagraphs([&](ParagraphFormat &paragraph) {
            take(0, oneLine, paragraph.lineMultiple);
            if (paragraph.lineMultiple == qRound(oneLine))
                paragraph.lineMultiple = 0;
            take(1, twipsPerPoint, paragraph.spaceBefore);
            take(2, twipsPerPoint, paragraph.spaceAfter);
            take(3, twipsPerPoint, paragraph.headIndent);
            take(4, twipsPerPoint, paragraph.firstLineIndent);
            take(5, twipsPerPoint, paragraph.tailIndent);
        });
    });
    g_sheets.begin(std::move(sheet));
}

void EditorFormatting::setListMarker(const QString &marker)
{
    QTextCursor edited = cursor();
    if (edited.isNull() || !mayFormat())
        return;
    setList(edited, marker);
    setCursor(edited);
}

void EditorFormatting::changeListLevel(int by)
{
    QTextCursor edited = cursor();
    if (!edited.isNull() && mayFormat() && tavrin::changeListLevel(edited, by))
        setCursor(edited);
}

// Copied styles.

void EditorFormatting::copyStyle()
{
    CharacterFormat look = lookAt(cursor());
    look.attachment.reset();
    look.link.clear();
    g_copied->style = look;
    Q_EMIT g_window.operationsChanged();
}

void EditorFormatting::pasteFTAStyle()
{
    if (!g_copied->style)
        return;
    changeLook([&style = *g_copied->style](CharacterFormat &look) {
        CharacterFormat pasted = style;
        pasted.attachment = look.attachment;
        pasted.link = look.link;
        look = pasted;
    });
}

void EditorFormatting::copyRuler()
{
    g_copied->ruler = paragraphAt(cursor());
    Q_EMIT g_window.operationsChanged();
}

void EditorFormatting::pasteFTARuler()
{
    if (!g_copied->ruler)
        return;
    changeParagraphs([&ruler = *g_copied->ruler](ParagraphFormat &paragraph) {
        ParagraphFormat pasted = ruler;
        pasted.list = paragraph.list;
        pasted.cell = paragraph.cell;
        paragraph = pasted;
    });
}

std::optional<bool> EditorFormatting::isOn(const QString &selector) const
{
    const QTextCursor selected = cursor();
    for (const LookState &state : lookStates) {
        if (selector == state.selector)
            return !selected.isNull() && isWholly(selected, state.isSo);
    }
    for (const ParagraphState &state : paragraphStates) {
        if (selector == state.selector)
            return !selected.isNull() && state.isSo(paragraphAt(selected));
    }
    constexpr auto list = "orderFrontListPanel:"_L1;
    const QString kind = selector.startsWith(list) ? selector.sliced(list.size()) : QString();
    if (kind.isEmpty() || kind == "deeper"_L1 || kind == "higher"_L1)
        return {};
    const QString marker = selected.isNull() ? QString() : listMarkerAt(selected);
    return kind == "none"_L1 ? marker.isEmpty() : marker.contains(u'{' + kind + u'}');
}

} // namespace tavrin
