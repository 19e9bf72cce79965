#include "owner.h"

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
        {"  owner ", " Secret word  ", "", nullptr},
        {"Owner", "Secret word", "Admin: Invalid Username/Password", "password"},
        {"owner", "' or ''='", "Admin: Invalid Username/Password", "password"},
        {"owner", "  ", "Admin: Username/Password not entered", "username"},
        {"   ", "x", "Admin: Username/Password not entered", "username"},
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
        EXPECT_EQ(owner.boxes(), c.box);
        EXPECT_EQ(owner.screens.find("admin") != nullptr, c.focus == nullptr);
        if (c.focus)
            EXPECT_EQ(owner.focused("login"), c.focus);
    }
}

TEST(Login, TakesNoBlankInANameAndHidesThePassword)
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
}

TEST(Login, OfWhatIsPastedTheBeginningIsTakenAsFarAsItFits)
{
    const QString face = "\U0001F9DE";
    const QString full = face.repeated(15);
    const QString stored = QString(20, 'z'); // longer than the limit
    struct Case
    {
        QString before;
        int selected; ///< units at the beginning; none: the cursor stands behind two
        QString pasted;
        QString after;
    };
    const Case cases[] = {
        {{}, 0, face.repeated(20), full},
        {full, 0, "x", full},
        {full, 4, "abc", "ab" + face.repeated(13)},
        {{}, 0, "a line\r\n", "a line"},
        {stored, 0, "y", stored},
        {stored, 1, "", stored.chopped(1)},
    };
    for (const Case& c : cases) {
        Owner owner;
        owner.screens.show("login");
        auto& name = owner.control<TextBox>("login", "username");
        name.setText(c.before);
        name.setCursorPosition(2);
        if (c.selected > 0)
            name.setSelection(0, c.selected);
        name.insert(c.pasted);
        QApplication::processEvents();
        EXPECT_EQ(name.text(), c.after);
        if (c.after != c.before)
            name.undo();
        EXPECT_EQ(name.text(), c.before);
    }
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
    EXPECT_NE(owner.boxes().find("Admin: (!) "), std::string::npos);
    owner.run("login", "username=owner; password=Secret word; login");
    EXPECT_NE(owner.boxes().find("the file is missing"), std::string::npos);
    ASSERT_TRUE(QFile::rename(away, owner.bank.path()));
    owner.click("login", "login");
    EXPECT_TRUE(owner.screens.find("admin"));
}

TEST(ChangePassword, ChangesTheFirstAccountThatMatchesAndTellsWhatIsWrong)
{
    struct Case
    {
        const char* steps;
        const char* box;
        const char* focus; ///< none: the window closes
        const char* accounts = "Secret word|same|same";
    };
    const Case cases[] = {
        {"username=owner; password=Secret word; newpassword= new one ; newpassword2=new one",
         "Admin: Password Changed Successfully", nullptr, "new one|same|same"},
        {"username=twin; password=same; newpassword=a'b; newpassword2=a'b",
         "Admin: Password Changed Successfully", nullptr, "Secret word|a'b|same"},
        {"username=owner; password=Secret word; newpassword=New; newpassword2=new",
         "Orvanta: Both New Passwords Do not match", "newpassword2"},
        {"username=owner; password=secret word; newpassword=New; newpassword2=New",
         "Admin: Invalid Username/Password", "password"},
        {"username=owner; password=Secret word; newpassword=  ; newpassword2=  ",
         "Admin: Username/Password not entered", "username"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.steps);
        Owner owner;
        owner.open({"changepassword"});
        owner.run("changepassword", QString(c.steps) + "; Command1");
        EXPECT_EQ(owner.boxes(), c.box);
        EXPECT_EQ(owner.screens.find("changepassword") != nullptr, c.focus != nullptr);
        if (c.focus)
            EXPECT_EQ(owner.focused("changepassword"), c.focus);
        EXPECT_EQ(owner.bank.value("select group_concat(password, '|') from users"), c.accounts);
    }
}

} // namespace admin
