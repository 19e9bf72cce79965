#include "admin/add_questions.h"
#include "admin/change_password.h"
#include "admin/console.h"
#include "admin/login.h"
#include "admin/messages.h"
#include "game/orv.h"
#include "shell/back.h"
#include "shell/mainscreen.h"
#include "shell/rules.h"
#include "shell/thank.h"
#include "shell/userselect.h"
#include "support/stand.h"
#include "toolkit/access.h"
#include "toolkit/contrast.h"
#include "toolkit/reach.h"

#include <QAccessible>
#include <QScrollBar>

#include <set>

namespace {

using toolkit::Label;

/// As whoever hears the screen knows it: a box or a list by the label beside it.
QString nameOf(QAccessibleInterface& told)
{
    const auto labels = told.relations(QAccessible::Label);
    return labels.isEmpty() ? told.text(QAccessible::Name)
                            : qobject_cast<QWidget*>(told.object())->accessibleName();
}

/// Between the darkest and the lightest of what is seen of a control.
double contrastOf(QWidget& control)
{
    const QImage picture = control.parentWidget()->grab(control.geometry()).toImage();
    double darkest = 21;
    double lightest = 1;
    for (int i = 0; i < picture.width() * picture.height(); ++i) {
        const double light =
            toolkit::contrast(picture.pixelColor(i % picture.width(), i / picture.width()), Qt::black);
        darkest = std::min(darkest, light);
        lightest = std::max(lightest, light);
    }
    return lightest / darkest;
}

void lookAt(QAccessibleInterface& told, const std::set<const QObject*>& reached)
{
    auto& control = *qobject_cast<QWidget*>(told.object());
    const QAccessible::State state = told.state();
    if (state.invisible || !toolkit::isInView(control))
        return;
    const QAccessible::Role role = told.role();
    SCOPED_TRACE((control.objectName() + ", " + nameOf(told)).toStdString());
    const std::set vague{QAccessible::NoRole, QAccessible::Client, QAccessible::Window};
    const std::set passive{QAccessible::StaticText, QAccessible::Notification, QAccessible::Grouping,
                           QAccessible::MenuBar, QAccessible::LayeredPane};
    EXPECT_TRUE(!nameOf(told).isEmpty() && !vague.contains(role)) << role;
    EXPECT_TRUE(passive.contains(role) || state.disabled || reached.contains(&control)) << "not by Tab";
    for (const auto* bar : control.findChildren<QScrollBar*>())
        EXPECT_TRUE(bar->isVisible() || bar->maximum() == 0) << "has more to show";
    for (const QString& key : control.property(toolkit::keysProperty).toStringList())
        EXPECT_TRUE(control.toolTip().contains(key)) << "no word of the key " << key.toStdString();
    QRect seen = control.geometry();
    if (const auto* const label = dynamic_cast<const Label*>(&control)) {
        const int flags = static_cast<int>(label->alignment()) | Qt::TextWordWrap;
        const auto fit = toolkit::fitted(label->text(), label->font(), label->size(), flags);
        EXPECT_EQ(fit.text, label->text());
        seen = QFontMetrics(fit.font).boundingRect(seen, fit.flags, fit.text);
    }
    EXPECT_TRUE(control.parentWidget()->rect().adjusted(-1, -1, 1, 1).contains(seen)) << "cut";
    const QString text = control.property("text").toString() + control.property("plainText").toString();
    if (!state.disabled && !text.isEmpty())
        EXPECT_GE(contrastOf(control), control.font().pixelSize() < 32 ? 4.5 : 3);
}

class Walk : public testing::Test, protected support::Stand
{
protected:
    /// Goes over all that a screen shows; returns what Tab reaches from where the focus is.
    std::string walk(const QString& screen)
    {
        SCOPED_TRACE(screen.toStdString());
        toolkit::Form& form = this->form(screen);
        QAccessibleInterface& root = *QAccessible::queryAccessibleInterface(&form);
        EXPECT_NE(root.text(QAccessible::Name), "");
        std::set<const QObject*> reached;
        QStringList names;
        for (QWidget* at = form.focusWidget(); at && reached.insert(at).second; at = form.focusWidget()) {
            names << nameOf(*QAccessible::queryAccessibleInterface(at));
            QTest::keyClick(at, Qt::Key_Tab);
        }
        for (int i = 0; i < root.childCount(); ++i)
            lookAt(*root.child(i), reached);
        return names.join(", ").toStdString();
    }
};

} // namespace

TEST_F(Walk, FindsNothingNamelessOutOfReachCutOrPale)
{
    const toolkit::Screens::Ties inside{.inside = "admin"};
    add<shell::UserSelect>("userselect");
    add<shell::MainScreen>("mainscreen");
    add<shell::Rules>("rules");
    add<shell::Thank>("thank");
    add<admin::Login>("login");
    add<admin::Console>("admin");
    add<admin::AddQuestions>("addquestions", inside);
    add<admin::Messages>("messages", inside);
    add<admin::ChangePassword>("changepassword", inside);
    const std::pair<const char*, const char*> tabbed[] = {
        {"userselect", "Contestant, team@orvanta.example, www.orvanta.example, Administrator"},
        {"mainscreen", "CLICK HERE TO READ THE RULES AND PROCEED TO PLAY"},
        {"rules",
         "Click here to start the Game, I Accept the Rules, I Reject the Rules, The Rules of the Game"},
        {"thank", ""},
        {"login", "Username, Password, Login, Exit"},
        {"admin", ""},
        {"addquestions",
         "Question, Answer1, Answer2, Answer3, Answer4, Correct Answer, Level, ADD, SAVE, UPDATE, "
         "DELETE, First, Previous, Next, Last, EXIT, Find"},
        {"messages", "Message, First, Previous, Next, Last, ADD, SAVE, UPDATE, EXIT, CANCEL, Find"},
        {"changepassword", "Username, Password, New Password, Retype Password, Change, Cancel"},
    };
    for (const auto& [screen, reached] : tabbed) {
        screens.show(screen);
        QApplication::setActiveWindow(form(screen).window());
        if (QWidget* const first = form(screen).focusWidget()) {
            QTest::keyClick(first, Qt::Key_F3); // the editors' box for finding
            first->setFocus();
        }
        EXPECT_EQ(walk(screen), reached);
    }
}

TEST_F(Walk, FindsNothingInAGameEither)
{
    add<shell::Back>("back");
    addPlain({"thank"});
    screens.add("orv", [this] { return std::make_unique<game::Orv>(services, makeHost); });
    dialogs.answer = [this](const auto&) { return walk("orv"), "Asha"; };
    screens.show("orv");
    walk("back");
    for (const char* control :
         {"LL", "mws", "lifeline1", "lifeline2", "lifeline3", "option3", "cmdok", "leave", "cmdokquit"}) {
        run(QString(control) + "; 1000ms", "orv");
        if (open() == "back orv")
            walk("orv");
    }
    EXPECT_EQ(open(), "thank");
}
