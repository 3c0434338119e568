// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileKind.h"

#include "model/StringOperations.h"

namespace tavrin {

using namespace Qt::StringLiterals;

QString typeNameOf(DatafileKind kind)
{
    return kind == DatafileKind::Pro ? u"Tavrin Pro Datafile"_s : u"Tavrin Mobile Datafile"_s;
}

std::optional<DatafileKind> datafileKindOfTypeName(const QString &typeName)
{
    for (const DatafileKind kind : {DatafileKind::Pro, DatafileKind::Mobile}) {
        if (typeName == typeNameOf(kind))
            return kind;
    }
    return {};
}

QString extensionOf(DatafileKind kind)
{
    return kind == DatafileKind::Pro ? u"tv3"_s : u"tvk"_s;
}

std::optional<DatafileKind> datafileKindOfPath(const QString &path)
{
    const QString extension = pathExtension(path);
    for (const DatafileKind kind : {DatafileKind::Pro, DatafileKind::Mobile}) {
        if (extension.compare(extensionOf(kind), Qt::CaseInsensitive) == 0)
            return kind;
    }
    return {};
}

} // namespace tavrin
