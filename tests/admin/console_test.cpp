#include "owner.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

namespace admin {

TEST(Console, OpensEachWindowOnceAndBringsItToTheFront)
{
    Owner owner;
    owner.open({"addquestions", "messages", "changepassword"});
    auto& area = *owner.form("admin").findChild<QMdiArea*>();
    EXPECT_EQ(area.subWindowList().size(), 3);
    EXPECT_TRUE(area.subWindowList().front()->isMaximized());
    for (const char* item : {"add", "message", "cnangepassword"})
        owner.form("admin").findChild<QAction*>(item)->trigger();
    EXPECT_EQ(area.subWindowList().size(), 3);
    EXPECT_EQ(area.activeSubWindow()->widget()->objectName(), "changepassword");
    owner.screens.show("messages");
    EXPECT_EQ(area.activeSubWindow()->widget()->objectName(), "messages");

    owner.run("messages", "cmdexit");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(area.subWindowList().size(), 2);
    area.subWindowList().front()->close();
    EXPECT_FALSE(owner.screens.find("addquestions"));
    owner.screens.show("addquestions");

    owner.form("admin").close();
    EXPECT_FALSE(owner.screens.find("admin") || owner.screens.find("addquestions") ||
                 owner.screens.find("changepassword"));
    EXPECT_TRUE(owner.screens.find("userselect"));
    EXPECT_EQ(owner.dialogs.take(), "");
}

TEST(Console, ALetterOfMenuAndWindowPressesTheButton)
{
    Owner owner;
    owner.open({"messages"});
    ASSERT_TRUE(QTest::qWaitForWindowActive(&owner.form("admin")));
    auto& box = owner.control<toolkit::TextBox>("messages", "message");
    box.setFocus();
    box.setText("changed");
    QTest::keyClick(&box, Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(owner.dialogs.take(), "Admin: (i) Updated");
    EXPECT_EQ(owner.messages(), "changed| really? ");

    owner.run("messages", "cmdadd");
    QTest::keyClick(&box, Qt::Key_U, Qt::AltModifier);
    const auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(open) << "a button that is disabled leaves the letter to the menu";
    EXPECT_EQ(open->objectName(), "users");
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_EQ(owner.messages(), "changed| really? ");
    EXPECT_TRUE(owner.screens.find("messages"));
}

} // namespace admin
