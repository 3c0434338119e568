// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/StringOperations.h"

#include <QFileInfo>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// Without the slashes at its end; the root stays.
QString withoutTrailingSlashes(QString path)
{
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return path;
}

/// Where the dot of the extension stands in a last component, or -1. A name that begins with its only dot
/// is a hidden file, and what has a blank in it is the end of a sentence.
qsizetype extensionDot(const QString &component)
{
    const qsizetype dot = component.lastIndexOf(u'.');
    const bool isExtension =
        dot > 0 && dot + 1 < component.size() && !QStringView(component).sliced(dot).contains(u' ');
    return isExtension ? dot : -1;
}

} // namespace

QString lastPathComponent(const QString &path)
{
    const QString trimmed = withoutTrailingSlashes(path);
    return trimmed == u'/' ? trimmed : trimmed.sliced(trimmed.lastIndexOf(u'/') + 1);
}

QString pathExtension(const QString &path)
{
    const QString component = lastPathComponent(path);
    const qsizetype dot = extensionDot(component);
    return dot < 0 ? u""_s : component.sliced(dot + 1);
}

QString stringByDeletingPathExtension(const QString &path)
{
    const QString trimmed = withoutTrailingSlashes(path);
    const QString extension = pathExtension(trimmed);
    return extension.isEmpty() ? trimmed : trimmed.chopped(extension.size() + 1);
}

QString lastPathComponentWithoutExtension(const QString &path)
{
    return stringByDeletingPathExtension(lastPathComponent(path));
}

QString stringByExpandingTildeInPath(const QString &path, const QString &home)
{
    return path == u'~' || path.startsWith("~/"_L1) ? home + path.sliced(1) : path;
}

QString stringByAbbreviatingWithTildeInPath(const QString &path, const QString &home)
{
    const bool isInside =
        !home.isEmpty() && path.startsWith(home) && (path.size() == home.size() || path[home.size()] == u'/');
    return isInside ? u'~' + path.sliced(home.size()) : path;
}

QString stringByResolvingSymlinksInPath(const QString &path)
{
    const QString resolved = QFileInfo(path).canonicalFilePath();
    return resolved.isEmpty() ? path : resolved;
}

QString validatedDirectoryPath(const QString &path)
{
    return QFileInfo(path).isDir() ? path : QString();
}

} // namespace tavrin
