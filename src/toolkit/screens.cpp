#include "toolkit/screens.h"

#include "toolkit/desktop.h"

#include <QCoreApplication>

#include <algorithm>

namespace toolkit {

// The forms use services that end after this object, so none may be left to a later event loop.
Screens::~Screens()
{
    screens_.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Screens::add(const QString& name, Factory factory, const Ties& ties)
{
    screens_[name] = {std::move(factory), ties, nullptr, false};
}

Form* Screens::find(const QString& name) const
{
    const auto found = screens_.find(name);
    return found == screens_.end() ? nullptr : found->second.form.get();
}

void Screens::show(const QString& name)
{
    Screen& screen = screens_.at(name);
    if (!screen.form) {
        screen.form.reset(screen.factory().release());
        const QPointer<Form> loading = screen.form.get();
        loading->onCloseRequest = [this, name] { close(name); };
        loading->onWindowActivated = [this, form = loading.data()] { activated(form); };
        loading->load();
        if (!loading || loading->isClosed())
            return;
    }
    present(screen);
}

void Screens::present(const Screen& screen)
{
    Form* form = screen.form.get();
    if (Form* parent = find(screen.ties.inside)) {
        parent->showInside(*form);
        return;
    }
    if (!form->isVisible()) {
        Form* backdrop = find(screen.ties.behind);
        if (backdrop)
            backdrop->show();
        form->show();
        if (backdrop)
            keepAbove(*form->windowHandle(), *backdrop->windowHandle());
    }
    if (!form->isEnabled())
        return;
    form->raise();
    form->activateWindow();
    activated(form);
}

void Screens::close(const QString& name)
{
    Screen& screen = screens_.at(name);
    if (!screen.form || screen.closing)
        return;
    screen.closing = true;
    for (const auto& [child, other] : screens_)
        if (other.ties.inside == name)
            close(child);
    screen.form->unload();
    screen.closing = false;
    const auto form = std::move(screen.form);
    form->closed();
    QMetaObject::invokeMethod(this, &Screens::endWhenAllClosed, Qt::QueuedConnection);
}

void Screens::activated(Form* form)
{
    if (active_ == form)
        return;
    active_ = form;
    form->activate();
}

void Screens::endWhenAllClosed()
{
    const bool open =
        std::ranges::any_of(screens_, [](const auto& entry) { return entry.second.form != nullptr; });
    if (!open && allClosed_)
        allClosed_();
}

} // namespace toolkit
