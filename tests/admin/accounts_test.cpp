#include "owner.h"

namespace admin {

using toolkit::TextBox;

TEST(Accounts, LetInWhoeverGivesOneAndChangeTheFirstThatMatches)
{
    expect("login", R"(
username=  owner ; password= Secret word  ; login =>  => closed
username=Owner; password=Secret word; login => invalid => password
username=owner; password=' or ''='; login => invalid => password
username=owner; password=  ; login => missing => username
username=   ; password=x; login => missing => username
exit =>  => closed
)");
    expect("changepassword", R"(
username=owner; password=Secret word; newpassword= new one ; newpassword2=new one; Command1 => changed => closed => new one|same|same
username=twin; password=same; newpassword=a'b; newpassword2=a'b; Command1 => changed => closed => Secret word|a'b|same
username=owner; password=Secret word; newpassword=New; newpassword2=new; Command1 => Orvanta: Both New Passwords Do not match => newpassword2
username=owner; password=secret word; newpassword=New; newpassword2=New; Command1 => invalid => password
username=owner; password=Secret word; newpassword=  ; newpassword2=  ; Command1 => missing => username
cancel =>  => closed
)");
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
    EXPECT_EQ(owner.Stand::open(), "admin");
}

TEST(Login, TellsThatTheBankIsMissingUntilItIsThere)
{
    Owner owner;
    const QString away = owner.bank.path() + ".away";
    ASSERT_TRUE(QFile::rename(owner.bank.path(), away));
    owner.screens.show("login");
    EXPECT_TRUE(owner.told().starts_with("Admin: (!) "));
    owner.run("username=owner; password=Secret word; login", "login");
    EXPECT_NE(owner.told().find("the file is missing"), std::string::npos);
    ASSERT_TRUE(QFile::rename(away, owner.bank.path()));
    owner.run("login", "login");
    EXPECT_TRUE(owner.screens.find("admin"));
}

} // namespace admin
