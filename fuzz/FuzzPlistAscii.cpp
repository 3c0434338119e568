// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "PlistFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    tavrin::plist::fuzz::checkAscii({bytes, static_cast<qsizetype>(size)});
    return 0;
}
