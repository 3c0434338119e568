// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/BackgroundWork.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <memory>

namespace tavrin {

class Preferences;
class SpellingDictionary;

/// The spelling of the person's language, for all windows: read on another thread when it is first wanted,
/// and turned off by a preference. Words that the person adds are kept in the preferences.
class Spelling : public QObject
{
    Q_OBJECT

public:
    /// The preferences outlive it.
    explicit Spelling(Preferences &preferences);
    ~Spelling() override;

    /// Begins to read the dictionary, unless spelling is off or that was done.
    void prepare();
    bool isOn() const;
    /// There is a dictionary, it is read, and spelling is on.
    bool isReady() const { return g_dictionary && isOn(); }

    /// True while it is not ready.
    bool isCorrect(const QString &word);
    /// At most so many, the best first. This may take some hundredths of a second.
    QStringList suggestions(const QString &word, qsizetype most) const;
    void addToPersonalDictionary(const QString &word);

Q_SIGNALS:
    /// Words may be right or wrong that were not before.
    void changed();

private:
    void take(std::unique_ptr<SpellingDictionary> dictionary);

    Preferences &g_preferences;
    std::unique_ptr<SpellingDictionary> g_dictionary;
    bool g_isPrepared = false;
    BackgroundWork g_reading;
    QHash<QString, bool> g_known; ///< What was looked up lately.
};

} // namespace tavrin
