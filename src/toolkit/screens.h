#pragma once

#include "toolkit/form.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <map>
#include <memory>

namespace toolkit {

/// The screens of the program by name: each is open at most once, is made when it is shown and gone when it
/// is closed. A handler moves on with close(...) and show(...); no screen needs to know another one's class.
class Screens : public QObject
{
public:
    using Factory = std::function<std::unique_ptr<Form>()>;

    ~Screens() override;

    /// Names of the screens to which a screen is tied.
    struct Ties
    {
        QString behind = {}; ///< always stays behind the screen on the desktop
        QString inside = {}; ///< holds the window of the screen, and takes it along when it is closed
    };
    void add(const QString& name, Factory factory, const Ties& ties);
    void add(const QString& name, Factory factory) { add(name, std::move(factory), Ties{}); }

    /// Makes and loads the screen unless it is open (or loading), then makes it visible and active. A screen
    /// that closed itself while it was loading stays closed.
    void show(const QString& name);

    /// Runs the screen's unload handler and takes it down; nothing if it is not open. The form itself lives
    /// until the handlers that are running have returned.
    void close(const QString& name);

    [[nodiscard]] Form* find(const QString& name) const;

    /// Called from the event loop when no screen is open any more.
    void onAllClosed(std::function<void()> handler) { allClosed_ = std::move(handler); }

private:
    struct DeleteLater
    {
        void operator()(Form* form) const { form->deleteLater(); }
    };
    struct Screen
    {
        Factory factory;
        Ties ties;
        std::unique_ptr<Form, DeleteLater> form;
        bool closing = false;
    };

    void present(const Screen& screen);
    void activated(Form* form);
    void endWhenAllClosed();

    std::map<QString, Screen> screens_;
    QPointer<Form> active_;
    std::function<void()> allClosed_;
};

} // namespace toolkit
