// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>

#include <algorithm>
#include <memory>
#include <utility>

namespace tavrin::richtext {

/// A format that any number of runs, in any number of texts, have together; never changed, so it may be
/// shared.
template <typename Format>
class SharedFormat
{
public:
    SharedFormat() : g_format(plain()) {}
    explicit SharedFormat(Format format) : g_format(std::make_shared<const Format>(std::move(format))) {}

    const Format &operator*() const { return *g_format; }
    const Format *operator->() const { return g_format.get(); }

    friend bool operator==(const SharedFormat &one, const SharedFormat &other)
    {
        return one.g_format == other.g_format || *one.g_format == *other.g_format;
    }

private:
    static const std::shared_ptr<const Format> &plain()
    {
        static const auto format = std::make_shared<const Format>();
        return format;
    }

    std::shared_ptr<const Format> g_format;
};

template <typename Format>
struct FormatRun
{
    qsizetype end = 0; ///< It begins where the one before it ends.
    SharedFormat<Format> format;

    friend bool operator==(const FormatRun &, const FormatRun &) = default;
};

/// Which format holds from where to where. No run is empty, and neighbours differ.
template <typename Format>
class FormatRuns
{
public:
    using Run = FormatRun<Format>;

    FormatRuns() = default;
    FormatRuns(qsizetype length, const SharedFormat<Format> &format) { append(length, format); }

    const QList<Run> &runs() const { return g_runs; }
    qsizetype size() const { return g_runs.isEmpty() ? 0 : g_runs.constLast().end; }

    /// The number of the run that holds there.
    qsizetype indexAt(qsizetype position) const
    {
        return std::ranges::upper_bound(g_runs, position, {}, &Run::end) - g_runs.cbegin();
    }
    const SharedFormat<Format> &at(qsizetype position) const { return g_runs.at(indexAt(position)).format; }

    void append(qsizetype length, const SharedFormat<Format> &format)
    {
        if (length <= 0)
            return;
        const qsizetype end = size() + length;
        if (!g_runs.isEmpty() && g_runs.constLast().format == format)
            g_runs.last().end = end;
        else
            g_runs.append({end, format});
    }

    FormatRuns part(qsizetype position, qsizetype length) const
    {
        FormatRuns part;
        part.appendPart(*this, position, length);
        return part;
    }

    void replace(qsizetype position, qsizetype length, const FormatRuns &by)
    {
        if (position == size()) {
            appendPart(FormatRuns(by), 0, by.size());
            return;
        }
        FormatRuns replaced;
        replaced.g_runs.reserve(g_runs.size() + by.g_runs.size() + 1);
        replaced.appendPart(*this, 0, position);
        replaced.appendPart(by, 0, by.size());
        replaced.appendPart(*this, position + length, size() - position - length);
        *this = std::move(replaced);
    }

    /// Lets `change` change each format that holds there.
    template <typename Change>
    void apply(qsizetype position, qsizetype length, const Change &change)
    {
        FormatRuns changed;
        qsizetype from = 0;
        const FormatRuns before = part(position, length);
        for (const Run &run : before.g_runs) {
            Format format = *run.format;
            change(format);
            changed.append(run.end - from, SharedFormat<Format>(std::move(format)));
            from = run.end;
        }
        replace(position, length, changed);
    }

    friend bool operator==(const FormatRuns &, const FormatRuns &) = default;

private:
    void appendPart(const FormatRuns &other, qsizetype position, qsizetype length)
    {
        const qsizetype end = position + length;
        for (qsizetype i = other.indexAt(position); position < end; ++i) {
            const Run &run = other.g_runs.at(i);
            append(std::min(run.end, end) - position, run.format);
            position = run.end;
        }
    }

    QList<Run> g_runs;
};

} // namespace tavrin::richtext

// Texts have many runs, and lists of such elements grow in place.
template <typename Format>
Q_DECLARE_TYPEINFO_BODY(tavrin::richtext::FormatRun<Format>, Q_RELOCATABLE_TYPE);
