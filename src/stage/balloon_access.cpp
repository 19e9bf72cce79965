#include "stage/balloon_access.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QVariant>

namespace stage {

namespace {

constexpr char mark[] = "growingText"; ///< property of the labels meant here

/// The label's words as a text that cannot be edited and has no cursor.
class GrowingText final : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit GrowingText(QLabel& label) : QAccessibleWidget(&label, QAccessible::StaticText), label_(label) {}

    [[nodiscard]] QString text(QAccessible::Text what) const override
    {
        return what == QAccessible::Value ? label_.text() : QAccessibleWidget::text(what);
    }

    [[nodiscard]] void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QString text(int start, int end) const override
    {
        return label_.text().mid(start, end - start);
    }
    [[nodiscard]] int characterCount() const override { return static_cast<int>(label_.text().size()); }
    [[nodiscard]] int cursorPosition() const override { return characterCount(); }
    void setCursorPosition(int) override {}
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    [[nodiscard]] int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    [[nodiscard]] QRect characterRect(int) const override { return rect(); }
    [[nodiscard]] int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    [[nodiscard]] QString attributes(int, int* start, int* end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

private:
    QLabel& label_;
};

QAccessibleInterface* describe(const QString&, QObject* object)
{
    auto* label = qobject_cast<QLabel*>(object);
    return label && label->property(mark).toBool() ? new GrowingText(*label) : nullptr;
}

} // namespace

void describeAsText(QLabel& label)
{
    label.setProperty(mark, true);
    QAccessible::installFactory(describe); // once; further times do nothing
}

void announceWords(QLabel& label, const QString& before)
{
    const QString words = label.text();
    QAccessibleValueChangeEvent value(&label, words);
    QAccessible::updateAccessibility(&value);
    if (words.startsWith(before)) {
        const auto start = static_cast<int>(before.size());
        QAccessibleTextInsertEvent insertion(&label, start, words.sliced(start));
        QAccessible::updateAccessibility(&insertion);
    } else {
        QAccessibleTextUpdateEvent update(&label, 0, before, words);
        QAccessible::updateAccessibility(&update);
    }
}

} // namespace stage
