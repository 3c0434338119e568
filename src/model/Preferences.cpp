// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/Preferences.h"

#include "base/DurableFile.h"
#include "base/Log.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr int writeDelay = 1000; // milliseconds
constexpr int lockPatience = 2000;

} // namespace

Preferences::Preferences(const QString &path, QObject *parent) : QObject(parent), g_path(path)
{
    g_writeTimer.setSingleShot(true);
    g_writeTimer.setInterval(writeDelay);
    connect(&g_writeTimer, &QTimer::timeout, this, [this] {
        if (const auto written = synchronize(); !written)
            qCWarning(log, "Preferences were not written: %ls", qUtf16Printable(written.error().detail));
    });
    const auto read = readFile();
    if (read)
        g_stored = *read;
    else
        qCWarning(log, "Preferences were not read: %ls", qUtf16Printable(read.error().detail));
}

Preferences::~Preferences()
{
    const QSignalBlocker quiet(this);
    if (g_changedKeys.isEmpty())
        return;
    if (const auto written = synchronize(); !written)
        qCWarning(log, "Preferences were not written: %ls", qUtf16Printable(written.error().detail));
}

void Preferences::registerDefaults(const plist::Dictionary &defaults)
{
    defaults.forEach(
        [this](const QString &key, const plist::Value &value) { g_registered.insert(key, value); });
}

plist::Value Preferences::objectForKey(const QString &key) const
{
    const plist::Value *stored = g_stored.find(key);
    return stored ? *stored : g_registered.value(key);
}

bool Preferences::boolForKey(const QString &key) const
{
    return objectForKey(key).toBool();
}

qint64 Preferences::integerForKey(const QString &key) const
{
    return objectForKey(key).toInt64();
}

QString Preferences::stringForKey(const QString &key) const
{
    return objectForKey(key).toText();
}

plist::Array Preferences::arrayForKey(const QString &key) const
{
    const plist::Value value = objectForKey(key);
    return value.isArray() ? *value.array() : plist::Array();
}

void Preferences::setObject(const plist::Value &value, const QString &key)
{
    if (g_stored.value(key) == value)
        return;
    g_stored.insert(key, value);
    g_changedKeys.insert(key);
    // Without an event loop nothing would ever ring: synchronize() or the end writes then.
    if (!g_path.isEmpty() && QCoreApplication::instance() && !g_writeTimer.isActive())
        g_writeTimer.start();
    Q_EMIT changed(key);
}

void Preferences::remove(const QString &key)
{
    setObject({}, key);
}

Result<> Preferences::synchronize()
{
    if (g_path.isEmpty())
        return {};
    const bool writing = !g_changedKeys.isEmpty();
    QLockFile lock(g_path + u".lock"_s);
    if (writing) {
        QDir().mkpath(QFileInfo(g_path).absolutePath());
        // Where locking is impossible the merge is still right for all but a narrow moment.
        lock.tryLock(lockPatience);
    }
    const auto read = readFile();
    if (!read)
        return read.error();
    takeOver(*read);
    if (!writing)
        return {};
    if (const auto written = writeDurably(g_path, plist::toBinary(g_stored)); !written)
        return written.error();
    g_changedKeys.clear();
    g_writeTimer.stop();
    return {};
}

Result<plist::Dictionary> Preferences::readFile()
{
    if (g_path.isEmpty())
        return plist::Dictionary();
    const auto bytes = readWhole(g_path);
    if (!bytes && bytes.error().kind == Error::Kind::NotFound)
        return plist::Dictionary();
    if (!bytes)
        return bytes.error();
    auto read = plist::readDictionary(*bytes);
    if (read)
        return read;
    const QString aside = g_path + u".damaged"_s;
    QFile::remove(aside);
    if (!QFile::rename(g_path, aside))
        return read.error();
    qCWarning(log, "Damaged preferences were moved aside: %ls", qUtf16Printable(read.error().detail));
    return plist::Dictionary();
}

void Preferences::takeOver(const plist::Dictionary &read)
{
    plist::Dictionary merged = read;
    for (const QString &key : g_changedKeys)
        merged.insert(key, g_stored.value(key));
    const plist::Dictionary before = std::exchange(g_stored, merged);

    QStringList different;
    merged.forEach([&](const QString &key, const plist::Value &value) {
        if (before.value(key) != value)
            different.append(key);
    });
    before.forEach([&](const QString &key, const plist::Value &) {
        if (!merged.contains(key))
            different.append(key);
    });
    for (const QString &key : different)
        Q_EMIT changed(key);
}

} // namespace tavrin
