// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/FolderFiles.h"

#include <QHash>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

const QHash<QString, QString> namedCharacters = {
    {u"amp"_s, u"&"_s},    {u"lt"_s, u"<"_s},        {u"gt"_s, u">"_s},    {u"quot"_s, u"\""_s},
    {u"apos"_s, u"'"_s},   {u"nbsp"_s, u"\u00A0"_s}, {u"copy"_s, u"©"_s},  {u"reg"_s, u"®"_s},
    {u"euro"_s, u"€"_s},   {u"ndash"_s, u"–"_s},     {u"mdash"_s, u"—"_s}, {u"hellip"_s, u"…"_s},
    {u"lsquo"_s, u"‘"_s},  {u"rsquo"_s, u"’"_s},     {u"ldquo"_s, u"“"_s}, {u"rdquo"_s, u"”"_s},
    {u"auml"_s, u"ä"_s},   {u"ouml"_s, u"ö"_s},      {u"uuml"_s, u"ü"_s},  {u"Auml"_s, u"Ä"_s},
    {u"Ouml"_s, u"Ö"_s},   {u"Uuml"_s, u"Ü"_s},      {u"szlig"_s, u"ß"_s}, {u"eacute"_s, u"é"_s},
    {u"egrave"_s, u"è"_s}, {u"agrave"_s, u"à"_s},    {u"ccedil"_s, u"ç"_s}};

const QStringList blockTags = {u"p"_s,          u"div"_s,     u"h1"_s,     u"h2"_s,     u"h3"_s,
                               u"h4"_s,         u"h5"_s,      u"h6"_s,     u"li"_s,     u"ul"_s,
                               u"ol"_s,         u"tr"_s,      u"table"_s,  u"pre"_s,    u"section"_s,
                               u"blockquote"_s, u"article"_s, u"header"_s, u"footer"_s, u"hr"_s};
const QStringList hiddenTags = {u"head"_s, u"script"_s, u"style"_s, u"template"_s};

/// Goes over a page once. It is no browser: it wants the words, in their order, and the lines.
class HtmlReader
{
public:
    explicit HtmlReader(const QString &html) : g_html(html) {}

    QString text();

private:
    void readTag();
    void readEntity();
    void takeTag(const QString &name, bool isClosing);
    void append(const QString &text);
    void endLine(bool always);

    const QString &g_html;
    qsizetype g_at = 0;
    QString g_text;
    QString g_hidden; ///< The tag whose content is passed over; empty for none.
    bool g_isPreformatted = false;
    bool g_needsBlank = false;
};

QString HtmlReader::text()
{
    while (g_at < g_html.size()) {
        const QChar character = g_html[g_at];
        const QChar following = g_at + 1 < g_html.size() ? g_html[g_at + 1] : QChar();
        const bool isTag =
            character == u'<' && (following.isLetter() || following == u'/' || following == u'!');
        if (isTag) {
            readTag();
        } else if (!g_hidden.isEmpty()) {
            ++g_at;
        } else if (character == u'&') {
            readEntity();
        } else {
            append(QString(character));
            ++g_at;
        }
    }
    while (g_text.endsWith(u'\n'))
        g_text.chop(1);
    return g_text;
}

void HtmlReader::readTag()
{
    if (g_html.mid(g_at, 4) == u"<!--") {
        const qsizetype end = g_html.indexOf(u"-->"_s, g_at + 4);
        g_at = end < 0 ? g_html.size() : end + 3;
        return;
    }
    qsizetype end = g_at + 1;
    QChar quote;
    for (; end < g_html.size() && (g_html[end] != u'>' || !quote.isNull()); ++end) {
        if (g_html[end] == quote)
            quote = QChar();
        else if (quote.isNull() && (g_html[end] == u'"' || g_html[end] == u'\''))
            quote = g_html[end];
    }
    const bool isClosing = g_html[g_at + 1] == u'/';
    qsizetype nameEnd = g_at + (isClosing ? 2 : 1);
    const qsizetype nameStart = nameEnd;
    while (nameEnd < end && g_html[nameEnd].isLetterOrNumber())
        ++nameEnd;
    const QString name = g_html.sliced(nameStart, nameEnd - nameStart).toLower();
    g_at = std::min(end + 1, g_html.size());
    takeTag(name, isClosing);
}

void HtmlReader::takeTag(const QString &name, bool isClosing)
{
    if (!g_hidden.isEmpty()) {
        if (isClosing && name == g_hidden)
            g_hidden.clear();
        return;
    }
    if (hiddenTags.contains(name) && !isClosing) {
        g_hidden = name;
        return;
    }
    if (name == u"pre")
        g_isPreformatted = !isClosing;
    if (name == u"br")
        endLine(true);
    else if (blockTags.contains(name))
        endLine(false);
    else if ((name == u"td" || name == u"th") && !isClosing && !g_text.isEmpty() && !g_text.endsWith(u'\n'))
        g_text += u'\t';
    if (name == u"p" && isClosing && !g_text.endsWith(u"\n\n") && !g_text.isEmpty())
        g_text += u'\n';
}

void HtmlReader::endLine(bool always)
{
    g_needsBlank = false;
    if (always || (!g_text.isEmpty() && !g_text.endsWith(u'\n')))
        g_text += u'\n';
}

void HtmlReader::readEntity()
{
    constexpr qsizetype longest = 12;
    const qsizetype end = g_html.indexOf(u';', g_at);
    const QString name =
        end < 0 || end - g_at > longest ? QString() : g_html.sliced(g_at + 1, end - g_at - 1);
    QString character = namedCharacters.value(name);
    if (name.startsWith(u'#')) {
        const bool isHex = name.mid(1, 1).toLower() == u"x";
        bool isNumber = false;
        const uint code = name.mid(isHex ? 2 : 1).toUInt(&isNumber, isHex ? 16 : 10);
        if (isNumber && code > 0 && code <= 0x10FFFF && !QChar::isSurrogate(code))
            character = QString::fromUcs4(reinterpret_cast<const char32_t *>(&code), 1);
    }
    g_at = character.isEmpty() ? g_at + 1 : end + 1;
    append(character.isEmpty() ? u"&"_s : character);
}

// White space is one blank, and none at the start of a line.
void HtmlReader::append(const QString &text)
{
    const bool isBlank = text == u" " || text == u"\n" || text == u"\t" || text == u"\r";
    if (g_isPreformatted) {
        if (text != u"\r")
            g_text += text;
        return;
    }
    if (isBlank) {
        g_needsBlank = true;
        return;
    }
    if (g_needsBlank && !g_text.isEmpty() && !g_text.endsWith(u'\n') && !g_text.endsWith(u'\t'))
        g_text += u' ';
    g_needsBlank = false;
    g_text += text;
}

} // namespace

QString textOfHtml(const QString &html)
{
    return HtmlReader(html).text();
}

} // namespace tavrin
