// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/ContentLongWork.h"

#include "editor/EditorChanges.h"
#include "editor/EditorWindowController.h"
#include "editor/LongWork.h"

#include <utility>

namespace tavrin {

namespace {

class ContentLongWork : public LongWork
{
public:
    ContentLongWork(QString title, std::shared_ptr<ContentWork> content)
        : g_title(std::move(title))
        , g_content(std::move(content))
    {}

    QString title() const override { return g_title; }
    void run(Progress &progress) override { g_content->run(progress); }
    const std::shared_ptr<ContentWork> &content() const { return g_content; }

private:
    QString g_title;
    std::shared_ptr<ContentWork> g_content;
};

} // namespace

void beginContentWork(EditorWindowController &window,
                      WorkHost &host,
                      const QString &title,
                      const MakeContentWork &make,
                      const std::function<void(const ContentWork &work, bool changed)> &ended)
{
    auto work = std::make_unique<ContentLongWork>(title, make());
    const auto finish = [&window, &host, title, make, ended, work = work.get()] {
        // What was typed since the work began is stored before the record is shown anew.
        if (!window.leaveEditing())
            return;
        const std::shared_ptr<ContentWork> content = work->content();
        Result<std::unique_ptr<SteppedChange>> change = content->takeChange(window.document());
        if (!change && change.error().kind == Error::Kind::Refused)
            beginContentWork(window, host, title, make, ended); // With the records as they are now.
        else if (change && !*change)
            ended(*content, false);
        else if (change)
            window.changes().make(*std::move(change), [&window, content, ended](bool isMade) {
                if (isMade)
                    ended(*content, true);
                else
                    window.loadCurrentRecord();
            });
    };
    QObject::connect(work.get(), &LongWork::ended, &window, finish);
    host.begin(std::move(work));
}

} // namespace tavrin
