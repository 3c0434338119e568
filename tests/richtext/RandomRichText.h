// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/AttributedText.h"

#include <random>

namespace tavrin::richtext {

/// Makes texts that use all that the model has, often at its edges.
class RandomRichText
{
public:
    explicit RandomRichText(quint32 seed) : g_random(seed) {}

    int below(int limit) { return static_cast<int>(g_random() % static_cast<quint32>(limit)); }
    bool oneIn(int count) { return below(count) == 0; }

    /// A few words, now and then with what needs care in RTF.
    QString words()
    {
        static const QList<QString> pieces{QStringLiteral("a"),
                                           QStringLiteral("word "),
                                           QStringLiteral("12"),
                                           QStringLiteral(" "),
                                           QStringLiteral("\\{}"),
                                           QStringLiteral("\t"),
                                           QStringLiteral(";\"*-"),
                                           QStringLiteral("\u00E9\u00AC"),
                                           QStringLiteral("\u65E5\u672C"),
                                           QStringLiteral("\U0001F600"),
                                           QStringLiteral("\u2028"),
                                           QStringLiteral("\u00A0\u00AD"),
                                           QStringLiteral("\f"),
                                           QStringLiteral("\r\u0001"),
                                           QString(QChar(0xD83D)),
                                           QString(QChar(0)),
                                           QString(QChar(attachmentCharacter))};
        QString text;
        for (int count = below(6); count > 0; --count)
            text += pieces[oneIn(3) ? below(static_cast<int>(pieces.size())) : below(4)];
        return text;
    }

    Color color() { return {byte(), byte(), byte(), oneIn(3) ? byte() : quint8(255)}; }
    std::optional<Color> maybeColor() { return oneIn(4) ? std::optional(color()) : std::nullopt; }

    CharacterFormat look()
    {
        static const QStringList families{QStringLiteral("Helvetica"),
                                          QStringLiteral("Times New Roman"),
                                          QStringLiteral("\u30D2\u30E9;{\u00E9}\\ 2")};
        CharacterFormat format;
        format.family = families[below(3)];
        format.size = oneIn(3) ? 1 + below(200'000) : 12000;
        format.bold = oneIn(2);
        format.italic = oneIn(3);
        format.underline = oneIn(3) ? static_cast<Underline>(below(9)) : Underline::None;
        format.strike = oneIn(4) ? static_cast<Strike>(below(3)) : Strike::None;
        format.script = oneIn(4) ? static_cast<Script>(below(3)) : Script::Normal;
        format.ligatures = oneIn(4) ? static_cast<Ligatures>(below(3)) : Ligatures::Default;
        format.foreground = maybeColor();
        format.background = oneIn(4) ? Color{255, 255, 255} : maybeColor();
        format.underlineColor = maybeColor();
        format.strikeColor = maybeColor();
        format.baseline = oneIn(4) ? below(41) - 20 : 0;
        if (oneIn(4))
            format.kerning = below(41) - 20;
        if (oneIn(4))
            format.link = QStringLiteral("http://\u00E9.x/{a}\\b?%1 ").arg(below(3));
        return format;
    }

    /// One attachment in all the looks there are.
    CharacterFormat attachment()
    {
        static const QStringList names{
            QStringLiteral("photo.png"), QStringLiteral("5 \u00E9{}\\.png"), QStringLiteral("\U0001F600")};
        CharacterFormat format = look();
        const QByteArray bytes(1 + below(300), static_cast<char>(below(3)));
        format.attachment = Attachment{names[below(3)], bytes, below(5000), oneIn(2) ? 0 : below(5000)};
        return format;
    }

    ParagraphFormat paragraph()
    {
        ParagraphFormat format;
        format.alignment = static_cast<Alignment>(below(5));
        format.direction = static_cast<Direction>(below(3));
        for (qint32 *length : {&format.headIndent,
                               &format.firstLineIndent,
                               &format.tailIndent,
                               &format.spaceBefore,
                               &format.spaceAfter,
                               &format.lineMultiple,
                               &format.minimumLineHeight,
                               &format.maximumLineHeight,
                               &format.lineSpacing,
                               &format.tabInterval})
            *length = oneIn(3) ? below(2000) - (oneIn(4) ? 1000 : 0) : 0;
        for (int count = below(4); count > 0; --count)
            format.tabStops.append({below(9000), static_cast<TabKind>(below(4))});
        return format;
    }

    AttributedText text()
    {
        AttributedText text;
        for (int count = below(6); count > 0; --count)
            oneIn(5) ? appendTable(text) : appendParagraph(text, QStringLiteral("\n"), paragraph());
        appendParagraph(text, {}, paragraph());
        return text;
    }

private:
    quint8 byte() { return static_cast<quint8>(below(256)); }

    void appendParagraph(AttributedText &text, const QString &ending, ParagraphFormat format)
    {
        if (format.cell.table == 0 && oneIn(3)) {
            format.list = lists()[below(2)];
            format.list.level = below(static_cast<int>(format.list.levels.size()));
        }
        // The format of the first characters is that of the paragraph; an empty last one has its own.
        AttributedText made(QString(), {}, format);
        if (format.list.identifier != 0 && !oneIn(4))
            made.append(AttributedText(QStringLiteral("\t\u2022\t"), look(), format));
        for (int count = below(4); count > 0; --count) {
            made.append(AttributedText(words().remove(u'\n'), look(), format));
            if (oneIn(3))
                made.append(AttributedText(QString(QChar(attachmentCharacter)), attachment(), format));
        }
        made.append(AttributedText(ending, look(), format));
        text = AttributedText(text.text() + made.text(),
                              joined(text.characterRuns(), made.characterRuns(), text.size()),
                              joined(text.paragraphRuns(), made.paragraphRuns(), text.size()));
    }

    template <typename Runs>
    static Runs joined(const Runs &one, const Runs &other, qsizetype length)
    {
        Runs runs = one.part(0, length);
        runs.replace(length, 0, other);
        return runs;
    }

    void appendTable(AttributedText &text)
    {
        ++g_tables;
        QList<CellStyle> styles;
        const int rows = 1 + below(3);
        const int columns = 1 + below(3);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                ParagraphFormat format = paragraph();
                format.cell = {g_tables, row, column, cell()};
                for (int count = 1 + below(2); count > 0; --count)
                    appendParagraph(text, QStringLiteral("\n"), format);
            }
        }
    }

    CellStyle cell()
    {
        CellStyle cell;
        cell.width = below(4000);
        cell.horizontal = static_cast<Merge>(below(3));
        cell.vertical = static_cast<Merge>(below(3));
        cell.alignment = static_cast<VerticalAlignment>(below(3));
        cell.background = maybeColor();
        for (CellSide &side : cell.sides)
            side = {oneIn(2) ? below(40) : 0, below(200), maybeColor()};
        return cell;
    }

    static const QList<ListItem> &lists()
    {
        static const QList<ListItem> lists{
            {7, 0, {{QStringLiteral("{disc}"), 1}}},
            {2, 0, {{QStringLiteral("{decimal}."), 3}, {QStringLiteral("({lower-alpha})"), -1}, {{}, 1}}}};
        return lists;
    }

    std::mt19937 g_random;
    int g_tables = 0;
};

} // namespace tavrin::richtext
