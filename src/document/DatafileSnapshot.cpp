// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DatafileSnapshot.h"

#include "base/DurableFile.h"
#include "plist/Writer.h"

#include <QCoreApplication>

namespace tavrin {

Result<> writeDatafile(const DatafileSnapshot &snapshot, const QString &path, plist::Format format)
{
    if (format == plist::Format::Ascii)
        return Error{
            Error::Kind::Unsupported,
            QCoreApplication::translate("DatafileDocument", "Datafiles are not written in this form."),
            QStringLiteral("the ASCII form")};
    return writeDurably(path, [&](const ByteSink &sink) -> Result<> {
        // What the sink refuses, writeDurably() itself reports.
        if (format == plist::Format::Xml)
            plist::writeXml(snapshot.root, sink);
        else
            sink(plist::toBinary(snapshot.root));
        return {};
    });
}

} // namespace tavrin
