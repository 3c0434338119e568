// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unistd.h>

namespace tavrin {

/// While it lives, root acts as somebody whom permissions bind; anybody else stays as they are.
class UnprivilegedUser
{
public:
    static constexpr uid_t nobody = 65534;

    UnprivilegedUser() : g_wasRoot(geteuid() == 0), g_bound(!g_wasRoot || seteuid(nobody) == 0) {}
    UnprivilegedUser(const UnprivilegedUser &) = delete;
    UnprivilegedUser &operator=(const UnprivilegedUser &) = delete;
    ~UnprivilegedUser()
    {
        if (g_wasRoot && g_bound)
            static_cast<void>(seteuid(0));
    }

    /// False where the system does not let root become somebody else.
    bool isBoundByPermissions() const { return g_bound; }

private:
    bool g_wasRoot;
    bool g_bound;
};

} // namespace tavrin
