// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/DatafileContents.h"
#include "editor/LongWork.h"

namespace tavrin {

/// The reading of a datafile, for a document that is to be made or to be reverted.
class DatafileReading : public LongWork
{
    Q_OBJECT

public:
    /// `title`: with "%1" where the file's name belongs.
    DatafileReading(const QString &path, const QString &title);

    QString title() const override { return g_title; }
    QString doneText(qint64 done, qint64 total) const override { return doneTextOfBytes(done, total); }
    void run(Progress &progress) override;

    /// What was read, once; the errors are those of readDatafile().
    Result<DatafileContents> takeContents() { return std::move(g_contents); }

private:
    QString g_path;
    QString g_title;
    Result<DatafileContents> g_contents;
};

} // namespace tavrin
