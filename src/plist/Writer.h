// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/Reader.h"
#include "plist/Value.h"

#include <QByteArray>
#include <QByteArrayView>

#include <functional>

namespace tavrin::plist {

/// Where a writer puts its bytes, in order and in pieces; false stops the writing.
using Sink = std::function<bool(QByteArrayView)>;

/// Writes the XML form, laid out as the format's first platform lays it out, in pieces of bounded size.
/// False when the sink refused. A lone surrogate is written as U+FFFD. Null values are left out.
bool writeXml(const Value &root, const Sink &sink);
QByteArray toXml(const Value &root);

/// The binary form, version 00.
QByteArray toBinary(const Value &root);

} // namespace tavrin::plist
