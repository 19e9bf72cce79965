#pragma once

#include <QLineEdit>

#include <functional>
#include <limits>

namespace toolkit {

/// One line of text to type into. Its limit counts code points and binds only what is entered: a longer text
/// that the program sets is kept whole, and may be edited as long as it does not grow.
class TextBox final : public QLineEdit
{
public:
    explicit TextBox(QWidget* parent);

    static constexpr qsizetype noLimit = std::numeric_limits<qsizetype>::max();
    void setLimit(qsizetype codePoints) { limit_ = codePoints; }
    /// Shows "*" for every character.
    void setMasked();
    void setText(const QString& text);

    /// Asked for every character that is typed, Enter being "\r"; false discards it.
    std::function<bool(QChar)> onKeyPress;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    class Limit;

    void enterWhatFits();

    qsizetype limit_ = noLimit;
    qsizetype room_ = 0; ///< the length of the text before the change that is being checked
    QString rejected_;
    qsizetype rejectedEnd_ = 0; ///< where in rejected_ the entered text ends
};

} // namespace toolkit
