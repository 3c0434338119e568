// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLoggingCategory>

namespace tavrin {

/// The one category of our diagnostics.
Q_DECLARE_LOGGING_CATEGORY(log)

} // namespace tavrin
