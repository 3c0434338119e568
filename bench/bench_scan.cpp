// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-bench-scan FILE: seconds for looking at every byte, in ways that find the same.

#include "MappedFile.h"
#include "Measure.h"
#include "plist/ByteScan.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace {

using namespace tavrin;

struct FindNothing
{
    bool operator()(QByteArrayView bytes) const
    {
        return std::memchr(bytes.data(), '\1', static_cast<std::size_t>(bytes.size())) != nullptr;
    }
};

struct JumpToMarkup
{
    qsizetype operator()(QByteArrayView bytes) const { return bench::countOfMarkup(bytes); }
};

constexpr qsizetype blocksAtOnce = 256;

/// Calls `visit` with the place and the masks of every block.
template <typename Visit>
void classifyAll(QByteArrayView bytes, const Visit &visit)
{
    std::array<plist::ByteMasks, blocksAtOnce> masks{};
    const qsizetype blocks = bytes.size() / 64;
    for (qsizetype block = 0; block < blocks; block += blocksAtOnce) {
        const qsizetype count = std::min(blocksAtOnce, blocks - block);
        plist::classify(bytes.data() + block * 64, count, masks.data());
        for (qsizetype i = 0; i < count; ++i)
            visit((block + i) * 64, masks[static_cast<std::size_t>(i)]);
    }
}

struct Classify
{
    quint64 operator()(QByteArrayView bytes) const
    {
        quint64 sum = 0;
        classifyAll(bytes, [&sum](qsizetype, const plist::ByteMasks &masks) { sum ^= masks.markup; });
        return sum;
    }
};

/// Goes to every tag too, as a reader would.
struct ClassifyMarkup
{
    qsizetype operator()(QByteArrayView bytes) const
    {
        qsizetype sum = 0;
        classifyAll(bytes, [&sum](qsizetype place, const plist::ByteMasks &masks) {
            for (quint64 bits = masks.markup; bits != 0; bits &= bits - 1)
                sum += place + std::countr_zero(bits);
        });
        return sum;
    }
};

struct Validate
{
    bool operator()(QByteArrayView bytes) const { return plist::isValidUtf8(bytes); }
};

struct ValidateByQt
{
    bool operator()(QByteArrayView bytes) const { return bytes.isValidUtf8(); }
};

} // namespace

int main(int argc, char **argv)
{
    // Mapped, and touched, before the clock starts: what is measured is the scan, not the operating system.
    const bench::MappedFile file(QString::fromLocal8Bit(argc == 2 ? argv[1] : ""));
    const QByteArrayView bytes = file.bytes();
    if (bytes.isEmpty() || !bytes.isValidUtf8())
        return 1;
    // Kept, so that the compiler leaves nothing out.
    volatile bool found = false;
    const auto work = [&](const char *name, const auto &scan) {
        return bench::Work{name, [&found, bytes, scan] {
                               found = scan(bytes) != 0;
                               return true;
                           }};
    };
    return bench::timeInTurn(15,
                             {work("memchr-nothing-found", FindNothing{}),
                              work("memchr-tag-to-tag", JumpToMarkup{}),
                              work("classify", Classify{}),
                              work("classify-tag-to-tag", ClassifyMarkup{}),
                              work("valid-UTF-8", Validate{}),
                              work("valid-UTF-8-by-Qt", ValidateByQt{})})
               ? 0
               : 1;
}
