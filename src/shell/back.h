#pragma once

#include "toolkit/form.h"

namespace shell {

/// The plain backdrop behind the game. It is disabled: neither clicks nor the focus are for it.
class Back final : public toolkit::Form
{
public:
    explicit Back(toolkit::Services services);

protected:
    void Form_Load() override;
};

} // namespace shell
