// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"

#include <QByteArrayView>

namespace tavrin::plist {

/// The refusal of bytes that are not a property list. The reason goes to the log, untranslated.
Error corrupt(const QString &detail);

/// As corrupt(), naming the line (from 1) of the position in the text.
Error corruptAtLine(QByteArrayView text, qsizetype position, const char *reason);

/// As corrupt(), naming the byte offset.
Error corruptAtOffset(quint64 offset, const char *reason);

} // namespace tavrin::plist
