// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <array>
#include <string>
#include <vector>

namespace tavrin {

/// The placeholders that stand, while a line is cut, for pairs of quotes and separators. They are part of the
/// grammar: a line in which one is not used up keeps it as text.
namespace SeparatorToken {
// GCC takes a scoped enumerator to hide the constant of the same name.
enum Kind : quint8 { QuoteSeparatorQuote, QuoteSeparator, SeparatorQuote, DoubledQuote, Quote, Separator };

inline constexpr std::array<QByteArrayView, 4> texts = {
    "&&&=QCQ=*****", "@@@QC$$$%%%%%", "%%%%%CQ$$$@@@", "%%%%%%DQ#####"};
} // namespace SeparatorToken

/// Cuts one line of separated values into its fields.
///
/// A line is tokenised from left to right by four passes, of which each leaves to the next what it has not
/// taken; see cutLiterally(). This class finds the same tokens without writing them into the line, since they
/// concern only quotes and separators that stand side by side.
class SeparatedLineCutter
{
public:
    /// A field: bytes of the line, or a text that the line does not hold so.
    struct Field
    {
        qsizetype start = 0;
        qsizetype size = 0;
        bool hasDoubled = false; ///< Two quotes in it stand for one.
        bool isOwn = false;      ///< It starts in the cutter's own bytes.
    };

    /// `marked` are the places of all quotes and separators of the line, in their order.
    const std::vector<Field> &cut(QByteArrayView line, const std::vector<qsizetype> &marked);

    /// Of a field of the last line, as they stand there.
    QByteArrayView bytesOf(const Field &field) const
    {
        return (field.isOwn ? QByteArrayView(g_own) : g_line).sliced(field.start, field.size);
    }

private:
    struct Token
    {
        qsizetype start;
        qsizetype size;
        SeparatorToken::Kind kind;
    };

    void tokenise(const std::vector<qsizetype> &marked);
    void tokeniseRun(qsizetype start, qsizetype size);
    void tokeniseLongRun(qsizetype start, qsizetype size);
    void addToken(qsizetype start, qsizetype size, SeparatorToken::Kind kind);
    void cutTokens();
    bool cutStep();
    bool cutFirstQuoted();
    bool cutOpened();
    bool cutPlain();
    template <SeparatorToken::Kind... kinds>
    size_t nextOf() const;
    void emitUpTo(qsizetype end, size_t endToken);
    void moveBehind(size_t token);
    void write(qsizetype end, size_t endToken);

    QByteArrayView g_line;
    std::vector<Token> g_tokens;
    std::vector<quint8> g_run;
    std::vector<Field> g_fields;
    std::string g_own; ///< Quicker than a QByteArray to append small pieces to.
    qsizetype g_position = 0;
    size_t g_next = 0; ///< The first token at the position or behind it.
    bool g_isOpened = false;
    std::array<size_t, 6> g_lastOf{}; ///< By kind: the number of its last token and 1 more; 0 for none.
};

/// The same, done to the letter: each pass rewrites the line. For lines in which the tokens' own letters
/// occur; and what the cutter is tested against.
std::vector<QByteArray> cutLiterally(QByteArrayView line, char separator);

/// Whether the text holds what could, in a line, become part of a token.
bool mayHoldTokens(QByteArrayView text);

} // namespace tavrin
