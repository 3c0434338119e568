// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/Output.h"

namespace tavrin {

namespace {

constexpr qsizetype pieceSize = 65'536;

} // namespace

void Output::write(QByteArrayView bytes)
{
    g_pending.append(bytes);
    if (g_pending.size() >= pieceSize)
        flush();
}

void Output::writeLine(const QString &line)
{
    write(line.toUtf8());
    write("\n");
}

void Output::message(const QString &text)
{
    flush();
    g_messages.write("tavrin-cli: " + text.toUtf8() + '\n');
}

bool Output::flush()
{
    // After a failure nothing more is written: a result with a gap is worse than one that ends.
    if (!g_failed && !g_pending.isEmpty())
        g_failed = g_result.write(g_pending) != g_pending.size();
    g_pending.clear();
    return !g_failed;
}

} // namespace tavrin
