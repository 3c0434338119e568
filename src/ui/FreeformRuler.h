// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/ParagraphFormat.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace tavrin {

/// The ruler above the text: indents and tab stops of the paragraph at the caret, which can be dragged. A
/// click sets a tab stop, a double click makes it another kind; one that is dragged away is gone.
class FreeformRuler : public QWidget
{
    Q_OBJECT

public:
    explicit FreeformRuler(QWidget *parent = nullptr);

    /// `left` and `right`: where the text begins and ends. `scale`: pixels for a twip.
    void show(const richtext::ParagraphFormat &paragraph, double left, double right, double scale);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The person moved something, to be applied to the selected paragraphs.
    void changed(const std::function<void(richtext::ParagraphFormat &)> &change);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    enum class Part { FirstLine, Head, Tail, TabStop };
    struct Grip
    {
        Part part = Part::TabStop;
        qsizetype tab = -1;
    };

    double xOf(qint32 twips) const { return g_left + twips * g_scale; }
    qint32 twipsAt(double x) const;
    std::optional<Grip> gripAt(const QPointF &position) const;
    void drawTicks(QPainter &painter) const;
    void drawTab(QPainter &painter, const richtext::TabStop &tab) const;
    void applyTabs(const QList<richtext::TabStop> &tabs);

    richtext::ParagraphFormat g_paragraph;
    double g_left = 8;
    double g_right = 400;
    double g_scale = 1.0 / 15;
    std::optional<Grip> g_grip;
    bool g_isAway = false; ///< A tab stop is dragged off the ruler.
};

} // namespace tavrin
