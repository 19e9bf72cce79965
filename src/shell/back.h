#pragma once

#include "toolkit/form.h"

namespace shell {

/// The plain backdrop behind the game. It is disabled: neither clicks nor the focus are for it. It stands
/// where the window system puts it as long as the game does not reach beyond it there.
class Back final : public toolkit::Form
{
public:
    static constexpr QSize size{1000, 800}; ///< where the screen has room for it

    explicit Back(toolkit::Services services);

protected:
    void Form_Load() override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void coverScreen();
    void standBehindGame();

    bool placed_ = false; ///< by this program; a window manager that knows better is not asked twice
};

} // namespace shell
