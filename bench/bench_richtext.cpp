// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-bench-richtext [MEGABYTES]: reads and writes RTF of some kinds; prints megabytes in a second of the
// processor, how many times a look at every byte that is, and the memory that the text takes beside the
// bytes. Without a size: 100.

#include "Measure.h"
#include "richtext/RtfReader.h"
#include "richtext/RtfWriter.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

using namespace tavrin;
using bench::Memory;
using bench::Seconds;

struct Kind
{
    const char *name;
    const char *piece; ///< The text is made of it.
};

constexpr Kind kinds[] = {
    {"prose",
     "\\pard\\tx560\\tx1120\\pardirnatural\\partightenfactor0\n\\f0\\fs24 \\cf0 The boat lay at the quay "
     "until the "
     "tide turned, and nobody who passed \\f1\\b could \\f0\\b0 say whose she was; the caf\\'e9 was "
     "closed.\\\n"
     "On the next morning she was gone, and so was the rope that had held her to the old iron ring.\\\n"},
    {"dense",
     "{\\b\\i\\cf2 bold}\\b0\\ul \\fs28 x\\ulnone\\cf3\\fs24  {\\f1\\cf0 y}\\super z\\nosupersub \\tab "},
    {"japanese", "\\f2\\'93\\'fa\\'96\\'7b\\'8c\\'ea\\uc0\\u26085 \\u26412 \\'82\\'cc\\'83A\\\n"},
    {"table",
     "\\itap1\\trowd\\taflags1\\trgaph108\\trleft-"
     "108\\clvertalc\\clbrdrt\\brdrs\\brdrw20\\cellx4320\\cellx8640\n"
     "\\pard\\intbl\\itap1\\pardeftab720\\cf0 first\\cell\\pard\\intbl\\itap1\\cf0 second\\cell\\row"},
};

QByteArray made(const Kind &kind, qsizetype size)
{
    QByteArray rtf =
        "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl\\f0\\fnil Helvetica;\\f1\\fnil Times;\\f2\\fcharset128 Osaka;}"
        "{\\colortbl;\\red255\\green255\\blue255;\\red1\\green2\\blue3;\\red9\\green8\\blue7;}";
    rtf.reserve(size + 1000);
    while (rtf.size() < size)
        rtf += kind.piece;
    return rtf + '}';
}

/// The least processor time of three.
template <typename Work>
double secondsOf(const Work &work)
{
    double least = 1e9;
    for (int round = 0; round < 3; ++round) {
        const Seconds start = Seconds::sinceStart();
        work();
        least = std::min(least, (Seconds::sinceStart() - start).processor);
    }
    return least;
}

void print(const char *job, const Kind &kind, qsizetype size, double seconds, double look)
{
    std::printf("%s %s: %.0f MB/s, %.3g x a look at every byte\n",
                job,
                kind.name,
                static_cast<double>(size) / seconds / 1e6,
                seconds / look);
}

bool measure(const Kind &kind, qsizetype size)
{
    const QByteArray rtf = made(kind, size);
    volatile bool found = false;
    const double look = secondsOf(
        [&] { found = std::memchr(rtf.constData(), '\1', static_cast<std::size_t>(rtf.size())) != nullptr; });
    const double before = Memory::now().anonymous;
    const Result<richtext::AttributedText> text = richtext::readRtf(rtf);
    if (!text)
        return false;
    const double memory = Memory::now().anonymous - before;
    print("read", kind, rtf.size(), secondsOf([&] { found = richtext::readRtf(rtf).has_value(); }), look);
    QByteArray written;
    const double writing = secondsOf([&] { written = richtext::writeRtf(*text); });
    print("write", kind, written.size(), writing, look);
    std::printf("memory %s: %.3g x the RTF\n", kind.name, memory / static_cast<double>(rtf.size()));
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    const qsizetype megabytes = argc > 1 ? std::max(1L, std::strtol(argv[1], nullptr, 10)) : 100;
    return std::ranges::all_of(kinds, [&](const Kind &kind) { return measure(kind, megabytes * 1'000'000); })
               ? 0
               : 1;
}
