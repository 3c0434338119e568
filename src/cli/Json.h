// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/Output.h"
#include "plist/Value.h"

#include <QJsonObject>

namespace tavrin {

/// Data as base64, dates in ISO 8601, references of keyed archives as {"CF$UID": number}; numbers that JSON
/// does not know as null.
QJsonValue jsonOf(const plist::Value &value);
QJsonObject jsonOf(const plist::Dictionary &dictionary);

/// ISO 8601, UTC, whole seconds.
QString isoText(Date date);

void writeJson(Output &output, const QJsonObject &object);

/// A JSON array that is written as it comes, one element a line: a million of them need no memory.
class JsonArrayWriter
{
public:
    explicit JsonArrayWriter(Output &output) : g_output(output) { g_output.write("["); }
    JsonArrayWriter(const JsonArrayWriter &) = delete;
    JsonArrayWriter &operator=(const JsonArrayWriter &) = delete;
    /// Closes the array.
    ~JsonArrayWriter() { g_output.write("\n]"); }

    void append(const QJsonObject &element);

private:
    Output &g_output;
    bool g_empty = true;
};

} // namespace tavrin
