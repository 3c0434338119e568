// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Environment.h"

#include <memory>

namespace tavrin {

/// An environment whose clock the test sets and whose identifiers count: "ID-1", "ID-2" and so on.
struct TestEnvironment : Environment
{
    TestEnvironment()
    {
        now = [seconds = seconds] { return Date{*seconds}; };
        identifier = [made = made] { return QStringLiteral("ID-%1").arg(++*made); };
        userName = QStringLiteral("Tester");
    }

    std::shared_ptr<double> seconds = std::make_shared<double>(1000); ///< Shared with copies of the clock.
    std::shared_ptr<int> made = std::make_shared<int>(0);             ///< Shared as the clock is.
};

} // namespace tavrin
