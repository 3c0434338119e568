// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <stdexcept>

namespace tavrin {

/// A fault of the program itself: an operation was called in a way its contract forbids.
///
/// The only exception of ours; the message names the operation. Nobody catches it to go on.
class InternalInconsistency : public std::logic_error
{
public:
    using std::logic_error::logic_error;
};

} // namespace tavrin
