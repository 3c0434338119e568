// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace tavrin::richtext {

/// The numbers of code pages that have a meaning here; the others are those that everybody uses.
constexpr int westernCodePage = 1252;
constexpr int macRomanCodePage = 10000;
constexpr int utf8CodePage = 65001;
constexpr int latin1CodePage = 28591;

/// The code page of a font's character set, as RTF numbers them. None: that of the document.
std::optional<int> codePageOfCharset(int charset);

/// Turns the bytes of a code page into characters, one after the other.
///
/// A byte that means nothing there is the control character of that number; two that mean nothing together
/// are U+FFFD. A page that the system does not know is read as Latin-1.
class CodePageDecoder
{
public:
    explicit CodePageDecoder(int codePage);
    CodePageDecoder(const CodePageDecoder &) = delete;
    CodePageDecoder &operator=(const CodePageDecoder &) = delete;
    ~CodePageDecoder();

    /// Appends what the byte completes: nothing, a character, or two.
    void take(uchar byte, QString &text);
    /// True when the next byte belongs to the last one, whatever it is.
    bool isInside() const { return g_lead != 0 || !g_utf8.isEmpty(); }
    /// The end of the bytes: appends U+FFFD for a character that is not complete.
    void finish(QString &text);

private:
    static constexpr char16_t needsMore = 0xFFFF;

    void readSingles();
    void takeUtf8(uchar byte, QString &text);
    char16_t pair(uchar lead, uchar trail);

    std::array<char16_t, 256> g_singles;
    void *g_converter;
    std::vector<char16_t> g_pairs; ///< By lead and trail byte; 0: not asked yet.
    bool g_isUtf8;
    QByteArray g_utf8; ///< The bytes of a character that is not complete.
    uchar g_lead = 0;
};

/// The decoders of one document.
class CodePages
{
public:
    CodePageDecoder &decoder(int codePage);

private:
    std::vector<std::pair<int, std::unique_ptr<CodePageDecoder>>> g_decoders;
};

} // namespace tavrin::richtext
