// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/ContentWork.h"
#include "editor/LongWork.h"

#include <memory>
#include <utility>

namespace tavrin {

/// A change of the contents of many records as a window does it.
class ContentLongWork : public LongWork
{
public:
    ContentLongWork(QString title, std::shared_ptr<ContentWork> work)
        : g_title(std::move(title))
        , g_content(std::move(work))
    {}

    QString title() const override { return g_title; }
    void run(Progress &progress) override { g_content->run(progress); }
    ContentWork &content() { return *g_content; }

private:
    QString g_title;
    std::shared_ptr<ContentWork> g_content;
};

} // namespace tavrin
