#include "stage/balloon_access.h"

#include "stage/balloon.h"

#include <QAccessibleWidget>

namespace stage {

namespace {

/// The balloon's words as a text that cannot be edited and has no cursor.
class BalloonAccess final : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit BalloonAccess(Balloon& balloon)
        : QAccessibleWidget(&balloon, QAccessible::StaticText), balloon_(balloon)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text what) const override
    {
        return what == QAccessible::Value ? balloon_.text() : QAccessibleWidget::text(what);
    }

    [[nodiscard]] void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QString text(int start, int end) const override
    {
        return balloon_.text().mid(start, end - start);
    }
    [[nodiscard]] int characterCount() const override { return static_cast<int>(balloon_.text().size()); }
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
    Balloon& balloon_;
};

QAccessibleInterface* describe(const QString&, QObject* object)
{
    auto* balloon = dynamic_cast<Balloon*>(object);
    return balloon ? new BalloonAccess(*balloon) : nullptr;
}

} // namespace

void describeBalloons()
{
    static const bool installed = (QAccessible::installFactory(describe), true);
    Q_UNUSED(installed);
}

void announceWords(Balloon& balloon, const QString& before)
{
    const QString words = balloon.text();
    QAccessibleValueChangeEvent value(&balloon, words);
    QAccessible::updateAccessibility(&value);
    if (words.startsWith(before)) {
        const auto start = static_cast<int>(before.size());
        QAccessibleTextInsertEvent insertion(&balloon, start, words.sliced(start));
        QAccessible::updateAccessibility(&insertion);
    } else {
        QAccessibleTextUpdateEvent update(&balloon, 0, before, words);
        QAccessible::updateAccessibility(&update);
    }
}

} // namespace stage
