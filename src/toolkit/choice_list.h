#pragma once

#include <QComboBox>

#include <functional>

namespace toolkit {

/// A list that drops down, to choose one of its texts or none. It never chooses by itself.
class ChoiceList final : public QComboBox
{
public:
    explicit ChoiceList(QWidget* parent);

    /// Keeps the entries in ascending order of their texts.
    void setSorted() { sorted_ = true; }
    void clear();
    void append(const QString& text);
    /// Chooses the first entry with just this text, or none.
    void choose(const QString& text);
    [[nodiscard]] QString chosen() const { return currentText(); }

    /// Called when an entry comes to be chosen, by the user or by choose().
    std::function<void()> onChosen;

protected:
    void showPopup() override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool sorted_ = false;
    bool refilling_ = false;
};

} // namespace toolkit
