// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QStringList>

#include <memory>

class QLocalServer;

namespace tavrin {

/// One running program for each person: a second start hands its datafiles over and ends.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    /// `name` tells the person's program apart from others', and a test's from both.
    explicit SingleInstance(const QString &name);
    ~SingleInstance() override;

    /// The name for this person and this display session.
    static QString defaultName();

    /// Hands the absolute paths to a program that runs already. False: there is none, and this one listens
    /// now.
    bool handOver(const QStringList &paths);

Q_SIGNALS:
    /// Another start asks for these datafiles; an empty list only asks for attention.
    void openRequested(const QStringList &paths);

private:
    void receive();

    QString g_name;
    std::unique_ptr<QLocalServer> g_server;
};

} // namespace tavrin
