// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "text/Utf16Text.h"

#include "text/Folding.h"

#include <algorithm>

namespace tavrin::text {

Utf16Text::Utf16Text(QAnyStringView text)
{
    text.visit([this](auto view) {
        if constexpr (std::is_same_v<decltype(view), QStringView>) {
            g_view = view;
        } else if (isAscii(view) && view.size() <= g_units.capacity()) {
            g_units.resize(view.size());
            std::copy_n(view.data(), view.size(), g_units.data());
            g_view = QStringView(g_units.constData(), g_units.size());
        } else {
            g_string = view.toString();
            g_view = g_string;
        }
    });
}

} // namespace tavrin::text
