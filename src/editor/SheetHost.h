// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"

#include <memory>

namespace tavrin {

/// Where a controller puts its questions. begin() returns at once; the host shows one sheet at a time, in the
/// order in which they came, and owns each until it was answered.
class SheetHost
{
public:
    SheetHost() = default;
    SheetHost(const SheetHost &) = delete;
    SheetHost &operator=(const SheetHost &) = delete;
    virtual ~SheetHost() = default;

    virtual void begin(std::unique_ptr<QVSheetController> sheet) = 0;
};

} // namespace tavrin
