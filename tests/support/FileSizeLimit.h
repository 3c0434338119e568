// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <sys/resource.h>

#include <csignal>

namespace tavrin {

/// While it lives, the system refuses to write any file of this process beyond so many bytes: a real failure
/// of a real write at a place of the test's choice.
///
/// Output of the test itself may be refused too, so compare after it is gone.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qsizetype bytes)
        : g_oldHandler(std::signal(SIGXFSZ, SIG_IGN)) // a failing write, not the end of the process
    {
        getrlimit(RLIMIT_FSIZE, &g_oldLimit);
        rlimit limit = g_oldLimit;
        limit.rlim_cur = static_cast<rlim_t>(bytes);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &g_oldLimit);
        std::signal(SIGXFSZ, g_oldHandler);
    }

private:
    rlimit g_oldLimit = {};
    void (*g_oldHandler)(int) = SIG_DFL;
};

} // namespace tavrin
