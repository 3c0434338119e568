// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/DatafileKind.h"
#include "editor/QVSheetController.h"

#include <QStringList>

namespace tavrin {

/// What a new datafile is to hold: its field names, the name of its text, its kind.
class NewDatafileSheetController : public QVSheetController
{
    Q_OBJECT

public:
    NewDatafileSheetController() = default;

    /// One name a line, as typed or pasted; blanks around a name and empty lines do not count.
    QString fieldNamesText() const { return g_fieldNamesText; }
    void setFieldNamesText(const QString &text);
    QStringList fieldNames() const;

    QString textName() const { return g_textName; }
    void setTextName(const QString &name);

    DatafileKind kind() const { return g_kind; }
    void setKind(DatafileKind kind);

    /// Why the sheet cannot be accepted; empty when it can. Two fields of one name are refused, no fields are
    /// not: such a datafile holds texts alone.
    QString problem() const;
    bool isAcceptable() const override { return problem().isEmpty(); }

private:
    QString g_fieldNamesText;
    QString g_textName;
    DatafileKind g_kind = DatafileKind::Pro;
};

} // namespace tavrin
