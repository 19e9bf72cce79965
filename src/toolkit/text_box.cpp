#include "toolkit/text_box.h"

#include "toolkit/text.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QValidator>

#include <algorithm>

namespace toolkit {

namespace {

bool isLineEnd(QChar character)
{
    return character == QChar::LineFeed || character == QChar::CarriageReturn;
}

} // namespace

/// QLineEdit's own limit counts UTF-16 units and cuts what the program sets.
class TextBox::Limit final : public QValidator
{
public:
    explicit Limit(TextBox& box) : QValidator(&box), box_(box) {}

    /// The program is about to set `text`, which is kept whatever it is.
    void expect(const QString& text) const { accepted_ = text; }

    State validate(QString& input, int& position) const override
    {
        const bool fits = codePoints(input) <= std::max(box_.limit_, box_.room_);
        if (fits && !endsEnteredLine(input.first(position))) {
            accepted_ = input;
            return Acceptable;
        }
        box_.rejected_ = input;
        box_.rejectedEnd_ = position;
        return Invalid;
    }

private:
    // What is in front of the cursor was in front of it before unless it has been entered.
    [[nodiscard]] bool endsEnteredLine(const QString& beforeCursor) const
    {
        return !beforeCursor.isEmpty() && isLineEnd(beforeCursor.back()) &&
               !accepted_.startsWith(beforeCursor);
    }

    TextBox& box_;
    mutable QString accepted_;
};

TextBox::TextBox(QWidget* parent) : QLineEdit(parent)
{
    setMaxLength(std::numeric_limits<int>::max());
    setValidator(new Limit(*this));
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) { room_ = codePoints(text); });
    // The rejected change is undone only after the signal.
    connect(this, &QLineEdit::inputRejected, this, &TextBox::enterWhatFits, Qt::QueuedConnection);
}

void TextBox::setMasked()
{
    setEchoMode(Password);
    setStyleSheet("lineedit-password-character: 42");
}

void TextBox::setText(const QString& text)
{
    room_ = codePoints(text);
    static_cast<const Limit*>(validator())->expect(text);
    QLineEdit::setText(text);
    home(false); // a long text is read from its beginning
}

// Of a pasted text that is too long, the beginning is taken; the end of a pasted line is no part of it.
void TextBox::enterWhatFits()
{
    const qsizetype start = hasSelectedText() ? selectionStart() : cursorPosition();
    qsizetype free = std::max(limit_, room_) - room_ + codePoints(selectedText());
    QString entered = rejected_.mid(start, rejectedEnd_ - start);
    while (!entered.isEmpty() && isLineEnd(entered.back()))
        entered.chop(1);
    rejected_.clear();
    qsizetype fits = 0;
    for (; free > 0 && fits < entered.size(); --free)
        fits += entered[fits].isHighSurrogate() ? 2 : 1;
    if (fits > 0)
        insert(entered.first(std::min(fits, entered.size())));
}

void TextBox::keyPressEvent(QKeyEvent* event)
{
    // An access key that nothing has would be typed.
    if (event->modifiers() == Qt::AltModifier && !event->text().isEmpty()) {
        event->ignore();
        return;
    }
    if (onKeyPress && !event->text().isEmpty() && !onKeyPress(event->text().front()))
        return;
    QLineEdit::keyPressEvent(event);
}

// Some keyboards go through an input method for every key.
void TextBox::inputMethodEvent(QInputMethodEvent* event)
{
    if (onKeyPress) {
        QString typed = event->commitString();
        typed.removeIf([this](QChar character) { return !onKeyPress(character); });
        event->setCommitString(typed, event->replacementStart(), event->replacementLength());
    }
    QLineEdit::inputMethodEvent(event);
}

} // namespace toolkit
