// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/ContentWork.h"

#include <functional>
#include <memory>

namespace tavrin {

class EditorWindowController;
class WorkHost;

/// Makes the work anew whenever the records changed before it was applied.
using MakeContentWork = std::function<std::shared_ptr<ContentWork>()>;

/// Has contents of a window's records changed while the window goes on. `ended` is told when that is done,
/// and whether there was anything to change; nobody is told, and nothing changed, when it was cancelled.
/// Whoever is told shows the record anew.
void beginContentWork(EditorWindowController &window,
                      WorkHost &host,
                      const QString &title,
                      const MakeContentWork &make,
                      const std::function<void(const ContentWork &work, bool changed)> &ended);

} // namespace tavrin
