// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/CodePage.h"

#include <iconv.h>

#include <cerrno>
#include <string>

namespace tavrin::richtext {

namespace {

constexpr char16_t replacement = 0xFFFD;

constexpr std::u16string_view western80to9F =
    u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
    u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";

// Systems differ in the currency sign, the ohm and the maker's own sign.
constexpr std::u16string_view macRoman80toFF =
    u"\u00C4\u00C5\u00C7\u00C9\u00D1\u00D6\u00DC\u00E1\u00E0\u00E2\u00E4\u00E3\u00E5\u00E7\u00E9\u00E8"
    u"\u00EA\u00EB\u00ED\u00EC\u00EE\u00EF\u00F1\u00F3\u00F2\u00F4\u00F6\u00F5\u00FA\u00F9\u00FB\u00FC"
    u"\u2020\u00B0\u00A2\u00A3\u00A7\u2022\u00B6\u00DF\u00AE\u00A9\u2122\u00B4\u00A8\u2260\u00C6\u00D8"
    u"\u221E\u00B1\u2264\u2265\u00A5\u00B5\u2202\u2211\u220F\u03C0\u222B\u00AA\u00BA\u03A9\u00E6\u00F8"
    u"\u00BF\u00A1\u00AC\u221A\u0192\u2248\u2206\u00AB\u00BB\u2026\u00A0\u00C0\u00C3\u00D5\u0152\u0153"
    u"\u2013\u2014\u201C\u201D\u2018\u2019\u00F7\u25CA\u00FF\u0178\u2044\u20AC\u2039\u203A\uFB01\uFB02"
    u"\u2021\u00B7\u201A\u201E\u2030\u00C2\u00CA\u00C1\u00CB\u00C8\u00CD\u00CE\u00CF\u00CC\u00D3\u00D4"
    u"\uF8FF\u00D2\u00DA\u00DB\u00D9\u0131\u02C6\u02DC\u00AF\u02D8\u02D9\u02DA\u00B8\u02DD\u02DB\u02C7";

struct CharsetRow
{
    int charset = 0;
    int codePage = 0;
};

constexpr CharsetRow charsets[] = {
    {0, westernCodePage}, {2, latin1CodePage}, {77, macRomanCodePage},
    {128, 932},           {129, 949},          {130, 1361},
    {134, 936},           {136, 950},          {161, 1253},
    {162, 1254},          {163, 1258},         {177, 1255},
    {178, 1256},          {186, 1257},         {204, 1251},
    {222, 874},           {238, 1250},         {254, 437},
    {255, 850},
};

const iconv_t none = reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr): the system's value

iconv_t openConverter(int codePage)
{
    if (codePage <= 0 || codePage == latin1CodePage || codePage == westernCodePage
        || codePage == macRomanCodePage || codePage == utf8CodePage)
        return none;
    std::string name = "CP" + std::to_string(codePage);
    if (codePage == 1361)
        name = "JOHAB";
    return ::iconv_open("UTF-16LE", name.c_str());
}

/// The one 16-bit character of the bytes; 0 when they are none, with `isStart` telling whether more follows.
char16_t converted(iconv_t converter, const uchar *bytes, size_t size, bool &isStart)
{
    ::iconv(converter, nullptr, nullptr, nullptr, nullptr);
    // The interface is older than const; iconv only reads the bytes.
    char input[2] = {static_cast<char>(bytes[0]), size > 1 ? static_cast<char>(bytes[1]) : '\0'};
    std::array<uchar, 8> output{};
    char *in = input;
    char *out = reinterpret_cast<char *>(output.data());
    size_t inLeft = size;
    size_t outLeft = output.size();
    errno = 0;
    const bool isDone = ::iconv(converter, &in, &inLeft, &out, &outLeft) != static_cast<size_t>(-1);
    isStart = !isDone && errno == EINVAL;
    // Some pages keep a letter back until they know whether a mark follows it.
    if (isDone)
        ::iconv(converter, nullptr, nullptr, &out, &outLeft);
    if (!isDone || outLeft != output.size() - 2)
        return 0;
    return static_cast<char16_t>(output[0] | output[1] << 8);
}

} // namespace

std::optional<int> codePageOfCharset(int charset)
{
    for (const CharsetRow &row : charsets) {
        if (row.charset == charset)
            return row.codePage;
    }
    return {};
}

CodePageDecoder::CodePageDecoder(int codePage)
    : g_singles{}
    , g_converter(openConverter(codePage))
    , g_isUtf8(codePage == utf8CodePage)
{
    for (size_t i = 0; i < g_singles.size(); ++i)
        g_singles[i] = static_cast<char16_t>(i);
    if (codePage == westernCodePage)
        western80to9F.copy(g_singles.data() + 0x80, western80to9F.size());
    else if (codePage == macRomanCodePage)
        macRoman80toFF.copy(g_singles.data() + 0x80, macRoman80toFF.size());
    else if (g_converter != none)
        readSingles();
}

CodePageDecoder::~CodePageDecoder()
{
    if (g_converter != none)
        ::iconv_close(g_converter);
}

void CodePageDecoder::readSingles()
{
    for (size_t i = 0x80; i < g_singles.size(); ++i) {
        const auto byte = static_cast<uchar>(i);
        bool isStart = false;
        const char16_t character = converted(g_converter, &byte, 1, isStart);
        if (character != 0)
            g_singles[i] = character;
        else if (isStart)
            g_singles[i] = needsMore;
    }
}

void CodePageDecoder::take(uchar byte, QString &text)
{
    if (g_isUtf8 && (byte >= 0x80 || isInside())) {
        takeUtf8(byte, text);
        return;
    }
    if (g_lead != 0) {
        const uchar lead = std::exchange(g_lead, uchar(0));
        const char16_t character = pair(lead, byte);
        text += QChar(character);
        // An ASCII character is not lost because of a stray byte before it.
        if (character == replacement && byte < 0x80)
            text += QLatin1Char(static_cast<char>(byte));
        return;
    }
    if (g_singles[byte] == needsMore)
        g_lead = byte;
    else
        text += QChar(g_singles[byte]);
}

void CodePageDecoder::takeUtf8(uchar byte, QString &text)
{
    const bool continues = (byte & 0xC0) == 0x80;
    if (isInside() && !continues) {
        finish(text);
        take(byte, text);
        return;
    }
    g_utf8 += static_cast<char>(byte);
    const auto first = static_cast<uchar>(g_utf8.front());
    const qsizetype size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 1;
    if (g_utf8.size() < size)
        return;
    text += QString::fromUtf8(g_utf8);
    g_utf8.clear();
}

void CodePageDecoder::finish(QString &text)
{
    if (!isInside())
        return;
    text += QChar(replacement);
    g_lead = 0;
    g_utf8.clear();
}

char16_t CodePageDecoder::pair(uchar lead, uchar trail)
{
    if (g_pairs.empty())
        g_pairs.resize(0x10000);
    char16_t &character = g_pairs[static_cast<size_t>(lead << 8 | trail)];
    if (character == 0) {
        const uchar bytes[] = {lead, trail};
        bool isStart = false;
        character = converted(g_converter, bytes, 2, isStart);
        if (character == 0)
            character = replacement;
    }
    return character;
}

CodePageDecoder &CodePages::decoder(int codePage)
{
    for (const auto &[page, decoder] : g_decoders) {
        if (page == codePage)
            return *decoder;
    }
    // What is no page's number must not make the list long.
    constexpr size_t mostPages = 64;
    if (g_decoders.size() >= mostPages)
        return *g_decoders.front().second;
    g_decoders.emplace_back(codePage, std::make_unique<CodePageDecoder>(codePage));
    return *g_decoders.back().second;
}

} // namespace tavrin::richtext
