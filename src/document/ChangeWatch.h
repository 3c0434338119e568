// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/DatafileDocument.h"

namespace tavrin {

/// Hears whether a document has changed since this was made. On the document's thread.
class ChangeWatch
{
public:
    explicit ChangeWatch(const DatafileDocument &document)
        : g_connection(QObject::connect(
            &document, &DatafileDocument::changed, &g_receiver, [this] { g_hasChanged = true; }))
    {}
    ChangeWatch(const ChangeWatch &) = delete;
    ChangeWatch &operator=(const ChangeWatch &) = delete;
    ~ChangeWatch() = default;

    bool hasChanged() const { return g_hasChanged; }
    /// What comes now is expected.
    void stop() { QObject::disconnect(g_connection); }

private:
    bool g_hasChanged = false;
    QObject g_receiver; ///< The connection goes with it.
    QMetaObject::Connection g_connection;
};

} // namespace tavrin
