// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/LongWork.h"

namespace tavrin {

LongWork::LongWork() = default;

LongWork::~LongWork() = default;

} // namespace tavrin
