#include "owner.h"

namespace admin {

using toolkit::TextBox;

TEST(Accounts, LetInWhoeverGivesOneAndChangeTheFirstThatMatches)
{
    const std::string invalid = "Admin: Invalid Username/Password";
    const std::string missing = "Admin: Username/Password not entered";
    const std::string changed = "Admin: Password Changed Successfully";
    struct Case
    {
        const char* screen;
        const char* steps;
        std::string box;
        std::string focus; ///< none: the screen closes
        const char* accounts = "Secret word|same|same";
    };
    const Case cases[] = {
        {"login", "username=  owner ; password= Secret word  ; login", "", ""},
        {"login", "username=Owner; password=Secret word; login", invalid, "password"},
        {"login", "username=owner; password=' or ''='; login", invalid, "password"},
        {"login", "username=owner; password=  ; login", missing, "username"},
        {"login", "username=   ; password=x; login", missing, "username"},
        {"changepassword",
         "username=owner; password=Secret word; newpassword= new one ; newpassword2=new one; Command1",
         changed, "", "new one|same|same"},
        {"changepassword", "username=twin; password=same; newpassword=a'b; newpassword2=a'b; Command1",
         changed, "", "Secret word|a'b|same"},
        {"changepassword",
         "username=owner; password=Secret word; newpassword=New; newpassword2=new; Command1",
         "Orvanta: Both New Passwords Do not match", "newpassword2"},
        {"changepassword",
         "username=owner; password=secret word; newpassword=New; newpassword2=New; Command1", invalid,
         "password"},
        {"changepassword", "username=owner; password=Secret word; newpassword=  ; newpassword2=  ; Command1",
         missing, "username"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.steps);
        Owner owner;
        const bool logsIn = c.screen == QString("login");
        logsIn ? owner.screens.show("login") : owner.open({c.screen});
        owner.run(c.screen, c.steps);
        EXPECT_EQ(owner.told(), c.box);
        EXPECT_EQ(owner.screens.find(c.screen) ? owner.focused(c.screen) : "", c.focus);
        EXPECT_EQ(owner.screens.find("admin") != nullptr, !logsIn || c.focus.empty());
        EXPECT_EQ(owner.bank.value("select group_concat(password, '|') from users"), c.accounts);
    }
}

TEST(Login, TakesNoBlankInANameHidesThePasswordAndIsEnteredByEnter)
{
    Owner owner;
    owner.screens.show("login");
    EXPECT_EQ(owner.focused("login"), "username");
    auto& name = owner.control<TextBox>("login", "username");
    auto& secret = owner.control<TextBox>("login", "password");
    QTest::keyClicks(&name, " ow ner ");
    QTest::keyClicks(&secret, "Secret word");
    EXPECT_EQ(name.text() + secret.displayText(), "owner***********");
    QTest::keyClick(&secret, Qt::Key_Return);
    EXPECT_TRUE(owner.screens.find("admin"));
}

TEST(Login, ExitGoesBackAndABankThatIsMissingIsTold)
{
    Owner owner;
    owner.screens.show("login");
    owner.click("login", "exit");
    EXPECT_FALSE(owner.screens.find("login"));
    EXPECT_TRUE(owner.screens.find("userselect"));

    const QString away = owner.bank.path() + ".away";
    ASSERT_TRUE(QFile::rename(owner.bank.path(), away));
    owner.screens.show("login");
    EXPECT_NE(owner.told().find("Admin: (!) "), std::string::npos);
    owner.run("login", "username=owner; password=Secret word; login");
    EXPECT_NE(owner.told().find("the file is missing"), std::string::npos);
    ASSERT_TRUE(QFile::rename(away, owner.bank.path()));
    owner.click("login", "login");
    EXPECT_TRUE(owner.screens.find("admin"));
}

} // namespace admin
