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

    /// `behind`, if given, names a screen that always stays behind this one on the desktop.
    void add(const QString& name, Factory factory, const QString& behind = {});

    /// Makes and loads the screen unless it is open (or loading), then makes it visible and active. A screen
    /// that closed itself while it was loading stays closed.
    void show(const QString& name);

    /// Runs the screen's unload handler and takes it down; nothing if it is not open. The form itself lives
    /// until the handlers that are running have returned.
    void close(const QString& name);

    [[nodiscard]] Form* find(const QString& name) const;

    /// Called from the event loop when no screen is open any more.
    void onAllClosed(std::function<void()> handler) { allClosed_ = std::move(handler); }

    /// For Form: its window has been activated. True if another screen (or none) was the active one before.
    bool activated(Form* form);

private:
    struct DeleteLater
    {
        void operator()(Form* form) const { form->deleteLater(); }
    };
    struct Screen
    {
        Factory factory;
        QString behind;
        std::unique_ptr<Form, DeleteLater> form;
        bool closing = false;
    };

    void present(const Screen& screen);
    void endWhenAllClosed();

    std::map<QString, Screen> screens_;
    QPointer<Form> active_;
    std::function<void()> allClosed_;
};

} // namespace toolkit
