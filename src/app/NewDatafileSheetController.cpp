// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/NewDatafileSheetController.h"

#include <QRegularExpression>
#include <QSet>

namespace tavrin {

using namespace Qt::StringLiterals;

void NewDatafileSheetController::setFieldNamesText(const QString &text)
{
    if (g_fieldNamesText == text)
        return;
    g_fieldNamesText = text;
    Q_EMIT changed();
}

QStringList NewDatafileSheetController::fieldNames() const
{
    static const QRegularExpression lineEnds(u"[\\r\\n\\x{2028}\\x{2029}]"_s);
    QStringList names;
    const QStringList lines = g_fieldNamesText.split(lineEnds, Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        if (const QString name = line.trimmed(); !name.isEmpty())
            names.append(name);
    }
    return names;
}

void NewDatafileSheetController::setTextName(const QString &name)
{
    if (g_textName == name)
        return;
    g_textName = name;
    Q_EMIT changed();
}

void NewDatafileSheetController::setKind(DatafileKind kind)
{
    if (g_kind == kind)
        return;
    g_kind = kind;
    Q_EMIT changed();
}

QString NewDatafileSheetController::problem() const
{
    QSet<QString> seen;
    const QStringList names = fieldNames();
    for (const QString &name : names) {
        // Two spellings of one accented letter look alike on screen, so they count as one name.
        const QString key = name.normalized(QString::NormalizationForm_C);
        if (seen.contains(key))
            return tr("There are two fields named “%1”.").arg(name);
        seen.insert(key);
    }
    return {};
}

} // namespace tavrin
