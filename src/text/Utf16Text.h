// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAnyStringView>
#include <QString>
#include <QVarLengthArray>

namespace tavrin::text {

/// Any text in 16-bit units, of which short plain ones need no memory of their own. Outlived by the text.
class Utf16Text
{
public:
    explicit Utf16Text(QAnyStringView text);
    Utf16Text(const Utf16Text &) = delete;
    Utf16Text &operator=(const Utf16Text &) = delete;

    QStringView view() const { return g_view; }

private:
    QVarLengthArray<char16_t, 128> g_units;
    QString g_string;
    QStringView g_view;
};

} // namespace tavrin::text
