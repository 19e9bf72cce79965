#include "voice/flite_synthesiser.h"

#include <algorithm>
#include <cmath>
#include <string>

extern "C" {
#include <flite/flite.h>

cst_voice* register_cmu_us_rms(const char* directory);
}

namespace voice {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;

namespace {

constexpr auto leadIn = 40ms;   ///< of the silence that the voice begins every piece with
constexpr auto leadOut = 130ms; ///< more silence behind the end of a sentence

Milliseconds fromSeconds(double seconds)
{
    return Milliseconds(std::lround(seconds * 1000));
}

std::size_t samplesIn(Milliseconds span)
{
    return static_cast<std::size_t>(std::max<Milliseconds::rep>(span.count(), 0)) * sampleRate / 1000;
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

class FliteSynthesiser final : public Synthesiser
{
public:
    FliteSynthesiser()
    {
        flite_init();
        voice_ = register_cmu_us_rms(nullptr);
        if (voice_) {
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
        speech.times.length = span.end - span.start + (pause > Pause::Short ? leadOut : 0ms);
        speech.samples.assign(wave.samples + samplesIn(span.start), wave.samples + samplesIn(span.end));
        speech.samples.resize(samplesIn(speech.times.length));
        return speech;
    }

    cst_voice* voice_ = nullptr;
    cst_audio_streaming_info* streaming_ = nullptr;
    std::function<bool()> dropped_;
};

} // namespace

std::unique_ptr<Synthesiser> makeFliteSynthesiser()
{
    return std::make_unique<FliteSynthesiser>();
}

} // namespace voice
