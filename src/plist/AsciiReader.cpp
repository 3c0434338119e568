// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/AsciiReader.h"

#include "plist/ReadError.h"
#include "plist/Reader.h"
#include "plist/Utf8.h"

#include <algorithm>
#include <array>

namespace tavrin::plist {

using namespace Qt::StringLiterals;

namespace {

// Bytes 0x80 to 0xFF of the encoding in which octal escapes are written.
constexpr std::array<char16_t, 128> nextStepCharacters = {
    0x00A0, 0x00C0, 0x00C1, 0x00C2, 0x00C3, 0x00C4, 0x00C5, 0x00C7, 0x00C8, 0x00C9, 0x00CA, 0x00CB, 0x00CC,
    0x00CD, 0x00CE, 0x00CF, 0x00D0, 0x00D1, 0x00D2, 0x00D3, 0x00D4, 0x00D5, 0x00D6, 0x00D9, 0x00DA, 0x00DB,
    0x00DC, 0x00DD, 0x00DE, 0x00B5, 0x00D7, 0x00F7, 0x00A9, 0x00A1, 0x00A2, 0x00A3, 0x2044, 0x00A5, 0x0192,
    0x00A7, 0x00A4, 0x2019, 0x201C, 0x00AB, 0x2039, 0x203A, 0xFB01, 0xFB02, 0x00AE, 0x2013, 0x2020, 0x2021,
    0x00B7, 0x00A6, 0x00B6, 0x2022, 0x201A, 0x201E, 0x201D, 0x00BB, 0x2026, 0x2030, 0x00AC, 0x00BF, 0x00B9,
    0x02CB, 0x00B4, 0x02C6, 0x02DC, 0x00AF, 0x02D8, 0x02D9, 0x00A8, 0x00B2, 0x02DA, 0x00B8, 0x00B3, 0x02DD,
    0x02DB, 0x02C7, 0x2014, 0x00B1, 0x00BC, 0x00BD, 0x00BE, 0x00E0, 0x00E1, 0x00E2, 0x00E3, 0x00E4, 0x00E5,
    0x00E7, 0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x00EC, 0x00C6, 0x00ED, 0x00AA, 0x00EE, 0x00EF, 0x00F0, 0x00F1,
    0x0141, 0x00D8, 0x0152, 0x00BA, 0x00F2, 0x00F3, 0x00F4, 0x00F5, 0x00F6, 0x00E6, 0x00F9, 0x00FA, 0x00FB,
    0x0131, 0x00FC, 0x00FD, 0x0142, 0x00F8, 0x0153, 0x00DF, 0x00FE, 0x00FF, 0xFFFD, 0xFFFD};

constexpr QByteArrayView lineSeparator("\xE2\x80\xA8");
constexpr QByteArrayView paragraphSeparator("\xE2\x80\xA9");

int hexDigit(char byte)
{
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    const char lower = static_cast<char>(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool isOctalDigit(char byte)
{
    return byte >= '0' && byte <= '7';
}

bool isBare(char byte)
{
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z')
           || QByteArrayView("_$/:.-").contains(byte);
}

/// One pass over the bytes of a property list in the old text form.
///
/// An operation that fails says so by a null value, a null text or false, and has then set g_reason.
class AsciiParser
{
public:
    explicit AsciiParser(QByteArrayView utf8) : g_text(utf8), g_at(utf8.begin()), g_end(utf8.end()) {}

    Result<Value> parse();

private:
    bool fail(const char *reason);
    QByteArrayView rest() const { return {g_at, g_end}; }
    bool isAt(char byte) const { return g_at != g_end && *g_at == byte; }
    bool take(char byte);
    qsizetype separatorLength() const;
    bool skipBlanks();
    bool skipComment();

    Value readFile();
    Value readObject(int depth);
    Value readPairs(char closing, int depth);
    Value readArray(int depth);
    Value readData();
    QString readString();
    QString readQuoted(char quote);
    bool readEscape(QString &text);
    char16_t readHexEscape();
    char16_t readOctalEscape();

    const QByteArrayView g_text;
    const char *g_at;
    const char *const g_end;
    const char *g_reason = nullptr;
};

bool AsciiParser::fail(const char *reason)
{
    if (!g_reason)
        g_reason = reason;
    return false;
}

bool AsciiParser::take(char byte)
{
    if (!isAt(byte))
        return false;
    ++g_at;
    return true;
}

qsizetype AsciiParser::separatorLength() const
{
    return rest().startsWith(lineSeparator) || rest().startsWith(paragraphSeparator) ? lineSeparator.size()
                                                                                     : 0;
}

bool AsciiParser::skipBlanks()
{
    while (g_at != g_end) {
        if (*g_at == ' ' || (*g_at >= '\t' && *g_at <= '\r'))
            ++g_at;
        else if (const qsizetype length = separatorLength(); length > 0)
            g_at += length;
        else if (rest().startsWith("//") || rest().startsWith("/*")) {
            if (!skipComment())
                return false;
        } else
            break;
    }
    return true;
}

bool AsciiParser::skipComment()
{
    if (rest().startsWith("/*")) {
        const qsizetype end = rest().sliced(2).indexOf("*/");
        if (end < 0)
            return fail("a comment does not end");
        g_at += 2 + end + 2;
        return true;
    }
    while (g_at != g_end && *g_at != '\n' && *g_at != '\r' && separatorLength() == 0)
        ++g_at;
    return true;
}

Result<Value> AsciiParser::parse()
{
    Value root = readFile();
    if (!g_reason && skipBlanks() && g_at != g_end)
        fail("something follows the end of the list");
    if (g_reason)
        return corruptAtLine(g_text, g_at - g_text.begin(), g_reason);
    return root;
}

Value AsciiParser::readFile()
{
    if (!skipBlanks())
        return {};
    if (g_at == g_end)
        return Dictionary();
    if (isAt('{') || isAt('(') || isAt('<'))
        return readObject(0);
    // A single word, or the first key of pairs without braces.
    const char *start = g_at;
    QString word = readString();
    if (g_reason || !skipBlanks())
        return {};
    if (g_at == g_end)
        return word;
    g_at = start;
    return readPairs('\0', 1);
}

Value AsciiParser::readObject(int depth)
{
    if (isAt('{') || isAt('(')) {
        if (depth == maximumDepth) {
            fail("nested too deeply");
            return {};
        }
        if (take('{'))
            return readPairs('}', depth + 1);
        take('(');
        return readArray(depth + 1);
    }
    if (take('<'))
        return readData();
    QString text = readString();
    return g_reason ? Value() : Value(std::move(text));
}

// Pairs up to the closing brace, or to the end of the file when there is none to come.
Value AsciiParser::readPairs(char closing, int depth)
{
    Dictionary dictionary;
    while (skipBlanks()) {
        if (closing == '\0' ? g_at == g_end : take(closing))
            return dictionary;
        const QString key = readString();
        if (g_reason || !skipBlanks())
            break;
        Value value = key; // "key;" alone stands for itself
        if (take('=')) {
            if (!skipBlanks())
                break;
            value = readObject(depth);
            if (g_reason || !skipBlanks())
                break;
        }
        if (!take(';')) {
            fail("a semicolon is missing");
            break;
        }
        dictionary.insert(key, std::move(value));
    }
    return {};
}

Value AsciiParser::readArray(int depth)
{
    Array array;
    while (skipBlanks()) {
        if (take(')'))
            return array;
        Value value = readObject(depth);
        if (g_reason || !skipBlanks())
            break;
        array.append(std::move(value));
        if (!take(',') && !isAt(')')) {
            fail("a comma is missing");
            break;
        }
    }
    return {};
}

// Pairs of digits; blanks stand only between whole bytes.
Value AsciiParser::readData()
{
    QByteArray data;
    while (g_at != g_end) {
        if (take('>'))
            return data;
        if (*g_at == ' ' || *g_at == '\t' || *g_at == '\n' || *g_at == '\r') {
            ++g_at;
        } else if (const qsizetype length = separatorLength(); length > 0) {
            g_at += length;
        } else if (g_end - g_at >= 2 && hexDigit(g_at[0]) >= 0 && hexDigit(g_at[1]) >= 0) {
            data.append(static_cast<char>(hexDigit(g_at[0]) * 16 + hexDigit(g_at[1])));
            g_at += 2;
        } else {
            break;
        }
    }
    fail("malformed data");
    return {};
}

QString AsciiParser::readString()
{
    if (take('"'))
        return readQuoted('"');
    if (take('\''))
        return readQuoted('\'');
    const char *start = g_at;
    g_at = std::find_if_not(g_at, g_end, isBare);
    if (g_at == start)
        fail(g_at == g_end ? "the file ends too early" : "unexpected character");
    return QString::fromLatin1(QByteArrayView(start, g_at));
}

QString AsciiParser::readQuoted(char quote)
{
    QString text = u""_s;
    while (g_at != g_end) {
        if (take(quote))
            return text;
        if (take('\\')) {
            if (!readEscape(text))
                return {};
            continue;
        }
        const char *start = g_at;
        g_at = std::find_if(g_at, g_end, [quote](char byte) { return byte == quote || byte == '\\'; });
        text += fromUtf8({start, g_at});
    }
    fail("a quoted string does not end");
    return {};
}

bool AsciiParser::readEscape(QString &text)
{
    if (g_at == g_end)
        return fail("a quoted string does not end");
    constexpr QByteArrayView letters("abfnrtv");
    constexpr QByteArrayView meanings("\a\b\f\n\r\t\v");
    if (isOctalDigit(*g_at)) {
        text += QChar(readOctalEscape());
    } else if (*g_at == 'U') {
        text += QChar(readHexEscape());
    } else if (const qsizetype index = letters.indexOf(*g_at); index >= 0) {
        text += QLatin1Char(meanings[index]);
        ++g_at;
    } else if (static_cast<uchar>(*g_at) < 0x80) {
        text += QLatin1Char(*g_at++);
    }
    // A backslash before any other character means that character, which the caller goes on to read.
    return true;
}

// Up to four digits: one 16-bit unit. Without a digit it is a plain letter.
char16_t AsciiParser::readHexEscape()
{
    ++g_at;
    int unit = 0;
    int digits = 0;
    for (; digits < 4 && g_at != g_end && hexDigit(*g_at) >= 0; ++digits)
        unit = unit * 16 + hexDigit(*g_at++);
    return digits == 0 ? u'U' : static_cast<char16_t>(unit);
}

// Up to three digits: one byte.
char16_t AsciiParser::readOctalEscape()
{
    int byte = 0;
    for (int digits = 0; digits < 3 && g_at != g_end && isOctalDigit(*g_at); ++digits)
        byte = byte * 8 + (*g_at++ - '0');
    byte &= 0xFF;
    return byte < 0x80 ? static_cast<char16_t>(byte) : nextStepCharacters[static_cast<size_t>(byte - 0x80)];
}

} // namespace

Result<Value> readAscii(QByteArrayView utf8)
{
    return AsciiParser(utf8).parse();
}

} // namespace tavrin::plist
