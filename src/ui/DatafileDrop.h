// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class QMimeData;

namespace tavrin {

/// The paths of the datafiles among what is dropped on a window.
QStringList droppedDatafiles(const QMimeData &data);

} // namespace tavrin
