// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/FieldKey.h"
#include "model/TextView.h"
#include "plist/Value.h"

#include <functional>

namespace tavrin {

namespace text {
class TextSieve;
}

using FieldVisitor = std::function<void(QByteArrayView identifier, const TextView &content)>;

/// The records of a datafile as it was read, each at a place from 0 on.
///
/// Immutable, and so usable on any thread. Nothing is kept of what is read from it.
class RecordSource
{
public:
    RecordSource() = default;
    RecordSource(const RecordSource &) = delete;
    RecordSource &operator=(const RecordSource &) = delete;
    virtual ~RecordSource() = default;

    virtual quint32 count() const = 0;

    /// Whether the record cannot stay as it is stored: it lacks a key, or its form is too unusual for the
    /// operations below.
    virtual bool needsOpening(quint32 place) const = 0;

    /// The record whole.
    virtual plist::Dictionary dictionary(quint32 place) const = 0;
    /// What stands under one of the record's keys; null when nothing does.
    virtual plist::Value value(quint32 place, const QString &key) const = 0;
    /// As RecordData::fieldValue() and textString() give them.
    virtual TextView fieldValue(quint32 place, const FieldKey &field) const = 0;
    virtual TextView textString(quint32 place) const = 0;

    /// Calls the visitor once for each of the record's fields that has a content, with its encoded
    /// identifier. False, perhaps after some of them, when the record is to be asked field by field.
    virtual bool visitFields(quint32 /*place*/, const FieldVisitor & /*visitor*/) const { return false; }

    /// Whether what the sieve looks for may be in a field or in the plain text: false only if it is not.
    virtual bool mayHold(quint32 /*place*/, const text::TextSieve & /*sieve*/) const { return true; }
    /// Has the memory bring what mayHold() is about to read.
    virtual void fetch(quint32 /*place*/) const {}

    /// The record's element as it stands in an XML datafile; empty for a record that came from elsewhere.
    virtual QByteArrayView xml(quint32 /*place*/) const { return {}; }
};

} // namespace tavrin
