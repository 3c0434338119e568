// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/BackgroundSave.h"

#include <utility>

namespace tavrin {

void BackgroundSave::begin(Write write, Ended ended)
{
    g_work.begin([this, write = std::move(write)] { g_written = write(); },
                 [this, ended = std::move(ended)] { ended(g_written); });
}

} // namespace tavrin
