// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QLocale>
#include <QStringList>

#include <memory>

class Hunspell;

namespace tavrin {

/// A language's words, as Hunspell reads them. Used by one thread at a time.
class SpellingDictionary
{
public:
    /// Null when the files cannot be read or are in an encoding that nobody knows. `path` is that of the
    /// words
    /// (".dic"); the rules (".aff") stand beside it.
    static std::unique_ptr<SpellingDictionary> load(const QString &path);
    ~SpellingDictionary();

    /// The words of the first of these languages for which there are any in these folders: of the place if
    /// possible, else of the language anywhere. Empty when there are none.
    static QString pathFor(const QStringList &languages, const QStringList &folders);
    /// Where the system keeps dictionaries.
    static QStringList systemFolders();

    bool isCorrect(const QString &word) const;
    QStringList suggestions(const QString &word) const;
    /// Until the dictionary goes.
    void add(const QString &word);

private:
    SpellingDictionary();
    std::string encoded(const QString &word) const;
    QString decoded(const std::string &word) const;

    std::unique_ptr<Hunspell> g_words;
    QByteArray g_encoding;
};

/// Part of a text.
struct SpellingWord
{
    qsizetype start = 0;
    qsizetype length = 0;

    friend bool operator==(const SpellingWord &, const SpellingWord &) = default;
};

/// The words of a text that can be looked up: addresses, and what has digits in it, are no words.
QList<SpellingWord> wordsToSpell(const QString &text);

} // namespace tavrin
