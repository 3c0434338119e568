// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"

#include <QString>

#include <memory>

class QTemporaryDir;

namespace tavrin {

/// A folder that is filled beside its place and put there when it is whole. Until then, and when it goes
/// before that, nothing of it is left.
class PendingFolder
{
public:
    /// For that place, whose folder exists. Io, NotFound.
    static Result<PendingFolder> beside(const QString &place);

    PendingFolder(PendingFolder &&) noexcept;
    PendingFolder &operator=(PendingFolder &&) noexcept;
    ~PendingFolder();

    /// Where the folder is for now.
    QString path() const;
    const QString &place() const { return g_place; }
    /// Puts it in its place, instead of whatever is there; that is back when this fails. Once.
    Result<> takePlace();

private:
    PendingFolder(const QString &place, std::unique_ptr<QTemporaryDir> holder);

    QString g_place;
    std::unique_ptr<QTemporaryDir> g_holder; ///< Hidden; the folder is in it, and later what it replaces.
};

} // namespace tavrin
