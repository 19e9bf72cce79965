#include "owner.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>

namespace admin {

TEST(Console, OpensEachWindowOnceAndBringsItToTheFront)
{
    Owner owner;
    owner.open({"addquestions", "messages", "changepassword"});
    EXPECT_TRUE(owner.form("admin").isMaximized());
    auto& area = *owner.form("admin").findChild<QMdiArea*>();
    const auto inFront = [&] { return area.activeSubWindow()->widget()->objectName(); };
    auto* const editor = area.subWindowList().front();
    EXPECT_TRUE(editor->isMaximized());
    editor->showNormal();
    EXPECT_EQ(owner.form("addquestions").size(), QSize(469, 394));
    const std::pair<const char*, const char*> items[] = {
        {"message", "messages"}, {"add", "addquestions"}, {"cnangepassword", "changepassword"}};
    for (const auto& [item, window] : items) {
        owner.form("admin").findChild<QAction*>(item)->trigger();
        EXPECT_EQ(inFront(), window);
    }
    EXPECT_EQ(area.subWindowList().size(), 3);
    owner.screens.show("messages");
    EXPECT_EQ(inFront(), "messages");

    owner.run("answer2=x; cmdupdate", "addquestions"); // refused: no right answer is chosen any more
    owner.screens.show("messages");
    owner.run("cmdsave", "addquestions");
    owner.screens.show("messages");
    owner.run("cmdexit", "messages");
    owner.screens.show("addquestions");
    QApplication::processEvents();
    EXPECT_EQ(owner.focused("addquestions"), "cmdsave") << "the focus returns to where it was last";
    owner.told();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(area.subWindowList().size(), 2);
    area.subWindowList().front()->close();
    EXPECT_FALSE(owner.screens.find("addquestions"));
    owner.screens.show("addquestions");

    owner.form("admin").close();
    EXPECT_FALSE(owner.screens.find("admin") || owner.screens.find("addquestions") ||
                 owner.screens.find("changepassword"));
    EXPECT_TRUE(owner.screens.find("userselect"));
    EXPECT_EQ(owner.told(), "");
}

TEST(Console, ALetterOfMenuAndWindowPressesTheButton)
{
    Owner owner;
    owner.open({"messages"});
    ASSERT_TRUE(QTest::qWaitForWindowActive(&owner.form("admin")));
    auto& box = owner.control<toolkit::TextBox>("messages", "message");
    box.setFocus(Qt::MouseFocusReason);
    box.setText("changed");
    QTest::keyClick(&box, Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(owner.told(), "Admin: (i) Updated");
    EXPECT_EQ(owner.stored("messages"), "changed| really? ");

    const auto menuOpens = [&owner](QWidget& control) {
        QTest::keyClick(&control, Qt::Key_U, Qt::AltModifier);
        auto* open = QApplication::activePopupWidget();
        const bool opens = open && open->objectName() == "users" && owner.told().empty();
        if (open)
            QTest::keyClick(open, Qt::Key_Escape);
        return opens;
    };
    owner.run("cmdadd", "messages");
    EXPECT_TRUE(menuOpens(box)) << "a button that is disabled leaves the letter to the menu";
    owner.run("cmdcancel", "messages");
    auto* const window = owner.form("admin").findChild<QMdiArea*>()->activeSubWindow();
    window->showMinimized();
    EXPECT_GT(window->width(), 100);
    EXPECT_TRUE(menuOpens(*window)) << "and so does one that is not seen";
    owner.screens.show("messages");
    QApplication::processEvents();
    EXPECT_EQ(window->size(), owner.form("messages").size().grownBy(window->contentsMargins()));
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_EQ(owner.stored("messages"), "changed| really? ");
    EXPECT_TRUE(owner.screens.find("messages"));
}

} // namespace admin
