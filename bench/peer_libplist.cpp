// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-peer-libplist JOB FILE ROUNDS: the same jobs as tavrin-bench's, done with libplist.

#include "Measure.h"

#include <plist/plist.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

using namespace tavrin::bench;

/// A tree as libplist holds it, freed with this object.
class Tree
{
public:
    Tree() = default;
    Tree(const Tree &) = delete;
    Tree &operator=(const Tree &) = delete;
    ~Tree() { clear(); }

    bool read(const std::string &path)
    {
        const auto size = std::filesystem::file_size(path);
        std::string bytes(size, '\0');
        std::ifstream(path, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(size));
        plist_from_xml(bytes.data(), static_cast<uint32_t>(size), &g_root);
        return g_root != nullptr;
    }

    bool write(const std::string &path) const
    {
        char *text = nullptr;
        uint32_t length = 0;
        plist_to_xml(g_root, &text, &length);
        const bool written = text != nullptr && writeAndRename(path, {text, length});
        plist_to_xml_free(text);
        return written;
    }

    bool clear()
    {
        plist_free(g_root);
        g_root = nullptr;
        return true;
    }

private:
    plist_t g_root = nullptr;
};

bool run(const std::string &job, const std::string &path, int rounds)
{
    Tree tree;
    if (job == "open")
        return timeInTurn(rounds, {{"open", [&] { return tree.read(path); }, [&] { return tree.clear(); }}});
    const Memory before = Memory::now();
    if (!tree.read(path))
        return false;
    if (job == "memory") {
        printMemory(path, static_cast<double>(std::filesystem::file_size(path)), before);
        return true;
    }
    const std::string copy = path + ".libplist";
    const auto save = [&] { return tree.write(copy); };
    const bool saved = job == "save" && save() && timeInTurn(rounds, {{"save", save}});
    std::filesystem::remove(copy);
    return saved;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4 || !run(argv[1], argv[2], std::atoi(argv[3]))) {
        std::fprintf(stderr, "usage: tavrin-peer-libplist open|memory|save FILE ROUNDS\n");
        return 1;
    }
    return 0;
}
