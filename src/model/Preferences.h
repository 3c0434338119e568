// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "plist/Value.h"

#include <QObject>
#include <QSet>
#include <QTimer>

namespace tavrin {

/// The person's preferences: a property-list file over a layer of registered defaults.
///
/// A key may be any text. Changes are written a second later, when the object goes, and by synchronize().
/// Two programs may use one file: each writes only the keys that it changed itself. A damaged file is
/// moved aside, under its name and ".damaged", and the defaults hold.
class Preferences : public QObject
{
    Q_OBJECT

public:
    /// The path of the file; empty for preferences that live in memory only.
    explicit Preferences(const QString &path = {}, QObject *parent = nullptr);
    ~Preferences() override;

    /// What counts for keys that the person has not set. Never stored; a later call overrides.
    void registerDefaults(const plist::Dictionary &defaults);

    /// What was set, else what was registered, else null.
    plist::Value objectForKey(const QString &key) const;
    bool boolForKey(const QString &key) const;
    qint64 integerForKey(const QString &key) const;
    QString stringForKey(const QString &key) const;     ///< Null when there is no text or number.
    plist::Array arrayForKey(const QString &key) const; ///< Empty when there is no array.
    /// Whether the person has set it.
    bool isSet(const QString &key) const { return g_stored.contains(key); }

    /// A null value removes the key.
    void setObject(const plist::Value &value, const QString &key);
    /// What was registered counts again.
    void remove(const QString &key);

    /// Takes over what others wrote and writes what was changed here.
    Result<> synchronize();

Q_SIGNALS:
    /// Here or by another program.
    void changed(const QString &key);

private:
    Result<plist::Dictionary> readFile();
    void takeOver(const plist::Dictionary &read);

    QString g_path;
    plist::Dictionary g_registered;
    plist::Dictionary g_stored;
    QSet<QString> g_changedKeys; ///< Changed here and not yet written.
    QTimer g_writeTimer;
};

/// The defaults of every preference that has one.
plist::Dictionary registeredDefaults();

/// The titles ("Dr.", "Jr.") that are no part of a name when records are sorted by names. Without preferences
/// the usual ones.
QStringList sortTitleList(const Preferences *preferences);
void setSortTitleList(const QStringList &titles, Preferences &preferences);

} // namespace tavrin
