#include "narrator/host.h"

#include "narrator/player.h"
#include "rig/character_file.h"
#include "rig/figure.h"
#include "stage/stage.h"
#include "toolkit/clock.h"
#include "toolkit/desktop.h"
#include "voice/voice.h"

#include <QPointer>
#include <QRandomGenerator>

#include <map>

namespace narrator {

using namespace std::chrono_literals;

namespace {

constexpr auto promptFrame = 16ms; ///< while the first word is to come
constexpr auto busyFrame = 33ms;
constexpr auto idleFrame = 100ms;
constexpr auto unseenFrame = 250ms; ///< what is said goes on behind a minimised form
constexpr auto lookPeriod = 3s;

/// A loaded character: gives the player time and, while it is to be seen, the stage frames.
class Host final : public Character
{
public:
    Host(QWidget& form, toolkit::Clock& clock, voice::Speaker* speaker, const QString& path)
        : clock_(clock),
          figure_(rig::readCharacterFile(path), path),
          voice_(speaker),
          player_(
              figure_.rig(), voice_, [] { return QRandomGenerator::global()->generateDouble(); },
              clock.now()),
          stage_(new stage::Stage(form, figure_, toolkit::windowsCanBePlaced())),
          timer_(clock, idleFrame)
    {
        stage_->onVisibility([this] { update(); });
        stage_->onSkip([this] {
            player_.skip(clock_.now());
            update();
        });
        if (speaker) {
            stage_->showMuted(speaker->muted());
            stage_->onMute([speaker](bool muted) { speaker->setMuted(muted); });
        }
        player_.onLook([this] { return stage_ ? stage_->sights() : rig::Sights(); });
        timer_.onTick([this] { update(); });
    }

    ~Host() override
    {
        if (stage_) {
            stage_->leave();
            stage_->deleteLater();
        }
    }

    void Show() override
    {
        if (stage_)
            stage_->enter();
        update();
    }

    void Stop() override
    {
        player_.stop(clock_.now());
        update();
    }

    void Play(const QString& animation) override
    {
        player_.play(animation, clock_.now());
        update();
    }

    void Speak(const QString& text) override
    {
        player_.speak(text, clock_.now());
        update();
    }

private:
    void update()
    {
        const auto now = clock_.now();
        if (!stage_)
            player_.stop(now);
        const bool seen = stage_ && stage_->isVisible();
        const Frame frame = player_.frame(now);
        if (seen)
            show(frame, now);
        const bool idle = player_.idle(now);
        const bool toCome = !frame.text.isEmpty() && frame.said == 0;
        const auto period = !seen ? unseenFrame : idle ? idleFrame : toCome ? promptFrame : busyFrame;
        if (timer_.intervalAsDuration() != period) {
            timer_.setEnabled(false);
            timer_.setInterval(period);
        }
        timer_.setEnabled(seen || !idle);
    }

    void show(const Frame& frame, std::chrono::milliseconds now)
    {
        stage_->present(frame.pose, frame.text, frame.said);
        if (now >= nextLook_) {
            stage_->lookAround();
            player_.keepStill(!toolkit::animationsWanted());
            nextLook_ = now + lookPeriod;
        }
    }

    toolkit::Clock& clock_;
    rig::Figure figure_;
    voice::Voice voice_;
    Player player_;
    QPointer<stage::Stage> stage_;
    toolkit::Timer timer_;
    std::chrono::milliseconds nextLook_{0};
};

class LoadedCharacters final : public Characters
{
public:
    LoadedCharacters(QWidget& form, toolkit::Clock& clock, voice::Speaker* speaker)
        : form_(&form), clock_(clock), speaker_(speaker)
    {
    }

    void Load(const QString& id, const QString& path) override
    {
        if (hosts_.contains(id))
            throw LoadFailure(id.toStdString() + " is loaded already");
        if (!form_)
            throw LoadFailure("the form of the host is gone");
        try {
            hosts_.emplace(id, std::make_unique<Host>(*form_, clock_, speaker_, path));
        } catch (const rig::FileFailure& failure) {
            throw LoadFailure(failure.what());
        }
    }

    Character& Item(const QString& id) override
    {
        const auto found = hosts_.find(id);
        if (found == hosts_.end())
            throw LoadFailure("there is no character " + id.toStdString());
        return *found->second;
    }

private:
    QPointer<QWidget> form_;
    toolkit::Clock& clock_;
    voice::Speaker* speaker_;
    std::map<QString, std::unique_ptr<Host>> hosts_;
};

} // namespace

std::unique_ptr<Characters> makeCharacters(QWidget& form, toolkit::Clock& clock, voice::Speaker* speaker)
{
    return std::make_unique<LoadedCharacters>(form, clock, speaker);
}

} // namespace narrator
