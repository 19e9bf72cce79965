#include "toolkit/services.h"

#include <QApplication>
#include <QGridLayout>
#include <QInputDialog>
#include <QMessageBox>
#include <QProcess>

namespace toolkit {

namespace {

// A box grows with its text and would push its buttons off the screen.
constexpr qsizetype longestBoxText = 800;
constexpr int narrowestBox = 180;

QString shortened(const QString& text)
{
    return text.size() <= longestBoxText ? text : text.first(longestBoxText) + QChar(0x2026);
}

int show(QWidget* owner, const QString& title, const QString& text, QMessageBox::Icon icon,
         QMessageBox::StandardButtons buttons)
{
    QMessageBox box(icon, title, shortened(text), buttons, owner);
    box.setTextFormat(Qt::PlainText);
    // Without these the first button of the desktop's order would be it, on one Yes, on another No.
    box.setDefaultButton(buttons.testFlag(QMessageBox::Yes) ? QMessageBox::Yes : QMessageBox::Ok);
    box.setEscapeButton(buttons.testFlag(QMessageBox::No) ? QMessageBox::No : QMessageBox::Ok);
    // Wide enough for its title.
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(narrowestBox, 0), grid->rowCount(), 0, 1, grid->columnCount());
    return box.exec();
}

} // namespace

void DesktopDialogs::notice(QWidget* owner, const QString& title, const QString& text, Icon icon)
{
    QMessageBox::Icon shown = QMessageBox::NoIcon;
    if (icon == Icon::Information)
        shown = QMessageBox::Information;
    else if (icon == Icon::Exclamation)
        shown = QMessageBox::Warning;
    show(owner, title, text, shown, QMessageBox::Ok);
}

bool DesktopDialogs::confirm(QWidget* owner, const QString& title, const QString& text)
{
    return show(owner, title, text, QMessageBox::NoIcon, QMessageBox::Yes | QMessageBox::No) ==
           QMessageBox::Yes;
}

QString DesktopDialogs::input(QWidget* owner, const QString& title, const QString& prompt,
                              const QString& initial)
{
    QInputDialog box(owner);
    box.setInputMode(QInputDialog::TextInput);
    box.setWindowTitle(title);
    box.setLabelText(prompt);
    box.setTextValue(initial);
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

void DesktopBrowser::navigate(const QString& address)
{
    QProcess opener;
    opener.setProgram("xdg-open");
    opener.setArguments({address});
    opener.setStandardInputFile(QProcess::nullDevice());
    opener.setStandardOutputFile(QProcess::nullDevice());
    opener.setStandardErrorFile(QProcess::nullDevice());
    opener.startDetached();
}

void DesktopBeeper::beep()
{
    QApplication::beep();
}

} // namespace toolkit
