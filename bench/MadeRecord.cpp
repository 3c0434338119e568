// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "MadeRecord.h"

#include <QStringList>
#include <QtEndian>

#include <initializer_list>

namespace tavrin::bench {
namespace {

using namespace Qt::StringLiterals;

/// A small generator whose numbers are the same everywhere, as those of <random>'s distributions are not.
class Random
{
public:
    Random(quint64 seed, quint64 stream) : g_state(seed * 0x9e3779b97f4a7c15U + stream * 0xd1342543de82ef95U)
    {
        next();
    }

    quint64 next()
    {
        g_state += 0x9e3779b97f4a7c15U;
        quint64 mixed = g_state;
        mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9U;
        mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebU;
        return mixed ^ (mixed >> 31);
    }

    int below(int limit) { return static_cast<int>(next() % static_cast<quint64>(limit)); }
    bool oneIn(int count) { return below(count) == 0; }

    template <std::size_t count>
    QByteArray pick(const std::array<const char *, count> &words)
    {
        return words[next() % count];
    }

private:
    quint64 g_state;
};

// Streams that no record number reaches.
constexpr quint64 fieldStream = 1ULL << 40;
constexpr quint64 selectionStream = 1ULL << 41;
constexpr quint64 contentStream = 1ULL << 42;

constexpr std::array firstNames = {
    "Ada",    "Benno", "Carla",   "Dmitri", "Élise",  "Femi",  "Greta", "Hiro",   "Ines",   "Jakob", "Keziah",
    "Lorenz", "Maeve", "Nadja",   "Oskar",  "Paloma", "Quinn", "Rosa",  "Søren",  "Tamsin", "Udo",   "Vesna",
    "Walter", "Xenia", "Yolanda", "Zoltán", "Ainhoa", "Bryn",  "Conor", "Delphi", "Eryk",   "Fiona",
};
constexpr std::array lastNames = {
    "Abel",   "Bergström", "Castell", "Dunmore",  "Eberle",  "Farrow", "Grieve",    "Hollis",  "Iversen",
    "Juhász", "Kettering", "Lovell",  "Marchant", "Norberg", "Okafor", "Pritchard", "Quill",   "Ravn",
    "Sallow", "Thorne",    "Ulrich",  "Vance",    "Wendt",   "Yates",  "Zapata",    "Ashdown", "Böhm",
};
constexpr std::array trades = {"Bindery",
                               "Boatyard",
                               "Seeds",
                               "Optics",
                               "Lumber",
                               "Press",
                               "Bakery",
                               "Survey",
                               "Wells",
                               "Textiles",
                               "Clocks",
                               "& Daughters"};
constexpr std::array streets = {"Quarry Lane",
                                "Mill Street",
                                "Harbour Row",
                                "Alder Avenue",
                                "Foundry Path",
                                "Canal Road",
                                "Chapel Hill",
                                "Orchard Way",
                                "Station Road",
                                "Lower Meadow"};
constexpr std::array cities = {"Northcliff",
                               "Saltmarsh",
                               "Eastvale",
                               "Pinehurst",
                               "Old Ferry",
                               "Greyharbor",
                               "Millbrook",
                               "Larkspur",
                               "Stonegate",
                               "Winterport"};
constexpr std::array states = {"ME", "VT", "OR", "WA", "NM", "IA", "PA", "WV"};
constexpr std::array adjectives = {"late",
                                   "second",
                                   "broken",
                                   "painted",
                                   "quiet",
                                   "northern",
                                   "borrowed",
                                   "empty",
                                   "heavy",
                                   "small",
                                   "promised",
                                   "grey",
                                   "unsigned",
                                   "early"};
constexpr std::array nouns = {"invoice",
                              "window",
                              "parcel",
                              "ladder",
                              "catalogue",
                              "meeting",
                              "drawing",
                              "key",
                              "letter",
                              "boat",
                              "estimate",
                              "clock",
                              "garden",
                              "contract",
                              "café",
                              "map"};
constexpr std::array verbs = {"is due",
                              "was returned",
                              "came by post",
                              "needs a stamp",
                              "is in drawer 4",
                              "was mislaid",
                              "is paid",
                              "can wait",
                              "has two copies",
                              "was repaired",
                              "will be sold",
                              "is missing"};
constexpr std::array endings = {" on Monday",
                                " before the spring",
                                " as agreed",
                                "",
                                "",
                                " & nobody knows why",
                                " (again)",
                                " for <5 years",
                                " – at last",
                                " with thanks"};
constexpr std::array users = {"Ada Lindqvist", "Tom Berger", "Front Desk", "Night Shift"};

/// The parts in a row. Braces make them come from the generator in the order in which they are written, on
/// every compiler; the operands of + would not.
QByteArray joined(std::initializer_list<QByteArray> parts)
{
    QByteArray result;
    for (const QByteArray &part : parts)
        result += part;
    return result;
}

QByteArray number(Random &random, int digits)
{
    QByteArray result;
    for (int i = 0; i < digits; ++i)
        result += static_cast<char>('0' + random.below(10));
    return result;
}

QByteArray uuid(Random random)
{
    constexpr char digits[] = "0123456789ABCDEF";
    QByteArray text(36, '-');
    quint64 bits = 0;
    int left = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (i == 8 || i == 13 || i == 18 || i == 23)
            continue;
        if (left == 0) {
            bits = random.next();
            left = 16;
        }
        text[i] = digits[bits & 15];
        bits >>= 4;
        --left;
    }
    text[14] = '4';
    text[19] = digits[8 + random.below(4)];
    return text;
}

QByteArray amount(Random &random)
{
    if (random.oneIn(8))
        return {};
    const QByteArray units = QByteArray::number(random.below(20000));
    const QByteArray sum =
        (units.size() > 3 ? units.chopped(3) + ',' + units.last(3) : units) + '.' + number(random, 2);
    return random.oneIn(6) ? '-' + sum : '$' + sum;
}

QByteArray sentence(Random &random)
{
    if (random.oneIn(12)) {
        return joined(
            {"See https://www.example.com/notes/", number(random, 6), ".html?part=", number(random, 1), "."});
    }
    return joined({"The ",
                   random.pick(adjectives),
                   " ",
                   random.pick(nouns),
                   " ",
                   random.pick(verbs),
                   random.pick(endings),
                   "."});
}

/// An address block, an empty line, then sentences: 300 to 1,500 characters.
QByteArray freeformText(Random &random, const QByteArray &name, const QByteArray &city)
{
    const int wanted = 300 + random.below(1100);
    QByteArray text = joined({name,
                              "\n",
                              QByteArray::number(1 + random.below(9000)),
                              " ",
                              random.pick(streets),
                              "\n",
                              city,
                              ", ",
                              random.pick(states),
                              " ",
                              number(random, 5)});
    if (random.oneIn(3))
        text += '-' + number(random, 4);
    text += "\n\n";
    while (text.size() < wanted) {
        text += sentence(random);
        text += random.oneIn(4) ? '\n' : ' ';
    }
    text.back() = '\n';
    return text;
}

/// For who looks for a word that one record in ten thousand has.
QByteArray rareWord(quint64 number)
{
    return number % 10000 == 99 ? "Quixotry" : "";
}

QByteArray rtfCharacters(const QString &text)
{
    QByteArray result;
    for (const QChar character : text) {
        if (character == u'\n')
            result += "\\\n";
        else if (character == u'\\' || character == u'{' || character == u'}')
            result += '\\' + QByteArray(1, character.toLatin1());
        else if (character.unicode() < 0x80)
            result += character.toLatin1();
        else
            result += "\\uc0\\u" + QByteArray::number(character.unicode()) + ' ';
    }
    return result;
}

/// The text as RTF, here and there a sentence in bold or in colour.
QByteArray rtf(Random &random, const QByteArray &text)
{
    QByteArray result =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0\n"
        "{\\fonttbl\\f0\\fswiss\\fcharset0 Helvetica;\\f1\\fswiss\\fcharset0 Helvetica-Bold;}\n"
        "{\\colortbl;\\red255\\green255\\blue255;\\red160\\green20\\blue40;\\red0\\green70\\blue140;}\n"
        "\\pard\\tx560\\tx1120\\tx1680\\tx2240\\tx2800\\tx3360\\pardirnatural\\partightenfactor0\n\n"
        "\\f0\\fs24 \\cf0 ";
    const QStringList sentences = QString::fromUtf8(text).split(u". "_s);
    for (qsizetype i = 0; i < sentences.size(); ++i) {
        const QByteArray characters = rtfCharacters(sentences[i]) + (i + 1 < sentences.size() ? ". " : "");
        if (random.oneIn(3))
            result += "\n\\f1\\b \\cf2 " + characters + "\n\\f0\\b0 \\cf0 ";
        else
            result += characters;
    }
    return result + '}';
}

QByteArray littleEndian(quint32 value)
{
    QByteArray bytes(4, 0);
    qToLittleEndian(value, bytes.data());
    return bytes;
}

QByteArray length(const QByteArray &bytes)
{
    return littleEndian(static_cast<quint32>(bytes.size()));
}

/// A flat RTFD stream of the text alone and its file attributes.
QByteArray flatRtfd(const QByteArray &rtfText)
{
    const QByteArray name = "TXT.rtf";
    const QByteArray attributes = littleEndian(1) + length(name) + name + littleEndian(16) + littleEndian(0)
                                  + littleEndian(0666) + littleEndian(0) + littleEndian(0);
    const QByteArray textNode = littleEndian(1) + length(rtfText) + rtfText;
    const QByteArray attributesNode = littleEndian(1) + length(attributes) + attributes;
    return "rtfd" + littleEndian(0) + littleEndian(3) + littleEndian(2) + length(name) + name
           + littleEndian(1) + '.' + length(textNode) + length(attributesNode) + textNode + attributesNode;
}

} // namespace

QByteArray RecordMaker::identifier(quint64 number) const
{
    return uuid(Random(g_seed, number));
}

QByteArray RecordMaker::fieldIdentifier(std::size_t field) const
{
    return uuid(Random(g_seed, fieldStream + field));
}

bool RecordMaker::isSelected(quint64 number) const
{
    return !Random(g_seed, selectionStream + number).oneIn(50);
}

MadeRecord RecordMaker::record(quint64 number) const
{
    Random random(g_seed, contentStream + number);
    const QByteArray first = random.pick(firstNames);
    const QByteArray last = random.pick(lastNames);
    const QByteArray city = random.pick(cities);
    const QByteArray company =
        random.oneIn(3) ? QByteArray() : random.pick(lastNames) + ' ' + random.pick(trades);
    const QByteArray mailbox = QByteArray::number(number) + "@mail.example.org";

    MadeRecord made;
    if (g_size == RecordSize::Small) {
        made.fields[0] = last + ", " + first;
        made.text = sentence(random) + rareWord(number);
        made.fields[5] = amount(random);
        return made;
    }
    made.fields = {last + ", " + first,
                   company,
                   "(555) 555-" + bench::number(random, 4),
                   mailbox,
                   city,
                   amount(random),
                   random.oneIn(2) ? QByteArray() : "https://" + bench::number(random, 5) + ".example.com/"};
    made.text = freeformText(random, first + ' ' + last, city) + rareWord(number);
    if (g_size == RecordSize::Rich)
        made.textRTFD = flatRtfd(rtf(random, made.text));
    made.createdBy = random.pick(users);
    made.modifiedBy = random.pick(users);
    made.created = 1'200'000'000 + random.below(300'000'000);
    made.modified = made.created + random.below(100'000'000);
    made.viewed = made.modified + random.below(10'000'000);
    made.needsSync = random.oneIn(10);
    made.locked = random.oneIn(100);
    return made;
}

} // namespace tavrin::bench
