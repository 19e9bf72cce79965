#include "support/stand.h"

#include "toolkit/choice_list.h"
#include "toolkit/text_box.h"

#include <QRegularExpression>

namespace support {

Stand::Stand()
{
    screens.onAllClosed([this] { log << "ended"; });
    dialogs.answer = [this](const auto& box) { return answerBox(box); };
}

Stand::~Stand()
{
    EXPECT_EQ(log.filter(QRegularExpression("^(Orvanta|Admin): ")).join("; ").toStdString(), "");
    EXPECT_EQ(answers, "") << "a question was not asked";
}

void Stand::addPlain(const QStringList& names)
{
    for (const QString& name : names)
        screens.add(name, [=, this] {
            return std::make_unique<toolkit::Form>(toolkit::FormSettings{name}, services);
        });
}

QString Stand::answerBox(const AnsweredDialogs::Box& box)
{
    using enum toolkit::Dialogs::Icon;
    const char* const sign = box.icon == Information ? "(i) " : box.icon == Exclamation ? "(!) " : "";
    log << box.title + ": " + sign + QString(box.text).remove(bank.path().chopped(7));
    if (const auto running = std::exchange(meanwhile, {}))
        running();
    if (box.kind != AnsweredDialogs::Box::Kind::Confirm)
        return "Asha";
    EXPECT_NE(answers, "") << "unexpected: " << box.text.toStdString();
    return std::exchange(answers, answers.substr(answers.empty() ? 0 : 1)).starts_with('y') ? "y" : "";
}

toolkit::Form& Stand::form(const QString& name) const
{
    toolkit::Form* found = screens.find(name);
    if (!found)
        throw std::out_of_range("not open: " + name.toStdString());
    return *found;
}

std::string Stand::shown(const QString& screen, const QString& names) const
{
    QStringList texts;
    for (const QString& name : names.split(' ')) {
        const char* const property = name == "announcement" ? "accessibleName" : "text";
        texts << (name == "focus" ? QString::fromStdString(focused(screen))
                                  : control<QWidget>(screen, name).property(property).toString());
    }
    return texts.join('|').toStdString();
}

std::string Stand::focused(const QString& screen) const
{
    const QWidget* focus = form(screen).focusWidget();
    return focus ? focus->objectName().toStdString() : "";
}

std::string Stand::open() const
{
    QStringList names;
    for (const char* name : {"admin", "back", "login", "mainscreen", "orv", "rules", "thank", "userselect"})
        if (screens.find(name))
            names << name;
    return names.join(' ').toStdString();
}

std::string Stand::told()
{
    return std::exchange(log, {}).join("; ").toStdString();
}

void Stand::run(const QString& steps, const QString& screen)
{
    for (const QString& step : steps.split("; ", Qt::SkipEmptyParts))
        runStep(step, screen.isEmpty() ? usual : screen);
}

void Stand::runStep(const QString& step, const QString& screen)
{
    const QString name = step.section(QRegularExpression("[=#:]"), 0, 0);
    const QString rest = step.mid(name.size() + 1);
    const QChar kind = step.size() > name.size() ? step[name.size()] : QChar();
    if (step == "settle") {
        QTest::qWait(0);
    } else if (step.startsWith('!')) {
        bank.execute(step.mid(1).toStdString());
    } else if (step.startsWith("show ")) {
        screens.show(step.mid(5));
    } else if (step.startsWith("close ")) {
        screens.close(step.mid(6));
    } else if (step.endsWith("ms")) {
        clock.advance(std::chrono::milliseconds(step.chopped(2).toInt()));
    } else if (kind == '=') {
        auto& box = control<toolkit::TextBox>(screen, name);
        box.setFocus(Qt::MouseFocusReason);
        box.selectAll();
        box.insert(rest);
    } else if (kind == '#') {
        auto& list = control<toolkit::ChoiceList>(screen, name);
        list.setFocus(Qt::MouseFocusReason);
        list.setCurrentIndex(std::min(rest.toInt(), list.count() - 1));
    } else {
        answers += rest.toStdString();
        if (!name.isEmpty())
            QTest::mouseClick(&control<QWidget>(screen, name), Qt::LeftButton);
    }
}

} // namespace support
