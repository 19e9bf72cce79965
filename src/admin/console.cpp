#include "admin/console.h"

#include "admin/child_window.h"
#include "toolkit/screens.h"

#include <QMdiArea>
#include <QMenuBar>
#include <QShortcutEvent>
#include <QVBoxLayout>

namespace admin {

Console::Console(toolkit::Services services)
    : AdminForm({.name = "admin",
                 .caption = "Orvanta Admin",
                 .width = 4680,
                 .height = 3195,
                 .border = toolkit::Border::Sizable},
                services),
      menus_(new QMenuBar(this)),
      workspace_(new QMdiArea(this))
{
    auto* file = menus_->addMenu("&File");
    auto* users = menus_->addMenu("&Users");
    auto* msg = menus_->addMenu("&Messages");
    file->setObjectName("file");
    users->setObjectName("users");
    msg->setObjectName("msg");
    addItem(file, "add", "&Questions", [this] { admin_add_Click(); });
    addItem(file, "exit", "E&xit", [this] { admin_exit_Click(); });
    addItem(users, "cnangepassword", "&Change Password", [this] { admin_cnangepassword_Click(); });
    addItem(msg, "message", "&Messages", [this] { admin_message_Click(); });
    menus_->installEventFilter(this);
    menus_->setAccessibleName("Menus");
    workspace_->setAccessibleName("Open windows");

    auto* contents = new QVBoxLayout(this);
    contents->setContentsMargins(0, 0, 0, 0);
    contents->setMenuBar(menus_);
    contents->addWidget(workspace_);
    // A fixed window would be stretched when it comes to the front of a maximised one.
    workspace_->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    workspace_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    workspace_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setWindowState(Qt::WindowMaximized);
}

void Console::addItem(QMenu* menu, const QString& name, const QString& caption, std::function<void()> handler)
{
    QAction* item = menu->addAction(caption);
    item->setObjectName(name);
    connect(item, &QAction::triggered, this, [this, handler = std::move(handler)] { run(handler); });
}

void Console::showInside(Form& child)
{
    auto* window = qobject_cast<QMdiSubWindow*>(child.parentWidget());
    if (!window) {
        auto* opened = new ChildWindow(child);
        opened->open(*workspace_);
        window = opened;
    }
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    workspace_->setActiveSubWindow(window);
    if (!child.isAncestorOf(focusWidget()))
        child.resumeFocus();
}

// A letter that both a menu and the window in use have as their access key belongs to the window
// as long as it is seen.
bool Console::eventFilter(QObject* watched, QEvent* event)
{
    const auto* window = workspace_->activeSubWindow();
    if (watched != menus_ || event->type() != QEvent::Shortcut || !window)
        return AdminForm::eventFilter(watched, event);
    const QKeySequence pressed = static_cast<QShortcutEvent*>(event)->key();
    for (auto* button : window->findChildren<toolkit::Button*>()) {
        if (button->shortcut() == pressed && button->isEnabled() && button->isVisible()) {
            button->press();
            return true;
        }
    }
    return AdminForm::eventFilter(watched, event);
}

void Console::admin_add_Click()
{
    screens().show("addquestions");
}

void Console::admin_exit_Click()
{
    screens().close("admin");
}

void Console::admin_cnangepassword_Click()
{
    screens().show("changepassword");
}

void Console::admin_message_Click()
{
    screens().show("messages");
}

void Console::admin_MDIForm_Unload()
{
    screens().show("userselect");
}

} // namespace admin
