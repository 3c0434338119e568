// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/EditorFixture.h"
#include "editor/EditorSearchController.h"
#include "support/FakeFindView.h"

namespace tavrin {

using HeldKeys = EditorSearchController::HeldKeys;

/// A window with a find box on a datafile with the fields A and B.
class FindFixture : public EditorFixture
{
public:
    using EditorFixture::EditorFixture;

    void open(const QString &firstRecord = u"r0"_s)
    {
        preferences.registerDefaults(registeredDefaults());
        EditorFixture::open(firstRecord);
        search().attachView(find);
        find.focus.clear();
    }

    EditorSearchController &search() { return window->search(); }

    /// Where the search stands: record, then field or "text", then the range.
    QString place()
    {
        const auto range = [](const text::Match &match) {
            return u" %1+%2"_s.arg(match.start).arg(match.length);
        };
        QString place = shown();
        for (int field = 0; field < fields.size(); ++field) {
            for (const text::Match &hit : search().finding().hitsInField(field))
                place += u' ' + fields.at(field) + range(hit);
        }
        for (const text::Match &hit : find.freeformHits)
            place += u" text"_s + range(hit);
        return place;
    }

    QString forward(const QString &text, HeldKeys keys = {})
    {
        search().setFindText(text);
        search().forwardSearch(keys);
        return place();
    }
    QString reverse(const QString &text, HeldKeys keys = {})
    {
        search().setFindText(text);
        search().reverseSearch(keys);
        return place();
    }

    FakeFindView find{view};
};

} // namespace tavrin
