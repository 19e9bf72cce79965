#include "player.h"

#include <atspi/atspi.h>

#include <algorithm>
#include <optional>

namespace desk {

namespace {

struct Unref
{
    void operator()(void* object) const { g_object_unref(object); }
};
template <typename Object>
using Owned = std::unique_ptr<Object, Unref>;

QString taken(gchar* text)
{
    const std::unique_ptr<gchar, decltype(&g_free)> owned(text, &g_free);
    return QString::fromUtf8(text);
}

/// Something that the program shows, as a screen reader knows it.
struct Node
{
    QString name, description;
    AtspiRole role = ATSPI_ROLE_INVALID;
    bool enabled = false;
    int press = -1; ///< the number of this action, or -1
    Owned<AtspiAccessible> object;
};

/// Appends the node and all below it, as far as they are shown.
void collect(AtspiAccessible* accessible, std::vector<Node>& nodes)
{
    Owned<AtspiAccessible> object(accessible);
    const Owned<AtspiStateSet> states(accessible ? atspi_accessible_get_state_set(accessible) : nullptr);
    if (!states || !atspi_state_set_contains(states.get(), ATSPI_STATE_SHOWING))
        return;
    Node node{taken(atspi_accessible_get_name(accessible, nullptr)),
              taken(atspi_accessible_get_description(accessible, nullptr)),
              atspi_accessible_get_role(accessible, nullptr),
              atspi_state_set_contains(states.get(), ATSPI_STATE_ENABLED) != 0,
              -1,
              std::move(object)};
    const Owned<AtspiAction> action(atspi_accessible_get_action_iface(accessible));
    const int actions = action ? atspi_action_get_n_actions(action.get(), nullptr) : 0;
    for (int i = 0; i < actions; ++i)
        if (taken(atspi_action_get_action_name(action.get(), i, nullptr)) == "Press")
            node.press = i;
    const int children = atspi_accessible_get_child_count(accessible, nullptr);
    const bool layout =
        node.role == ATSPI_ROLE_FILLER || node.role == ATSPI_ROLE_INVALID || node.role == ATSPI_ROLE_UNKNOWN;
    if (node.name.isEmpty() && (actions > 0 || (layout && children == 0)))
        ADD_FAILURE() << "a nameless "
                      << taken(atspi_accessible_get_role_name(accessible, nullptr)).toStdString();
    nodes.push_back(std::move(node));
    for (int i = 0; i < children; ++i)
        collect(atspi_accessible_get_child_at_index(accessible, i, nullptr), nodes);
}

} // namespace

/// A contestant who knows of the program what the accessibility bus tells, and acts through it alone.
class ReaderJourney : public Player
{
protected:
    void SetUp() override
    {
        Player::SetUp();
        atspi_init();
        listener_.reset(atspi_event_listener_new(&ReaderJourney::hear, this, nullptr));
        atspi_event_listener_register(listener_.get(), heard, nullptr);
        begin({.reader = true});
        for (const char* button : {"Contestant", "CLICK HERE", "Click here", "OK"})
            press(button);
    }

    void TearDown() override
    {
        atspi_event_listener_deregister(listener_.get(), heard, nullptr);
        Player::TearDown();
    }

    [[nodiscard]] std::vector<Node> look()
    {
        while (g_main_context_iteration(nullptr, FALSE)) {
        }
        std::vector<Node> nodes;
        const Owned<AtspiAccessible> all(atspi_get_desktop(0));
        atspi_accessible_set_cache_mask(all.get(), ATSPI_CACHE_NONE);
        for (int i = atspi_accessible_get_child_count(all.get(), nullptr) - 1; i >= 0; --i)
            collect(atspi_accessible_get_child_at_index(all.get(), i, nullptr), nodes);
        return nodes;
    }

    /// A shown node whose name begins so, with something to press if that is wanted.
    [[nodiscard]] std::optional<Node> shown(const QString& name, bool pressable = false)
    {
        for (Node& node : look())
            if (node.name.startsWith(name) && (!pressable || (node.press >= 0 && node.enabled)))
                return std::move(node);
        return std::nullopt;
    }

    Node find(const QString& name, bool pressable = false)
    {
        std::optional<Node> found;
        desk->until(name.toStdString(),
                    [&](const Scene&) { return (found = shown(name, pressable)).has_value(); });
        return std::move(*found);
    }

    void press(const QString& name)
    {
        const Node node = find(name, true);
        const Owned<AtspiAction> action(atspi_accessible_get_action_iface(node.object.get()));
        atspi_action_do_action(action.get(), node.press, nullptr);
    }

    /// Waits for question n; its right option, by the bank.
    [[nodiscard]] QString rightOption(int n)
    {
        const QString start = QString("Question %1 of 15: ").arg(n);
        return QChar('A' + right(find(start).name.mid(start.size(), 12)) - 1) + QString(", ");
    }

    /// Answers every box, whose texts begin so, and waits for the last screen.
    void leaveBy(const QStringList& boxes)
    {
        for (const QString& box : boxes) {
            find(box);
            press("OK");
        }
        find("Thank You!!");
    }

    QStringList spoken; ///< what a reader says without being asked

private:
    static constexpr char heard[] = "object:state-changed:showing";

    static void hear(AtspiEvent* event, void* self)
    {
        if (event->detail1 && atspi_accessible_get_role(event->source, nullptr) == ATSPI_ROLE_NOTIFICATION)
            static_cast<ReaderJourney*>(self)->spoken
                << taken(atspi_accessible_get_name(event->source, nullptr));
        g_boxed_free(ATSPI_TYPE_EVENT, event);
    }

    Owned<AtspiEventListener> listener_;
};

TEST_F(ReaderJourney, WinsTheTopPrize)
{
    for (int n = 1; n <= 15; ++n) {
        press(rightOption(n));
        press("Yes");
        find(n < 15 ? "Total Prize Money Rs. " : "Congrulations You are now a Tazmir");
        EXPECT_FALSE(shown("A, ")) << "covered";
        press("OK");
    }
    leaveBy({"Congrulations!!! Guest", "You have won a crore Rupees!", "Thank you for playing"});
    EXPECT_EQ(spoken.filter("Question ").size(), 15);
    EXPECT_EQ(spoken.filter("Total Prize Money Rs. ").size(), 15);
}

TEST_F(ReaderJourney, LosesWithAllLifelines)
{
    const QString right = rightOption(1);
    desk->until("the lifelines", [this](const Scene&) {
        find("Lifelines", true); // not while the panel moves
        const bool inView = shown("Statitics Poll", true).has_value();
        if (!inView)
            press("Lifelines");
        return inView;
    });
    press("Statitics Poll");
    find("A: 25%");
    press("50 : 50");
    EXPECT_EQ(find("50 : 50").description, "used");
    press("Ask A Friend");
    find("Guest, your Time Is Over !");
    press("OK");
    find("Lifelines", true);
    QStringList left;
    for (const Node& node : look())
        if (QString("ABCD").contains(node.name.section(", ", 0, 0)) && node.press >= 0 && node.enabled)
            left << node.name;
    ASSERT_EQ(left.size(), 2);
    press(left[left[0].startsWith(right)]);
    press("Yes");
    find("Sorry! Guest But your Answer is wrong.");
    press("OK");
    find("Total Prize Money Rs. 0");
    press("OK");
    leaveBy({"Thank you for playing"});
    EXPECT_EQ(spoken.filter("A: 25%").size(), 1);
}

} // namespace desk
