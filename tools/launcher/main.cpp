// Starts the installed game for the one who sits at the desktop: in a folder of their own, which the first
// start furnishes.

#include "launcher/folder.h"
#include "toolkit/desktop.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QMessageBox>
#include <QProcess>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>

namespace {

/// A file or folder below the share folder of the place where Orvanta is installed.
QString besidePrograms(const QString& path)
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../share/" + path);
}

void tell(QMessageBox::Icon icon, const QString& text)
{
    QMessageBox box(icon, "Orvanta", text, QMessageBox::Ok);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.exec();
}

void tellPassword(const QString& bank, const std::string& password)
{
    tell(QMessageBox::Information,
         QString("Welcome to Orvanta! A question bank of your own has been made:\n%1\n\n"
                 "Behind Administrator you may change its questions. Log in as\n\n"
                 "        user name:  owner\n        password:  %2\n\n"
                 "Note the password down: it was made for this bank alone and is not shown again. "
                 "Should it get lost, this sets another one:\norvbank admin %1 password owner")
             .arg(bank, QString::fromStdString(password)));
}

/// Runs the game until it ends; its exit code.
int play(const QString& folder)
{
    QProcess game;
    game.setWorkingDirectory(folder);
    game.setProcessChannelMode(QProcess::ForwardedChannels);
    game.setInputChannelMode(QProcess::ForwardedInputChannel);
    game.start(QCoreApplication::applicationDirPath() + "/orvanta", QStringList());
    if (!game.waitForStarted())
        throw launcher::Failure(
            QString("The game cannot be started: %1.\n\nInstall Orvanta anew.").arg(game.errorString()));
    game.waitForFinished(-1);
    if (game.exitStatus() == QProcess::CrashExit)
        throw launcher::Failure(
            "Orvanta has ended unexpectedly. Your question bank is safe; start it again.");
    return game.exitCode();
}

/// Holds the folder until this process ends, in whatever way; false if another launcher does. Where the file
/// system knows no such locks, two games are nobody's harm.
bool holdFolder(const std::filesystem::path& folder)
{
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return descriptor < 0 || ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

int run()
{
    const auto places = launcher::placesFor(besidePrograms("orvanta").toStdString());
    launcher::makeFolder(places);
    const QDir folder(QFile::decodeName(places.own.c_str()));
    if (!holdFolder(places.own)) {
        throw launcher::Failure("Orvanta is running already. Look for its window on your desktop, or end the "
                                "game that is open before you start another one.");
    }
    if (const auto password = launcher::furnish(places))
        tellPassword(folder.filePath("orv.orv"), *password);
    return play(folder.path());
}

} // namespace

int main(int argc, char** argv)
{
    if (!toolkit::prepareDesktop())
        return 1;
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon(besidePrograms("icons/hicolor/64x64/apps/orvanta.png")));
    try {
        return run();
    } catch (const std::exception& error) {
        tell(QMessageBox::Critical, QString::fromUtf8(error.what()));
        return 1;
    }
}
