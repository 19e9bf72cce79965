#include "owner.h"

#include <QTest>

namespace admin {

using toolkit::TextBox;

TEST(Login, LetsInWhoeverGivesAnAccountAndNobodyElse)
{
    struct Case
    {
        const char* name;
        const char* secret;
        const char* box;
        const char* focus; ///< none: let in
    };
    const Case cases[] = {
        {"owner", "Secret word", "", nullptr},
        {"  owner ", " Secret word  ", "", nullptr},
        {"Owner", "Secret word", "Admin: Invalid Username/Password", "password"},
        {"owner", "secret word", "Admin: Invalid Username/Password", "password"},
        {"", "", "Admin: Username/Password not entered", "username"},
        {"owner", "  ", "Admin: Username/Password not entered", "username"},
        {"   ", "x", "Admin: Username/Password not entered", "username"},
        {"owner", "' or ''='", "Admin: Invalid Username/Password", "password"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.name) + " / " + c.secret);
        Owner owner;
        owner.screens.show("login");
        EXPECT_EQ(owner.focused("login"), "username");
        // Set, not typed: longer than the boxes let through, with blanks that cannot be typed.
        owner.control<TextBox>("login", "username").setText(c.name);
        owner.control<TextBox>("login", "password").setText(c.secret);
        QTest::keyClick(&owner.control<TextBox>("login", "password"), Qt::Key_Return);
        EXPECT_EQ(owner.dialogs.take(), c.box);
        EXPECT_EQ(owner.screens.find("admin") != nullptr, c.focus == nullptr);
        if (c.focus) {
            EXPECT_EQ(owner.focused("login"), c.focus);
            EXPECT_EQ(owner.control<TextBox>("login", "username").text(), c.name) << "what was typed stays";
        }
        EXPECT_EQ(owner.bank.value("select count(*) from users"), "3");
    }
}

TEST(Login, TakesNoBlankInANameAndCountsCodePoints)
{
    Owner owner;
    owner.screens.show("login");
    auto& name = owner.control<TextBox>("login", "username");
    auto& secret = owner.control<TextBox>("login", "password");
    QTest::keyClicks(&name, " ow ner abcdefghijklmnop ");
    QTest::keyClicks(&secret, "a b c d e f g h i");
    EXPECT_EQ(name.text(), "ownerabcdefghij");
    EXPECT_EQ(secret.text(), "a b c d e f g h");
    EXPECT_EQ(secret.displayText(), QString(15, '*'));
    secret.selectAll();
    secret.insert("a line\r\n");
    QApplication::processEvents();
    EXPECT_EQ(secret.text(), "a line") << "the end of a pasted line is no part of it";

    const QString face = "\U0001F9DE";
    name.clear();
    name.insert(face.repeated(20));
    QApplication::processEvents();
    EXPECT_EQ(name.text(), face.repeated(15)) << "of what is pasted, the beginning";
    name.setCursorPosition(2);
    name.insert("x");
    QApplication::processEvents();
    EXPECT_EQ(name.text(), face.repeated(15));
    name.setSelection(0, 4);
    name.insert("abc");
    QApplication::processEvents();
    EXPECT_EQ(name.text(), "ab" + face.repeated(13));
    name.undo();
    EXPECT_EQ(name.text(), face.repeated(15));

    const QString stored = QString(20, 'z');
    name.setText(stored);
    name.insert("y");
    QApplication::processEvents();
    EXPECT_EQ(name.text(), stored);
    name.end(false);
    name.backspace();
    EXPECT_EQ(name.text(), QString(19, 'z')) << "a long text can be shortened in steps";
}

TEST(Login, ExitGoesBackAndABankThatIsMissingIsTold)
{
    Owner owner;
    owner.screens.show("login");
    owner.run("login", "exit");
    EXPECT_FALSE(owner.screens.find("login"));
    EXPECT_TRUE(owner.screens.find("userselect"));

    const QString away = owner.bank.path() + ".away";
    ASSERT_TRUE(QFile::rename(owner.bank.path(), away));
    owner.screens.show("login");
    EXPECT_NE(owner.dialogs.take().find("Admin: (!) "), std::string::npos);
    owner.run("login", "username=owner; password=Secret word; login");
    EXPECT_NE(owner.dialogs.take().find("the file is missing"), std::string::npos);
    ASSERT_TRUE(QFile::rename(away, owner.bank.path()));
    owner.run("login", "login");
    EXPECT_TRUE(owner.screens.find("admin"));
}

TEST(ChangePassword, ChangesTheFirstAccountThatMatchesAndTellsWhatIsWrong)
{
    struct Case
    {
        const char* steps;
        const char* box;
        const char* focus; ///< none: the window closes
        const char* accounts;
    };
    const char* const before = "Secret word|same|same";
    const Case cases[] = {
        {"username=owner; password=Secret word; newpassword= new one ; newpassword2=new one",
         "Admin: Password Changed Successfully", nullptr, "new one|same|same"},
        {"username=twin; password=same; newpassword=a'b; newpassword2=a'b",
         "Admin: Password Changed Successfully", nullptr, "Secret word|a'b|same"},
        {"username=owner; password=Secret word; newpassword=New; newpassword2=new",
         "Orvanta: Both New Passwords Do not match", "newpassword2", before},
        {"username=owner; password=wrong; newpassword=New; newpassword2=New",
         "Admin: Invalid Username/Password", "password", before},
        {"username=owner; password=' or 1=1--; newpassword=New; newpassword2=New",
         "Admin: Invalid Username/Password", "password", before},
        {"username=owner; password=Secret word; newpassword=New; newpassword2=  ",
         "Admin: Username/Password not entered", "username", before},
        {"password=Secret word; newpassword=New; newpassword2=New", "Admin: Username/Password not entered",
         "username", before},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.steps);
        Owner owner;
        owner.open({"changepassword"});
        owner.run("changepassword", QString(c.steps) + "; Command1");
        EXPECT_EQ(owner.dialogs.take(), c.box);
        EXPECT_EQ(owner.screens.find("changepassword") != nullptr, c.focus != nullptr);
        if (c.focus)
            EXPECT_EQ(owner.focused("changepassword"), c.focus);
        EXPECT_EQ(owner.bank.value("select group_concat(password, '|') from users"), c.accounts);
    }
}

} // namespace admin
