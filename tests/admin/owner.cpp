#include "owner.h"

#include "admin/add_questions.h"
#include "admin/change_password.h"
#include "admin/console.h"
#include "admin/login.h"
#include "admin/messages.h"

#include <QRegularExpression>

namespace admin {

using support::ScriptedDialogs;
using toolkit::ChoiceList;
using toolkit::TextBox;

namespace {

/// Three questions, the second with an answer key and a level that no list has; two messages; three accounts.
constexpr const char* content = R"(
delete from questions; delete from locking;
insert into questions values (1, 'One?', 'a', 'b', 'c', 'd', 'b', '1', 1, 1, 1, 1),
    (2, 'Two?', 'e', 'f', null, 'h', 'F', '9', 1, 2, 3, 4), (7, 'Seven?', ' i', 'j', 'k', 'i', 'i', '3', 9, 9, 9, 9);
insert into locking values ('sure?'), (' really? ');
insert into users values ('owner', 'Secret word'), ('twin', 'same'), ('twin', 'same');
)";

struct Plain final : toolkit::Form
{
    using Form::Form;
};

} // namespace

Owner::Owner()
{
    bank.execute(content);
    const toolkit::Screens::Ties inside{.inside = "admin"};
    screens.add("login", [this] { return std::make_unique<Login>(services); });
    screens.add("admin", [this] { return std::make_unique<Console>(services); });
    screens.add(
        "addquestions", [this] { return std::make_unique<AddQuestions>(services); }, inside);
    screens.add(
        "messages", [this] { return std::make_unique<Messages>(services); }, inside);
    screens.add(
        "changepassword", [this] { return std::make_unique<ChangePassword>(services); }, inside);
    screens.add("userselect", [this] {
        return std::make_unique<Plain>(toolkit::FormSettings{.name = "userselect"}, services);
    });
    dialogs.otherwise = [this](const ScriptedDialogs::Box& box) -> QString {
        using enum toolkit::Dialogs::Icon;
        const char* const sign = box.icon == Information ? "(i) " : box.icon == Exclamation ? "(!) " : "";
        log_ << box.title + ": " + sign + box.text;
        if (box.kind == ScriptedDialogs::Box::Kind::Notice)
            return {};
        EXPECT_FALSE(answers.empty()) << "unexpected: " << box.text.toStdString();
        return std::exchange(answers, answers.substr(answers.empty() ? 0 : 1)).starts_with('y') ? "y" : "";
    };
}

void Owner::open(std::initializer_list<const char*> names)
{
    screens.show("admin");
    QApplication::setActiveWindow(&form("admin"));
    for (const char* name : names)
        screens.show(name);
}

void Owner::run(const QString& screen, const QString& steps)
{
    for (const QString& step : steps.split("; ", Qt::SkipEmptyParts)) {
        const auto parts = step.indexOf(QRegularExpression("[=#]"));
        if (step.startsWith('!')) {
            bank.execute(step.mid(1).toStdString());
        } else if (step.startsWith('?')) {
            find(screen, step.mid(1));
        } else if (step == "wait") {
            clock.advance(std::chrono::seconds(1));
            log_ << "~" + text(screen, "near");
        } else if (parts < 0) {
            click(screen, step);
        } else if (step[parts] == '=') {
            auto& box = control<TextBox>(screen, step.first(parts));
            box.setFocus(Qt::MouseFocusReason);
            box.selectAll();
            box.insert(step.mid(parts + 1));
        } else {
            auto& list = control<ChoiceList>(screen, step.first(parts));
            list.setFocus(Qt::MouseFocusReason);
            list.setCurrentIndex(step.mid(parts + 1).toInt());
        }
    }
}

void Owner::find(const QString& screen, const QString& words)
{
    auto& box = control<TextBox>(screen, "findwords");
    QTest::keyClick(form(screen).focusWidget(), Qt::Key_F, Qt::ControlModifier);
    box.insert(words);
    QTest::keyClick(&box, Qt::Key_Return);
    clock.advance(std::chrono::seconds(1));
    log_ << "?" + text(screen, "findresult");
}

std::string Owner::told()
{
    return std::exchange(log_, {}).join('\n').toStdString();
}

std::string Owner::shown(const QString& screen) const
{
    if (screen == "messages")
        return control<TextBox>(screen, "message").text().toStdString();
    QStringList texts;
    for (const char* box : {"questionid", "question", "answer1", "answer2", "answer3", "answer4"})
        texts << control<TextBox>(screen, box).text();
    for (const char* name : {"correctanswer", "level"}) {
        const auto& list = control<ChoiceList>(screen, name);
        QStringList entries;
        for (int i = 0; i < list.count(); ++i)
            entries << (i == list.currentIndex() ? "*" : "") + list.itemText(i);
        texts << entries.join(',');
    }
    return texts.join('|').toStdString();
}

std::string Owner::mode(const QString& screen) const
{
    QStringList names;
    for (const auto* button : form(screen).findChildren<toolkit::Button*>())
        if (button->isEnabled())
            names << button->objectName().sliced(3);
    names.sort();
    return focused(screen) + ": " + names.join(' ').toStdString();
}

std::string Owner::questions() const
{
    return bank.value(
        "select group_concat(question_id || '|' || question || '|' || answer1 || '|' || answer2 || '|' ||"
        " coalesce(answer3, 'null') || '|' || answer4 || '|' || correct_answer || '|' || Level || '|'"
        " || a || b || c || d, char(10)) from questions");
}

std::string Owner::messages() const
{
    return bank.value("select group_concat(message, '|') from locking");
}

} // namespace admin
