#include "support/stand.h"

namespace support {

Stand::Stand()
{
    screens.onAllClosed([this] { ended = true; });
}

Stand::~Stand()
{
    EXPECT_TRUE(dialogs.done()) << "a box that was expected did not come";
}

toolkit::Form& Stand::form(const QString& name) const
{
    toolkit::Form* found = screens.find(name);
    if (!found)
        throw std::out_of_range("not open: " + name.toStdString());
    return *found;
}

QString Stand::text(const QString& screen, const QString& name) const
{
    return control<toolkit::Label>(screen, name).text();
}

void Stand::click(const QString& screen, const QString& name) const
{
    QTest::mouseClick(&control<QWidget>(screen, name), Qt::LeftButton);
}

std::string Stand::focused(const QString& screen) const
{
    const QWidget* focus = form(screen).focusWidget();
    return focus ? focus->objectName().toStdString() : "";
}

std::string Stand::open() const
{
    QStringList names;
    for (const char* name : {"back", "login", "mainscreen", "orv", "rules", "thank", "userselect"})
        if (screens.find(name))
            names << name;
    return names.join(' ').toStdString();
}

std::string Stand::hostLog()
{
    const std::string log = hostRequests.join('\n').toStdString();
    hostRequests.clear();
    return log;
}

} // namespace support
