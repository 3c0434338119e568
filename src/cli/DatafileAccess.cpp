// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"

#include <QFileInfo>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

Error refused(const QString &message, const QString &detail)
{
    return {Error::Kind::Refused, message, detail};
}

bool isSameFile(const QString &path, const QString &other)
{
    const FileStamp left = FileStamp::of(path);
    const FileStamp right = FileStamp::of(other);
    return left.size >= 0 && left.device == right.device && left.inode == right.inode;
}

/// Also where a link hides the name under which others have opened and locked the file.
Result<> mayReplaceLocked(const QString &path)
{
    for (const QString &name : {path, QFileInfo(path).canonicalFilePath()}) {
        if (!name.isEmpty() && LockFile::exists(name))
            return refused(Cli::tr("This datafile is locked."), LockFile::pathFor(name));
    }
    return {};
}

Result<> mayReplaceProtected(const QString &path)
{
    // Replacing a file needs no permission on the file itself, and the system's administrator needs none at
    // all; but whoever took the permission away meant it.
    const QFileInfo info(path);
    const QFile::Permissions writable = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    if (info.exists() && (!info.isWritable() || !(info.permissions() & writable)))
        return refused(Cli::tr("The file is write-protected."), path);
    return {};
}

} // namespace

Result<std::unique_ptr<DatafileDocument>> openDatafile(const Call &call, const QString &path)
{
    return DatafileDocument::open(call.services, path, SelectionOnOpening::AsStored, call.kind());
}

bool hasTarget(const Arguments &arguments)
{
    return arguments.has(u"-o"_s) || arguments.has(u"--in-place"_s);
}

QString faultOfTarget(const Arguments &arguments)
{
    const bool isClear = arguments.has(u"-o"_s) != arguments.has(u"--in-place"_s);
    if (!isClear)
        return Cli::tr("Say where to write: either -o OUT or --in-place.");
    if (arguments.has(u"-o"_s) && arguments.value(u"-o"_s).isEmpty())
        return Cli::tr("The option %1 needs a value.").arg(u"-o"_s);
    return {};
}

QString faultOfOptionalTarget(const Arguments &arguments, const QString &because)
{
    if (arguments.has(because))
        return faultOfTarget(arguments);
    if (hasTarget(arguments))
        return Cli::tr("There is nothing to write without %1.").arg(because);
    return {};
}

Result<> mayCreate(const Call &call, const QString &path)
{
    if (!QFileInfo::exists(path))
        return {};
    if (!call.arguments.has(u"--force"_s))
        return refused(Cli::tr("The file exists; --force replaces it."), path);
    if (const Result<> allowed = mayReplaceLocked(path); !allowed)
        return allowed.error();
    return mayReplaceProtected(path);
}

Result<DatafileEdit> DatafileEdit::open(const Call &call, const QString &path)
{
    Result<std::unique_ptr<DatafileDocument>> document = openDatafile(call, path);
    if (!document)
        return document.error();
    DatafileEdit edit;
    edit.g_document = std::move(*document);
    const QString output = call.arguments.value(u"-o"_s);
    edit.g_target = output.isEmpty() ? path : output;
    edit.g_inPlace = isSameFile(edit.g_target, path);
    const Result<> prepared = edit.g_inPlace ? edit.prepareInPlace(path) : mayCreate(call, output);
    if (!prepared)
        return prepared.error();
    return edit;
}

Result<> DatafileEdit::prepareInPlace(const QString &path)
{
    if (const Result<> allowed = mayReplace(); !allowed)
        return allowed.error();
    if (!g_document->datafileSettings().networkShared())
        return {};
    g_lock = std::make_unique<LockFile>();
    if (const Result<> locked = g_lock->create(path, QCoreApplication::applicationFilePath()); !locked)
        return locked.error();
    // Whoever had the lock until now may have written after we read.
    if (!g_document->changedOnDisk())
        return {};
    return refused(Cli::tr("Another program has changed the file meanwhile."), path);
}

Result<> DatafileEdit::mayReplace() const
{
    if (g_document->datafileSettings().readOnly())
        return refused(Cli::tr("This datafile is set to always open read-only."), g_target);
    if (const Result<> allowed = mayReplaceLocked(g_target); !allowed)
        return allowed.error();
    return mayReplaceProtected(g_target);
}

plist::Format DatafileEdit::format() const
{
    const plist::Format read = g_document->formatRead();
    return read == plist::Format::Ascii ? plist::Format::Xml : read;
}

Result<> DatafileEdit::write(std::optional<plist::Format> format)
{
    const plist::Format written = format.value_or(this->format());
    if (!g_inPlace)
        return g_document->saveCopyAs(g_target, written);
    if (g_document->changedOnDisk())
        return refused(Cli::tr("Another program has changed the file meanwhile."), g_target);
    return g_document->writeToURL(g_target, typeNameOf(g_document->kind()), written);
}

Result<> DatafileEdit::writeSettings()
{
    if (!g_inPlace)
        return write();
    if (g_document->changedOnDisk())
        return refused(Cli::tr("Another program has changed the file meanwhile."), g_target);
    g_document->datafileSettings().setDatafileSettingsDidChange(true);
    return g_document->updateSettingsOnly(format());
}

} // namespace tavrin
