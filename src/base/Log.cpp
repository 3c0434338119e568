// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/Log.h"

namespace tavrin {

Q_LOGGING_CATEGORY(log, "tavrin", QtInfoMsg)

} // namespace tavrin
