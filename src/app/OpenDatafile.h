// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/DatafileWindow.h"
#include "document/DatafileDocument.h"

#include <memory>

namespace tavrin {

/// A document and its window, which goes before it.
struct OpenDatafile
{
    std::unique_ptr<DatafileDocument> document;
    std::unique_ptr<DatafileWindow> window;
    bool hasUnsavedCorrection = false; ///< A corrected catalog still has to be saved.
};

/// A document that was read, but is not shown before the person has answered whether to correct its catalog.
struct WaitingDatafile
{
    std::unique_ptr<DatafileDocument> document;
    QString firstRecord;
};

} // namespace tavrin
