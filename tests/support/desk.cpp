#include "support/desk.h"

namespace support {

Desk::Desk()
{
    screens.onAllClosed([this] { ended = true; });
}

Desk::~Desk()
{
    EXPECT_TRUE(dialogs.done()) << "a box that was expected did not come";
}

toolkit::Form& Desk::form(const QString& name) const
{
    toolkit::Form* found = screens.find(name);
    if (!found)
        throw std::out_of_range("not open: " + name.toStdString());
    return *found;
}

QString Desk::text(const QString& screen, const QString& name) const
{
    return control<toolkit::Label>(screen, name).text();
}

void Desk::click(const QString& screen, const QString& name) const
{
    QTest::mouseClick(&control<QWidget>(screen, name), Qt::LeftButton);
}

std::string Desk::open() const
{
    QStringList names;
    for (const char* name : {"back", "login", "mainscreen", "orv", "rules", "thank", "userselect"})
        if (screens.find(name))
            names << name;
    return names.join(' ').toStdString();
}

std::string Desk::hostLog()
{
    const std::string log = hostRequests.join('\n').toStdString();
    hostRequests.clear();
    return log;
}

} // namespace support
