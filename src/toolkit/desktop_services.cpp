#include "toolkit/desktop_services.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QScreen>
#include <QTimer>
#include <QUrl>

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>

namespace toolkit {

namespace {

constexpr int narrowestBox = 180;
constexpr int scrolledWidth = 520;
constexpr qsizetype mostMeasured = 5000; // characters; far more than a box can show

// A box grows with its text and would push its buttons off the screen; a text as long as that scrolls.
void scrollLongText(const QMessageBox& box, QGridLayout& grid, QLabel& label)
{
    const QString text = box.text();
    const QSize room(scrolledWidth, box.screen()->availableSize().height() / 2);
    const QRect unbounded(0, 0, room.width(), 0);
    const int needed =
        label.fontMetrics()
            .boundingRect(unbounded, Qt::TextWordWrap, text.first(std::min(text.size(), mostMeasured)))
            .height();
    if (needed <= room.height())
        return;
    // Only this control is quick with a book of text.
    auto* page = new QPlainTextEdit(text, label.parentWidget());
    page->setReadOnly(true);
    page->setTabChangesFocus(true);
    page->setMinimumSize(room);
    label.hide();
    const std::unique_ptr<QLayoutItem> former(grid.replaceWidget(&label, page));
}

int show(QWidget* owner, const QString& title, const QString& text, QMessageBox::Icon icon,
         QMessageBox::StandardButtons buttons)
{
    QMessageBox box(icon, title, text, buttons, owner);
    box.setTextFormat(Qt::PlainText);
    // Without these the first button of the desktop's order would be it, on one Yes, on another No.
    box.setDefaultButton(buttons.testFlag(QMessageBox::Yes) ? QMessageBox::Yes : QMessageBox::Ok);
    box.setEscapeButton(buttons.testFlag(QMessageBox::No) ? QMessageBox::No : QMessageBox::Ok);
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    auto* label = box.findChild<QLabel*>("qt_msgbox_label");
    if (grid && label) {
        scrollLongText(box, *grid, *label);
        // Wide enough for its title.
        grid->addItem(new QSpacerItem(narrowestBox, 0), grid->rowCount(), 0, 1, grid->columnCount());
    }
    return box.exec();
}

/// The desktop's own opener of addresses, which may last as long as the browser. What it has opened outlives
/// this object and the program.
class Opener final : public QProcess
{
public:
    explicit Opener(QObject* parent) : QProcess(parent)
    {
        setStandardInputFile(nullDevice());
        setStandardOutputFile(nullDevice());
        setStandardErrorFile(nullDevice());
        setChildProcessModifier([] { ::setsid(); });
        age_.start();
    }
    ~Opener() override { setProcessState(NotRunning); } // else it would be killed

    /// A browser that ends later than this has been seen.
    [[nodiscard]] bool isRecent() const { return !age_.hasExpired(10'000); }

private:
    QElapsedTimer age_;
};

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

void DesktopBrowser::navigate(const QString& address, QObject& context, std::function<void()> failed)
{
    auto* opener = new Opener(&context);
    QObject::connect(opener, &QProcess::errorOccurred, &context, [failed](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            failed();
    });
    QObject::connect(opener, &QProcess::finished, &context, [opener, failed](int exitCode) {
        opener->deleteLater();
        if (exitCode != 0 && opener->isRecent())
            failed();
    });
    // To the openers of most desktops an address without a scheme is the name of a file.
    opener->start("xdg-open", {QUrl(address).scheme().isEmpty() ? "https://" + address : address});
}

void DesktopBeeper::beep()
{
    QApplication::beep();
}

ClockSeededRandom::ClockSeededRandom() : engine_(std::random_device{}()) {}

// The clock alone would repeat a seed when asked twice within its resolution, and with it the draw.
void ClockSeededRandom::reseed()
{
    const auto now = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
    std::seed_seq seed{static_cast<std::uint32_t>(now), static_cast<std::uint32_t>(now >> 32U),
                       static_cast<std::uint32_t>(engine_()), static_cast<std::uint32_t>(engine_())};
    engine_.seed(seed);
}

float ClockSeededRandom::next()
{
    constexpr unsigned spareBits = 8; // a float holds 24 of the 32 bits
    constexpr float step = 1.0F / 16777216.0F;
    return static_cast<float>(engine_() >> spareBits) * step;
}

std::chrono::milliseconds SystemClock::now() const
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

void SystemClock::start(QTimer& timer)
{
    timer.start();
}

void SystemClock::stop(QTimer& timer)
{
    timer.stop();
}

void SystemClock::wait(std::chrono::milliseconds pause)
{
    QEventLoop loop;
    QTimer::singleShot(pause, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

} // namespace toolkit
