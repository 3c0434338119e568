// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/ContentWork.h"
#include "document/FieldTotals.h"
#include "editor/FormPreview.h"

#include <functional>

namespace tavrin {

/// What a command would do to the selected records: how much, and the first contents before and after.
class ContentLook : public FormPreview::Look
{
public:
    /// Says in words what would be done.
    using Summary = std::function<QString(const ContentWork &work)>;

    /// Without a summary, how much would change is said.
    ContentLook(std::shared_ptr<ContentWork> work, const DatafileDocument &document, Summary summary)
        : g_content(std::move(work))
        , g_document(document)
        , g_summary(std::move(summary))
    {}

    void run(Progress &progress) override { g_content->run(progress); }
    FormSheetController::Preview preview() const override;

private:
    std::shared_ptr<ContentWork> g_content;
    const DatafileDocument &g_document;
    Summary g_summary;
};

/// What the numbers in a field come to.
class TotalLook : public FormPreview::Look
{
public:
    TotalLook(const DatafileDocument &document, const QString &field)
        : g_totals(document, {field})
        , g_document(document)
    {}

    void run(Progress &progress) override { g_totals.run(progress); }
    FormSheetController::Preview preview() const override;

private:
    FieldTotals g_totals;
    const DatafileDocument &g_document;
};

} // namespace tavrin
