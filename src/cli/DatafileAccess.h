// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/Command.h"
#include "document/LockFile.h"

namespace tavrin {

/// The datafile as a command sees it: with its stored selection.
Result<std::unique_ptr<DatafileDocument>> openDatafile(const Call &call, const QString &path);

/// What is wrong with the way in which a changing command was told where to write; null when nothing is.
/// Exactly one of -o and --in-place says it.
QString faultOfTarget(const Arguments &arguments);
bool hasTarget(const Arguments &arguments);

/// The same for commands that also work without writing: the options belong to `because` alone.
QString faultOfOptionalTarget(const Arguments &arguments, const QString &because);

/// Refused when a new file must not be written there: it exists and --force is not given, or somebody works
/// on it.
Result<> mayCreate(const Call &call, const QString &path);

/// A datafile opened to be changed, and the file that takes the change.
///
/// Whatever forbids the writing is found when it is opened, before any work. A shared datafile that is to be
/// written in place is locked for others as long as this lives.
class DatafileEdit
{
public:
    static Result<DatafileEdit> open(const Call &call, const QString &path);

    DatafileDocument &document() { return *g_document; }

    /// Writes the whole datafile, in the form in which it was read unless another is given.
    Result<> write(std::optional<plist::Format> format = {});
    /// Writes after a change of settings only, of which one may be that the datafile is read-only from now
    /// on.
    Result<> writeSettings();

    /// The form in which write() writes when no other is given.
    plist::Format format() const;
    bool isInPlace() const { return g_inPlace; }

private:
    DatafileEdit() = default;

    Result<> prepareInPlace(const QString &path);
    Result<> mayReplace() const;

    std::unique_ptr<LockFile> g_lock;
    std::unique_ptr<DatafileDocument> g_document;
    QString g_target;
    bool g_inPlace = false;
};

} // namespace tavrin
