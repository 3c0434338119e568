// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "RichTextFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    tavrin::richtext::fuzz::checkRichText({bytes, static_cast<qsizetype>(size)});
    return 0;
}
