// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/SpellingDictionary.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <iconv.h>

#include <algorithm>
#include <hunspell/hunspell.hxx>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// In another encoding; empty when it cannot be said there.
std::string converted(const std::string &bytes, const char *from, const char *to)
{
    const iconv_t conversion = iconv_open(to, from);
    if (conversion == reinterpret_cast<iconv_t>(-1))
        return {};
    constexpr size_t mostBytesForOne = 4;
    std::string result(bytes.size() * mostBytesForOne + mostBytesForOne, '\0');
    char *in = const_cast<char *>(bytes.data());
    char *out = result.data();
    size_t inLeft = bytes.size();
    size_t outLeft = result.size();
    const bool failed = iconv(conversion, &in, &inLeft, &out, &outLeft) == static_cast<size_t>(-1);
    iconv_close(conversion);
    result.resize(failed ? 0 : result.size() - outLeft);
    return result;
}

constexpr auto utf8 = "UTF-8";

bool isApostrophe(QChar character)
{
    return character == u'\'' || character == u'’';
}

/// A run of characters without white space that is looked up as a whole, word by word, or not at all.
bool isAddress(QStringView run)
{
    // A point inside makes an address; one at its end closes a sentence.
    const qsizetype point = run.indexOf(u'.');
    return run.contains(u'@') || run.contains(u"://") || run.contains(u'/') || run.contains(u'\\')
           || (point > 0 && point + 1 < run.size() && run.at(point + 1).isLetterOrNumber());
}

void addWords(QStringView run, qsizetype offset, QList<SpellingWord> &words)
{
    for (qsizetype i = 0; i < run.size();) {
        if (!run.at(i).isLetterOrNumber()) {
            ++i;
            continue;
        }
        const qsizetype start = i;
        bool hasDigit = false;
        while (i < run.size()
               && (run.at(i).isLetterOrNumber() || run.at(i).isMark() || run.at(i).isSurrogate()
                   || (isApostrophe(run.at(i)) && i + 1 < run.size() && run.at(i + 1).isLetter()))) {
            hasDigit = hasDigit || run.at(i).isDigit();
            ++i;
        }
        if (!hasDigit && i - start > 1)
            words.append({offset + start, i - start});
    }
}

} // namespace

QList<SpellingWord> wordsToSpell(const QString &text)
{
    QList<SpellingWord> words;
    for (qsizetype i = 0; i < text.size();) {
        if (text.at(i).isSpace()) {
            ++i;
            continue;
        }
        const qsizetype start = i;
        while (i < text.size() && !text.at(i).isSpace())
            ++i;
        const QStringView run = QStringView(text).sliced(start, i - start);
        if (!isAddress(run))
            addWords(run, start, words);
    }
    return words;
}

SpellingDictionary::SpellingDictionary() = default;
SpellingDictionary::~SpellingDictionary() = default;

std::unique_ptr<SpellingDictionary> SpellingDictionary::load(const QString &path)
{
    if (!path.endsWith(".dic"_L1) || !QFile::exists(path))
        return nullptr;
    const QString rules = path.chopped(4) + u".aff"_s;
    if (!QFile::exists(rules))
        return nullptr;
    std::unique_ptr<SpellingDictionary> dictionary(new SpellingDictionary);
    dictionary->g_words =
        std::make_unique<Hunspell>(QFile::encodeName(rules).constData(), QFile::encodeName(path).constData());
    dictionary->g_encoding = QByteArray::fromStdString(dictionary->g_words->get_dict_encoding());
    const bool isKnown = !converted("a", utf8, dictionary->g_encoding.constData()).empty();
    return isKnown ? std::move(dictionary) : nullptr;
}

QStringList SpellingDictionary::systemFolders()
{
    QStringList folders;
    for (const QString &data : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        for (const auto *name : {"/hunspell", "/myspell", "/myspell/dicts"})
            folders.append(data + QString::fromLatin1(name));
    }
    return folders;
}

QString SpellingDictionary::pathFor(const QStringList &languages, const QStringList &folders)
{
    for (const QString &named : languages) {
        const QString language = QString(named).replace(u'-', u'_');
        const QString tongue = language.section(u'_', 0, 0);
        for (const QString &pattern : {language + u".dic"_s, tongue + u".dic"_s, tongue + u"_*.dic"_s}) {
            for (const QString &folder : folders) {
                const QStringList found = QDir(folder).entryList({pattern}, QDir::Files, QDir::Name);
                if (!found.isEmpty())
                    return folder + u'/' + found.front();
            }
        }
    }
    return {};
}

std::string SpellingDictionary::encoded(const QString &word) const
{
    // Dictionaries know the typewriter's apostrophe.
    const std::string bytes = QString(word).replace(u'’', u'\'').toStdString();
    return g_encoding == utf8 ? bytes : converted(bytes, utf8, g_encoding.constData());
}

QString SpellingDictionary::decoded(const std::string &word) const
{
    return QString::fromStdString(g_encoding == utf8 ? word : converted(word, g_encoding.constData(), utf8));
}

bool SpellingDictionary::isCorrect(const QString &word) const
{
    const std::string bytes = encoded(word);
    // What the dictionary's alphabet cannot write is of another language.
    return bytes.empty() || g_words->spell(bytes);
}

QStringList SpellingDictionary::suggestions(const QString &word) const
{
    QStringList suggestions;
    for (const std::string &suggestion : g_words->suggest(encoded(word)))
        suggestions.append(decoded(suggestion));
    return suggestions;
}

void SpellingDictionary::add(const QString &word)
{
    g_words->add(encoded(word));
}

} // namespace tavrin
