// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/CodedItem.h"
#include "editor/QVSheetController.h"

#include <QStringList>

#include <functional>

namespace tavrin {

/// A question that is answered by filling in a form: choices, texts and check boxes, one below the other, and
/// perhaps a look at what would come of it.
class FormSheetController : public QVSheetController
{
    Q_OBJECT

public:
    struct Row
    {
        enum class Kind { Choice, Text, Check };

        Kind kind;
        QString label;
        QList<CodedItem> items = {};
        qsizetype chosen = 0;
        QString text = {};
        bool isOn = false;
        bool isEnabled = true;
    };
    struct Preview
    {
        QString summary = {};
        QStringList headings = {};
        QList<QStringList> rows = {};
    };
    /// Adapts the rows to one another, and says what is wrong with what is filled in; null when nothing is.
    using Judge = std::function<QString(FormSheetController &form)>;

    /// With a preview, room is kept for it.
    FormSheetController(const QString &title, const QString &acceptLabel, bool hasPreview = false);

    QString title() const { return g_title; }
    QString acceptLabel() const { return g_acceptLabel; }
    bool hasPreview() const { return g_hasPreview; }
    const QList<Row> &rows() const { return g_rows; }
    QString problem() const { return g_problem; }
    bool isAcceptable() const override { return g_problem.isNull(); }
    const Preview &preview() const { return g_preview; }

    // Making the form. Each gives the number of the row.
    qsizetype addChoice(const QString &label, const QList<CodedItem> &items, qsizetype chosen = 0);
    qsizetype addText(const QString &label, const QString &text = {});
    qsizetype addCheck(const QString &label, bool isOn = false);
    void setJudge(const Judge &judge);
    void setEnabled(qsizetype row, bool isEnabled) { g_rows[row].isEnabled = isEnabled; }

    // Reading it.
    const CodedItem &choice(qsizetype row) const { return g_rows[row].items[g_rows[row].chosen]; }
    QString text(qsizetype row) const { return g_rows[row].text; }
    bool isOn(qsizetype row) const { return g_rows[row].isOn && g_rows[row].isEnabled; }

    // What the person does.
    void choose(qsizetype row, qsizetype index);
    void setText(qsizetype row, const QString &text);
    void setOn(qsizetype row, bool isOn);

    void setPreview(const Preview &preview);

Q_SIGNALS:
    /// Something else was filled in: a preview has to be made anew.
    void edited();
    void previewChanged();

private:
    void tell();

    QString g_title;
    QString g_acceptLabel;
    bool g_hasPreview;
    QList<Row> g_rows;
    Judge g_judge;
    QString g_problem;
    Preview g_preview;
};

} // namespace tavrin
