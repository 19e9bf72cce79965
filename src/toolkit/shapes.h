#pragma once

#include "toolkit/twips.h"

#include <QColor>
#include <QPixmap>
#include <QWidget>

#include <optional>

namespace toolkit {

/// A picture scaled into its box, drawn from the density that the screen needs.
class Picture final : public QWidget
{
public:
    /// `resource` names the picture at its natural size; denser ones beside it are found by their "@2x".
    Picture(const QString& resource, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap pixmap_;
};

/// A filled or outlined figure. Clicks go through it unless it is a cover.
class Shape final : public QWidget
{
public:
    enum class Kind {
        Rectangle,
        Circle,
        Hexagon, ///< pointed at the left and the right, with corners of 90 degrees
        Tick,    ///< this one and the next are signs, drawn in white with a black edge
        Cross,
        Lock
    };
    struct Style
    {
        Kind kind = Kind::Rectangle;
        std::optional<QColor> fill = {};
        std::optional<QColor> outline = Qt::black;
        int outlineWidth = 1;
        bool cover = false; ///< keeps clicks from what lies under it
    };

    Shape(const Style& style, QWidget* parent);
    void setFill(std::optional<QColor> fill);
    [[nodiscard]] const std::optional<QColor>& fill() const { return style_.fill; }
    void setKind(Kind kind);
    /// It is not hidden, and `point` of its form lies within its box.
    [[nodiscard]] bool isShownAt(QPoint point) const { return !isHidden() && geometry().contains(point); }
    [[nodiscard]] bool isCover() const { return style_.cover; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Style style_;
};

/// A straight line between two points of the screen; clicks go through it.
class Line final : public QWidget
{
public:
    Line(TwipPoint from, TwipPoint to, const QColor& colour, int lineWidth, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPoint from_;
    QPoint to_;
    QColor colour_;
    int lineWidth_;
};

} // namespace toolkit
