// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin::bench {

/// What work took: of all processors together, and on the clock.
struct Seconds
{
    double processor = 0;
    double elapsed = 0;

    /// Of this process so far; only differences mean something.
    static Seconds sinceStart();
    Seconds operator-(const Seconds &other) const
    {
        return {processor - other.processor, elapsed - other.elapsed};
    }
};

/// Bytes of memory of this process.
struct Memory
{
    double anonymous = 0; ///< Its own, without the files that it has mapped.
    double peak = 0;      ///< The most that was resident at one time.

    static Memory now();
};

/// True when the process has mapped the file.
bool isMapped(const std::string &path);

/// Something to be timed, and what is done before each time and does not count. False means a failure.
struct Work
{
    const char *name;
    std::function<bool()> run;
    std::function<bool()> prepare = [] { return true; };
};

/// Does the works in turn, so that they meet the same load, as often as said; prints each one's name and
/// medians. False, and a message, when one failed.
bool timeInTurn(int rounds, const std::vector<Work> &works);

/// The least that a durable save can cost: one write, a flush to the disk, a rename.
bool writeAndRename(const std::string &path, std::string_view bytes);

/// Prints the name, the memory that opening took beside the file's bytes as a share of them, and the peak in
/// bytes. The bytes themselves count neither when they are held in memory nor when they are mapped.
void printMemory(const std::string &path, double fileSize, const Memory &before);

} // namespace tavrin::bench
