// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/Spelling.h"

#include "editor/SpellingDictionary.h"
#include "model/Preferences.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr auto offKey = "GeneralSpellCheckerOff"_L1;
constexpr auto wordsKey = "SpellingPersonalWords"_L1;

} // namespace

Spelling::Spelling(Preferences &preferences) : g_preferences(preferences)
{
    connect(&g_preferences, &Preferences::changed, this, [this](const QString &key) {
        if (key != offKey)
            return;
        prepare();
        Q_EMIT changed();
    });
}

Spelling::~Spelling() = default;

bool Spelling::isOn() const
{
    return !g_preferences.boolForKey(offKey);
}

void Spelling::prepare()
{
    if (!isOn() || g_isPrepared)
        return;
    g_isPrepared = true;
    QStringList languages = QLocale::system().uiLanguages();
    // A system that was told no language speaks this one.
    if (languages.isEmpty() || languages.front() == "C"_L1)
        languages = {u"en-US"_s};
    const auto read = std::make_shared<std::unique_ptr<SpellingDictionary>>();
    const auto load = [read, languages] {
        *read = SpellingDictionary::load(
            SpellingDictionary::pathFor(languages, SpellingDictionary::systemFolders()));
    };
    g_reading.begin(load, [this, read] { take(std::move(*read)); });
}

void Spelling::take(std::unique_ptr<SpellingDictionary> dictionary)
{
    g_dictionary = std::move(dictionary);
    if (!g_dictionary)
        return;
    for (const plist::Value &word : g_preferences.arrayForKey(wordsKey))
        g_dictionary->add(word.toText());
    Q_EMIT changed();
}

bool Spelling::isCorrect(const QString &word)
{
    if (!isReady())
        return true;
    if (const auto known = g_known.constFind(word); known != g_known.cend())
        return *known;
    constexpr qsizetype mostKept = 20000;
    if (g_known.size() >= mostKept)
        g_known.clear();
    const bool correct = g_dictionary->isCorrect(word);
    g_known.insert(word, correct);
    return correct;
}

QStringList Spelling::suggestions(const QString &word, qsizetype most) const
{
    return isReady() ? g_dictionary->suggestions(word).mid(0, most) : QStringList();
}

void Spelling::addToPersonalDictionary(const QString &word)
{
    if (!g_dictionary)
        return;
    plist::Array words = g_preferences.arrayForKey(wordsKey);
    words.append(word);
    g_preferences.setObject(words, wordsKey);
    g_dictionary->add(word);
    g_known.clear();
    Q_EMIT changed();
}

} // namespace tavrin
