#include "player.h"

namespace desk {

/// The owner of the bank, who has nothing but a keyboard.
class OwnerJourney : public Player
{
protected:
    /// Presses keys: "alt+x", the names of keys, or else a text to type.
    void press(std::initializer_list<const char*> keys)
    {
        for (const QString key : keys) {
            if (key.startsWith("alt+"))
                desk->display->pressAlt(key.back().toLatin1());
            else if (key == "tab" || key == "enter" || key == "down" || key == "end")
                desk->display->press(key == "tab"     ? Display::Tab
                                     : key == "enter" ? Display::Return
                                     : key == "down"  ? Display::Down
                                                      : Display::End);
            else
                desk->display->type(key);
        }
    }

    void waitFor(const char* screen, const char* control, const QString& text)
    {
        desk->until(QString("%1 to show %2").arg(control, text).toStdString(), [&](const Scene& scene) {
            const ShownWindow* window = scene.find(screen);
            return window != nullptr && window->controls.contains(control) &&
                   window->textOf(control) == text && scene.boxes.empty();
        });
    }

    void waitForFocus(const char* screen, const char* control)
    {
        desk->until(std::string("the focus in ") + control, [&](const Scene& scene) {
            const ShownWindow* window = scene.find(screen);
            return window != nullptr && window->controls.contains(control) && window->control(control).focus;
        });
    }

    void logIn(const char* password)
    {
        waitForFocus("userselect", "contestant");
        press({"tab", " "}); // the other button
        waitForFocus("login", "username");
        press({"owner", "tab", password, "enter"});
    }

    void choose(char letter, const char* menu, const char* item)
    {
        desk->until("the keyboard in the console", [&](const Scene& scene) {
            return scene.screens() == "admin" && scene.boxes.empty() &&
                   desk->hasKeyboard(scene.at("admin").window);
        });
        desk->display->pressAlt(letter);
        desk->until("the menu", [&](const Scene& scene) { return scene.shows(menu); });
        press({item});
    }

    /// Walks on by Tab until a control has the focus.
    void focusOn(const char* control)
    {
        const auto focused = [](const Scene& scene) {
            QString name;
            for (const auto& [each, state] : scene.at("admin").controls)
                name = state.focus ? each : name;
            return name;
        };
        for (QString at = focused(desk->look()); at != control;) {
            press({"tab"});
            desk->until("the focus to move", [&](const Scene& scene) { return focused(scene) != at; });
            at = focused(desk->look());
        }
    }

    std::string boxText() { return desk->box().summary(); }

    /// Answers the box that is open by keyboard.
    void confirm(const char* key)
    {
        const Window box = desk->box().window;
        desk->until("the keyboard in the box", [&](const Scene&) { return desk->hasKeyboard(box); });
        press({key});
        desk->until("the box to go", [&](const Scene& scene) {
            return std::ranges::none_of(scene.boxes, [&](const Box& open) { return open.window == box; });
        });
    }
};

TEST_F(OwnerJourney, KeepsTheBankByKeyboardAlone)
{
    bank.execute("insert into users values ('owner', 'first')");
    begin();
    logIn("wrong");
    EXPECT_EQ(boxText(), "Admin | Invalid Username/Password | no icon | OK");
    confirm("enter");
    waitForFocus("login", "password");
    press({"end"});
    for (int i = 0; i < 5; ++i)
        desk->display->press(Display::BackSpace);
    press({"first", "enter"});
    desk->until("the console", [](const Scene& scene) { return scene.screens() == "admin"; });

    choose('f', "file", "q");
    waitFor("admin", "questionid", "11");
    waitForFocus("admin", "question");
    press({"alt+a"});
    waitFor("admin", "questionid", "");
    press({"Who", "tab", "one", "tab", "two", "tab", "three", "tab", "four", "tab", "down", "down", "tab",
           "2", "alt+s"});
    EXPECT_EQ(boxText(), "Admin | Successfully Saved | no icon | OK");
    confirm("enter");
    waitFor("admin", "questionid", "36");
    EXPECT_EQ(
        bank.value("select question || answer1 || answer4 || correct_answer || Level || a || d from questions"
                   " where question_id = 36"),
        "Whoonefourtwo211");

    focusOn("cmdfirst");
    press({" "});
    waitFor("admin", "questionid", "11");
    focusOn("question");
    press({"end", " x"});
    focusOn("cmdnext");
    press({" "});
    EXPECT_EQ(boxText(),
              "Admin | The Current Record has been modified do you wish to Update it? | no icon | No | Yes");
    confirm("alt+y");
    // Passing through the list of answers has emptied it.
    EXPECT_EQ(boxText(), "Admin | The Following Errors have occured. Please correct them\nCorrect Answer Not "
                         "Selected\n | no icon | OK");
    confirm("enter");
    waitFor("admin", "questionid", "12");
    press({"alt+d"});
    EXPECT_EQ(boxText(), "Admin | Are you sure ? | no icon | No | Yes");
    confirm("alt+y");
    EXPECT_EQ(boxText(), "Admin | Successfully deleted | no icon | OK");
    confirm("enter");
    waitFor("admin", "question", "Question 1.1");
    focusOn("question");
    press({"end", " x", "alt+u"});
    EXPECT_EQ(boxText(), "Admin | Record Updated | information | OK");
    confirm("enter");
    EXPECT_EQ(
        bank.value("select group_concat(question_id || question) from questions where question_id < 14"),
        "11Question 1.1 x,13Question 1.3");
    press({"alt+x"});
    desk->until("the editor to close",
                [](const Scene& scene) { return !scene.at("admin").controls.contains("cmdnext"); });

    choose('m', "msg", "m");
    waitForFocus("admin", "message");
    press({"alt+a", "Sure", "alt+s"});
    EXPECT_EQ(boxText(), "Admin | Successfully Saved | information | OK");
    confirm("enter");
    EXPECT_EQ(bank.value("select group_concat(message, '|') from locking"), "shall I lock it?|Sure");
    press({"alt+x"});
    desk->until("the editor to close",
                [](const Scene& scene) { return !scene.at("admin").controls.contains("cmdnext"); });

    choose('u', "users", "c");
    waitForFocus("admin", "username");
    press({"owner", "tab", "first", "tab", "second", "tab", "second", "alt+c"});
    EXPECT_EQ(boxText(), "Admin | Password Changed Successfully | no icon | OK");
    confirm("enter");
    choose('f', "file", "x");
    logIn("second");
    desk->until("the console", [](const Scene& scene) { return scene.screens() == "admin"; });
}

} // namespace desk
