#include "player.h"

namespace desk {

/// The owner of the bank, who has nothing but a keyboard.
class OwnerJourney : public Player
{
protected:
    void type(const QString& keys) { desk->display->type(keys); }

    void waitFor(const char* control, const QString& text)
    {
        desk->until(QString("%1 to show %2").arg(control, text).toStdString(), [&](const Scene& scene) {
            return scene.names() == "admin" && scene.at("admin").controls.contains(control) &&
                   scene.control("admin", control).text == text;
        });
    }

    void logIn(const QString& password)
    {
        desk->untilFocus("userselect", "contestant");
        type("\t\t\t "); // past the links to the other button
        desk->untilFocus("login", "username");
        type("owner\t" + password + "\r");
    }

    /// Once the console has the keyboard, which a box gives back a little after it has gone.
    void typeThere(const QString& keys)
    {
        desk->untilKeyboard(desk->untilOnly("admin").at("admin").window);
        type(keys);
    }

    /// Presses the keys of a menu of the console and of its item.
    void choose(const QString& letter, const char* menu, const QString& item)
    {
        typeThere("&" + letter);
        desk->until("the menu", [&](const Scene& scene) { return scene.shows(menu); });
        type(item);
    }

    /// Closes the box that is open, whose text, icon and buttons are these.
    void confirm(const std::string& box, const char* keys = "\r")
    {
        EXPECT_EQ(desk->answer(keys).summary(), "Admin | " + box);
    }
};

TEST_F(OwnerJourney, KeepsTheBankByKeyboardAlone)
{
    bank.execute("insert into users values ('owner', 'first')");
    begin();
    logIn("wrong");
    confirm("Invalid Username/Password | no icon | OK");
    desk->untilFocus("login", "password");
    type(QString(endKey) + "\b\b\b\b\bfirst\r");

    choose("f", "file", "q");
    waitFor("questionid", "11");
    desk->untilFocus("admin", "question");
    type("&a");
    waitFor("questionid", "");
    type("Who\tone\ttwo\tthree\tfour\t" + QString(2, downKey) + "\t2&s");
    confirm("Successfully Saved | no icon | OK");
    waitFor("questionid", "36");
    typeThere("\t\t\t "); // to the button for the first one
    waitFor("questionid", "11");
    type(QString(5, '\t') + endKey + " x" + QString(13, '\t') + ' '); // to the question, and to the next one
    confirm("The Current Record has been modified do you wish to Update it? | no icon | No | Yes", "&y");
    // Passing through the list of answers has emptied it.
    confirm("The Following Errors have occured. Please correct them\nCorrect Answer Not Selected\n | no icon "
            "| OK");
    waitFor("questionid", "12");
    typeThere("&d");
    confirm("Are you sure ? | no icon | No | Yes", "&y");
    confirm("Successfully deleted | no icon | OK");
    waitFor("question", "Question 1.1");
    EXPECT_EQ(
        bank.value("select group_concat(question_id || question || answer1 || correct_answer || Level || a,"
                   " ' ') from questions where question_id < 13 or question_id > 35"),
        "11Question 1.11.1 one1.1 two11 36Whoonetwo21");
    typeThere("&x");
    desk->until("the editor to close",
                [](const Scene& scene) { return !scene.at("admin").controls.contains("cmdnext"); });
    choose("f", "file", "x");
    desk->untilOnly("userselect");
}

} // namespace desk
