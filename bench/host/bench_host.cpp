// Prints what the host costs: shares of one core, all threads of the program counted, the time until it is
// heard and until it is silent, and what it adds to the start and the memory of a game. Sound goes through
// ALSA to a device that takes it in real time and plays nothing.

#include "bench/figure.h"
#include "bench/measure.h"
#include "bench/server.h"
#include "narrator/host.h"
#include "toolkit/desktop_services.h"
#include "voice/speaker.h"

#include <QApplication>
#include <QEventLoop>
#include <QLabel>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using namespace bench;
using SteadyClock = std::chrono::steady_clock;
using Time = SteadyClock::time_point;

constexpr auto busySpan = 20s;
constexpr auto quietSpan = 10s;
constexpr int texts = 21;

const QString genie = "genie";
const QString longText =
    "Your question is,,Which of these rivers, all of which begin in the mountains of the north and carry the "
    "melting snow of spring far down into the plains, was the one that the emperor had to cross with all his "
    "elephants on the way to his last battle,,the four options are,,A,Indus,B,Ganges,C,Jhelum,D,Brahmaputra";

/// When the device was given the first sound that is not silence, and when it was last cut off.
struct Ear
{
    std::atomic<Time> sound;
    std::atomic<Time> silence;
};

class HeardDevice final : public voice::SoundDevice
{
public:
    HeardDevice(std::unique_ptr<voice::SoundDevice> device, Ear& ear) : device_(std::move(device)), ear_(ear)
    {
    }

    bool write(std::span<const std::int16_t> samples) override
    {
        const bool done = device_->write(samples);
        if (ear_.sound.load() == Time() &&
            std::ranges::any_of(samples, [](int sample) { return sample != 0; }))
            ear_.sound = SteadyClock::now();
        return done;
    }
    std::chrono::milliseconds delay() override { return device_->delay(); }
    void drop() override
    {
        device_->drop();
        ear_.silence = SteadyClock::now();
    }

private:
    std::unique_ptr<voice::SoundDevice> device_;
    Ear& ear_;
};

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void pass(std::chrono::milliseconds span)
{
    QEventLoop loop;
    QTimer::singleShot(span, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Serves events until `done`; how long that took.
double until(const std::function<bool()>& done)
{
    const Time start = SteadyClock::now();
    while (!done() && SteadyClock::now() - start < 10s)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
    return milliseconds(SteadyClock::now() - start);
}

/// Of the X server, the only child of this process.
double serverSeconds()
{
    std::ifstream children("/proc/self/task/" + std::to_string(getpid()) + "/children");
    std::string child;
    children >> child;
    std::ifstream stat("/proc/" + child + "/stat");
    std::string field;
    for (int i = 0; i < 13; ++i)
        stat >> field;
    double user = 0;
    double system = 0;
    stat >> user >> system;
    return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

void printShare(const std::string& what, std::chrono::milliseconds span, double atMost)
{
    const double ours = cpuSeconds();
    const double server = serverSeconds();
    pass(span);
    const auto share = [span](double seconds) { return 100 * seconds / (milliseconds(span) / 1000); };
    print({what, {share(cpuSeconds() - ours)}, "%", {}, atMost});
    print({"the X server's beside it", {share(serverSeconds() - server)}, "%", {}, {}});
}

/// What is painted of a widget and its window is finished.
class FirstPaint final : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        painted = painted || (event->type() == QEvent::Paint && watched->objectName() == u"host");
        return false;
    }
    bool painted = false;
};

class Show
{
public:
    Show()
    {
        form_.resize(620, 460);
        form_.show();
        pass(500ms);
    }

    void measure()
    {
        load();
        shares();
        delays();
        print({"memory with the host, above that without", {mebibytes() - memoryBefore_}, "MiB", {}, 18});
        print({"of it the program's own, not pages of files",
               {mebibytes("Anonymous") - ownBefore_},
               "MiB",
               {},
               {}});
    }

private:
    [[nodiscard]] narrator::Character& host() { return characters_->Item(genie); }

    void load()
    {
        memoryBefore_ = mebibytes();
        ownBefore_ = mebibytes("Anonymous");
        FirstPaint paint;
        qApp->installEventFilter(&paint);
        const Time start = SteadyClock::now();
        speaker_ = voice::makeSpeaker(voice::synthesise, [this] {
            std::unique_ptr<voice::SoundDevice> device = voice::openAlsaDevice();
            if (device)
                device = std::make_unique<HeardDevice>(std::move(device), ear_);
            return device;
        });
        characters_ = narrator::makeCharacters(form_, clock_, speaker_.get());
        characters_->Load(genie, QString(GENIE));
        host().Show();
        until([&] { return paint.painted; });
        print(
            {"loading the host and painting him", {milliseconds(SteadyClock::now() - start)}, "ms", {}, 60});
    }

    void shares()
    {
        pass(1s);
        printShare("the host at rest, share of a core", quietSpan, 1);
        for (int i = 0; i < 9; ++i) {
            host().Play("Explain");
            host().Speak(longText);
        }
        pass(1s);
        printShare("the host speaking and gesturing, share of a core", busySpan, 5);
        host().Stop();
        form_.hide();
        pass(1s);
        printShare("the host hidden, share of a core", quietSpan, 0.1);
        form_.show();
        pass(1s);
    }

    void delays()
    {
        std::vector<double> words;
        std::vector<double> sounds;
        std::vector<double> silences;
        auto* balloon = form_.findChild<QLabel*>("balloon");
        for (int i = 0; i < texts; ++i) {
            ear_.sound = Time();
            const Time spoken = SteadyClock::now();
            host().Speak(longText);
            words.push_back(until([&] { return balloon->isVisible(); }));
            until([this] { return ear_.sound.load() != Time(); });
            sounds.push_back(milliseconds(ear_.sound.load() - spoken));
            pass(std::chrono::milliseconds(300 + 37 * i));
            const Time stopped = SteadyClock::now();
            host().Stop();
            until([&] { return ear_.silence.load() > stopped; });
            silences.push_back(milliseconds(ear_.silence.load() - stopped));
        }
        print({"Speak of 300 characters to the first word", words, "ms", {}, 100});
        print({"Speak of 300 characters to the first sound", sounds, "ms", {}, 100});
        print({"Stop to silence", silences, "ms", {}, 50});
    }

    toolkit::SystemClock clock_;
    Ear ear_;
    QWidget form_;
    std::unique_ptr<voice::Speaker> speaker_;
    std::unique_ptr<narrator::Characters> characters_;
    double memoryBefore_ = 0;
    double ownBefore_ = 0;
};

} // namespace

int main(int argc, char** argv)
{
    try {
        const QTemporaryDir directory;
        const QByteArray configuration = directory.filePath("sound.conf").toUtf8();
        std::ofstream(configuration.constData()) << "pcm.default { type null }\n";
        qputenv("ALSA_CONFIG_PATH", configuration);
        qputenv("XDG_RUNTIME_DIR", directory.path().toUtf8());
        qputenv("QT_QPA_PLATFORM", "xcb");
        const Server server;
        const QApplication application(argc, argv);
        printHeading("bench_host");
        Show().measure();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "bench_host: %s\n", failure.what());
        return 1;
    }
    return 0;
}
