#include "voice/flite_synthesiser.h"

#include "voice/respelling.h"
#include "voice/spelling.h"

#include <QLibrary>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

extern "C" {
#include <flite/flite.h>
}

namespace voice {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;

namespace {

constexpr auto leadIn = 40ms; ///< of the silence that the voice begins every piece with

/// More silence behind a piece than the voice makes by itself.
Milliseconds breath(Pause pause)
{
    constexpr std::array breaths = {0ms, 0ms, 200ms, 130ms, 250ms};
    return breaths.at(static_cast<std::size_t>(pause));
}

Milliseconds fromSeconds(double seconds)
{
    return Milliseconds(std::lround(seconds * 1000));
}

int onSamples(const cst_wave*, int, int, int, cst_audio_streaming_info* info)
{
    const auto& dropped = *static_cast<const std::function<bool()>*>(info->userdata);
    return dropped() ? CST_AUDIO_STREAM_STOP : CST_AUDIO_STREAM_CONT;
}

std::vector<Segment> segmentsOf(cst_utterance* utterance)
{
    std::vector<Segment> segments;
    for (const cst_item* item = relation_head(utt_relation(utterance, "Segment")); item;
         item = item_next(item))
        segments.push_back({item_name(item), fromSeconds(item_feat_float(item, "end"))});
    return segments;
}

/// The words of the piece with the times of the tokens that the library made of them, one of each.
std::vector<WordTime> wordTimes(cst_utterance* utterance, const SpokenPiece& piece)
{
    std::vector<WordTime> times;
    const cst_item* token = relation_head(utt_relation(utterance, "Token"));
    for (const SpokenWord& word : piece.words) {
        Milliseconds start = times.empty() ? 0ms : times.back().start;
        if (token) {
            if (const cst_item* spoken = item_daughter(token)) {
                start = std::max(start, fromSeconds(ffeature_float(
                                            spoken, "R:SylStructure.daughter1.daughter1.R:Segment.p.end")));
            }
            token = item_next(token);
        }
        times.push_back({start, word.end});
    }
    return times;
}

/// Where the sound of the piece is to be cut: between the silences that the voice puts around it.
struct Span
{
    Milliseconds start{0};
    Milliseconds end{0};
};

Span spoken(const std::vector<Segment>& segments, Pause pause, Milliseconds length)
{
    Span span{0ms, length};
    if (segments.size() < 2)
        return span;
    if (segments.front().name == "pau")
        span.start = std::max(segments.front().end - leadIn, Milliseconds(0));
    if (segments.back().name == "pau" && pause == Pause::None)
        span.end = std::clamp(segments[segments.size() - 2].end + leadIn, span.start, length);
    return span;
}

/// None where it is not installed. Loaded by its name: linked, it would be made ready before the first
/// screen, with two megabytes of pointers to set.
cst_voice* makeVoice()
{
    flite_init();
    const auto registered = reinterpret_cast<cst_voice* (*)(const char*)>(
        QLibrary::resolve("flite_cmu_us_rms", 1, "register_cmu_us_rms"));
    return registered ? registered(nullptr) : nullptr;
}

/// The voice's words and ours. Those of ours that come up are handed to the library, which has but one
/// lexicon.
class Lexicon
{
public:
    explicit Lexicon(cst_voice& voice)
        : lexicon_(val_lexicon(feat_val(voice.features, "lexicon"))), respellings_(respellings())
    {
    }

    void prepare(const SpokenWord& word)
    {
        std::string name = lower(word.text);
        if (name.ends_with("'s")) // which the library takes for a word of its own
            name.resize(name.size() - 2);
        if (added(name))
            return;
        const auto found = respellings_.find(name);
        const std::string sounds =
            found == respellings_.end() ? word.sounds : soundsOfRespelling(found->second);
        cst_val* entry =
            sounds.empty() ? nullptr : cst_lex_make_entry(lexicon_, (name + " nil : " + sounds).c_str());
        if (entry)
            lexicon_->lex_addenda = cons_val(entry, lexicon_->lex_addenda);
    }

    [[nodiscard]] std::string sounds(const std::string& word) const
    {
        const cst_val* found = added(word);
        cst_val* guessed = found ? nullptr : lex_lookup(lexicon_, word.c_str(), nullptr, nullptr);
        std::string all;
        for (const cst_val* sound = found ? val_cdr(val_cdr(found)) : guessed; sound; sound = val_cdr(sound))
            all += (all.empty() ? "" : " ") + std::string(val_string(val_car(sound)));
        delete_val(guessed);
        return all;
    }

private:
    /// An entry is the word, its part of speech and the sounds.
    [[nodiscard]] const cst_val* added(const std::string& word) const
    {
        return val_assoc_string(word.c_str(), lexicon_->lex_addenda);
    }

    cst_lexicon* lexicon_;
    std::unordered_map<std::string_view, std::string_view> respellings_;
};

class FliteSynthesiser final : public Synthesiser
{
public:
    FliteSynthesiser() : voice_(makeVoice())
    {
        if (voice_) {
            lexicon_.emplace(*voice_);
            streaming_ = new_audio_streaming_info();
            streaming_->asc = onSamples;
            feat_set(voice_->features, "streaming_info", audio_streaming_info_val(streaming_));
        }
    }

    Speech synthesise(const SpokenPiece& piece, const std::function<bool()>& dropped) override
    {
        if (!voice_)
            return {};
        dropped_ = dropped;
        streaming_->userdata = &dropped_;
        for (const SpokenWord& word : piece.words)
            lexicon_->prepare(word);
        const std::unique_ptr<cst_utterance, decltype(&delete_utterance)> utterance(
            flite_synth_text(piece.line().c_str(), voice_), &delete_utterance);
        const cst_wave* wave = utterance && !dropped() ? utt_wave(utterance.get()) : nullptr;
        if (!wave || wave->num_samples <= 0 || wave->sample_rate != sampleRate)
            return {};
        return speech(utterance.get(), *wave, piece);
    }

private:
    static Speech speech(cst_utterance* utterance, const cst_wave& wave, const SpokenPiece& piece)
    {
        const std::vector<Segment> segments = segmentsOf(utterance);
        const Pause pause = piece.words.back().pause;
        const Span span =
            spoken(segments, pause, Milliseconds(std::int64_t{wave.num_samples} * 1000 / sampleRate));
        Speech speech;
        speech.times.words = wordTimes(utterance, piece);
        speech.times.mouths = mouthsOf(segments);
        const auto shifted = [&span](Milliseconds& time) {
            time = std::max(time - span.start, Milliseconds(0));
        };
        for (WordTime& word : speech.times.words)
            shifted(word.start);
        for (MouthTime& mouth : speech.times.mouths)
            shifted(mouth.start);
        speech.times.length = span.end - span.start + breath(pause);
        speech.samples.assign(wave.samples + samplesIn(span.start), wave.samples + samplesIn(span.end));
        speech.samples.resize(samplesIn(speech.times.length));
        return speech;
    }

    cst_voice* voice_;
    std::optional<Lexicon> lexicon_;
    cst_audio_streaming_info* streaming_ = nullptr;
    std::function<bool()> dropped_;
};

} // namespace

std::unique_ptr<Synthesiser> makeFliteSynthesiser()
{
    return std::make_unique<FliteSynthesiser>();
}

std::string soundsOf(const std::string& word)
{
    static Lexicon lexicon(*makeVoice());
    SpokenWord spoken;
    spoken.text = word;
    lexicon.prepare(spoken);
    return lexicon.sounds(word);
}

} // namespace voice
