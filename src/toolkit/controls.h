#pragma once

#include "toolkit/text.h"
#include "toolkit/twips.h"

#include <QColor>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include <functional>
#include <optional>

namespace toolkit {

class Shape;

/// A text on a screen. Draws nothing but the text while its background is transparent. A text that is too
/// long for its box is drawn smaller rather than cut.
class Label final : public QLabel
{
public:
    explicit Label(QWidget* parent);

    void setTextColour(const QColor& colour);
    /// The colour of the background, seen only while the label is opaque.
    void setBackground(const QColor& colour);
    void setOpaque(bool opaque);
    [[nodiscard]] bool isOpaque() const { return opaque_; }
    /// Has the background fill a shape that lies under the label instead of the label's own box.
    void setBackgroundShape(toolkit::Shape* shape);
    [[nodiscard]] const toolkit::Shape* backgroundShape() const { return backgroundShape_; }
    void setBordered(bool bordered) { bordered_ = bordered; }
    /// Makes the label as large as its text from now on; it grows from its left edge, or from its middle
    /// if its text is centred.
    void setSizedToText();
    /// Draws each word of the text by itself, centred on a place of its own: the first `first` twips from the
    /// left edge, the others `distance` apart. The blanks between them no longer matter.
    void setWordsSpread(double first, double distance);
    void setText(const QString& text);

    std::function<void()> onClick;
    /// Called for every move of the mouse over the label, with or without a button down.
    std::function<void()> onMouseMove;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void sizeToText();
    void fillShape();
    [[nodiscard]] QColor ground() const;
    void paintSpread(QPainter& painter) const;

    double firstWord_ = 0;
    double wordDistance_ = 0; ///< 0: the text is one
    toolkit::Shape* backgroundShape_ = nullptr;
    bool opaque_ = false;
    bool bordered_ = false;
    bool sizedToText_ = false;
    bool pressed_ = false;
};

/// A push button in a colour of its own. Its text wraps and shrinks to fit, down to one letter a line.
class Button final : public QPushButton
{
public:
    explicit Button(QWidget* parent);
    void setBackground(const QColor& colour);
    /// What its access key does: as a click does, it takes the focus first.
    void press();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintFace(QPainter& painter) const;
};

/// A text of several lines that scrolls.
class TextArea final : public QPlainTextEdit
{
public:
    using QPlainTextEdit::QPlainTextEdit;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace toolkit
