// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

namespace tavrin {

/// Where a command puts what it has to say: its result, for programs and people, and messages, for people.
///
/// The result is collected and written in large pieces; flush() writes the rest.
class Output
{
public:
    /// Both devices outlive it.
    Output(QIODevice &result, QIODevice &messages) : g_result(result), g_messages(messages) {}

    void write(QByteArrayView bytes);
    void writeLine(const QString &line);
    /// What was written before stands before it, where both go to one terminal.
    void message(const QString &text);

    /// False when the system has refused any part of the result.
    bool flush();

private:
    QIODevice &g_result;
    QIODevice &g_messages;
    QByteArray g_pending;
    bool g_failed = false;
};

} // namespace tavrin
