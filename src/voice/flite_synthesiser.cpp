#include "voice/synthesiser.h"

#include "voice/respelling.h"
#include "voice/spelling.h"

#include <QLibrary>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
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
    for (const SpokenWord& word : piece) {
        Milliseconds start = times.empty() ? 0ms : times.back().start;
        if (const cst_item* spoken = item_daughter(token)) {
            start = std::max(start, fromSeconds(ffeature_float(
                                        spoken, "R:SylStructure.daughter1.daughter1.R:Segment.p.end")));
        }
        times.push_back({start, word.end});
        token = item_next(token);
    }
    return times;
}

/// The library's one voice, none if it cannot be had. Loaded by its name: linked, it would be made ready
/// before the first screen, with two megabytes of pointers to set.
cst_voice* theVoice()
{
    static cst_voice* const voice = [] {
        flite_init();
        const auto registered = reinterpret_cast<cst_voice* (*)(const char*)>(
            QLibrary::resolve("flite_cmu_us_rms", 1, "register_cmu_us_rms"));
        cst_voice* made = registered ? registered(nullptr) : nullptr;
        if (made) {
            cst_audio_streaming_info* streaming = new_audio_streaming_info();
            streaming->asc = onSamples;
            feat_set(made->features, "streaming_info", audio_streaming_info_val(streaming));
        }
        return made;
    }();
    return voice;
}

cst_lexicon& lexicon()
{
    return *val_lexicon(feat_val(theVoice()->features, "lexicon"));
}

/// What `prepare` has made of a word: the word, its part of speech and the sounds.
const cst_val* added(const std::string& word)
{
    return val_assoc_string(word.c_str(), lexicon().lex_addenda);
}

/// Hands the word to the library if it is one of ours. The library has but one lexicon, and a list for what
/// is added, which is kept short.
void prepare(const SpokenWord& word)
{
    thread_local const WordTable ours = respellings();
    const std::string name = stem(word.text);
    if (added(name))
        return;
    const std::string_view respelling = entry(ours, name);
    const std::string sounds = respelling.empty() ? word.sounds : soundsOfRespelling(respelling);
    cst_val* made =
        sounds.empty() ? nullptr : cst_lex_make_entry(&lexicon(), (name + " nil : " + sounds).c_str());
    if (made)
        lexicon().lex_addenda = cons_val(made, lexicon().lex_addenda);
}

/// Leaves out most of the silences that the voice puts around the piece.
Speech cutOut(cst_utterance* utterance, const cst_wave& wave, const SpokenPiece& piece)
{
    const std::vector<Segment> segments = segmentsOf(utterance);
    const Pause pause = piece.back().pause;
    Milliseconds start{0};
    Milliseconds end = spanOf(wave.num_samples);
    if (segments.size() > 1 && segments.front().name == "pau")
        start = std::max<Milliseconds>(segments.front().end - leadIn, 0ms);
    if (segments.size() > 1 && segments.back().name == "pau" && pause == Pause::None)
        end = std::clamp<Milliseconds>(segments[segments.size() - 2].end + leadIn, start, end);
    Speech speech{{wordTimes(utterance, piece), mouthsOf(segments), end - start + breath(pause)}, {}};
    for (WordTime& word : speech.times.words)
        word.start = std::max<Milliseconds>(word.start - start, 0ms);
    for (MouthTime& mouth : speech.times.mouths)
        mouth.start = std::max<Milliseconds>(mouth.start - start, 0ms);
    speech.samples.assign(wave.samples + samplesIn(start), wave.samples + samplesIn(end));
    speech.samples.resize(samplesIn(speech.times.length));
    return speech;
}

} // namespace

Speech synthesise(const SpokenPiece& piece, const std::function<bool()>& dropped)
{
    if (!theVoice())
        return {};
    std::function<bool()> asked = dropped;
    val_audio_streaming_info(feat_val(theVoice()->features, "streaming_info"))->userdata = &asked;
    for (const SpokenWord& word : piece)
        prepare(word);
    const std::unique_ptr<cst_utterance, decltype(&delete_utterance)> utterance(
        flite_synth_text(lineOf(piece).c_str(), theVoice()), &delete_utterance);
    const cst_wave* wave = utterance && !dropped() ? utt_wave(utterance.get()) : nullptr;
    if (!wave || wave->num_samples <= 0 || wave->sample_rate != sampleRate)
        return {};
    return cutOut(utterance.get(), *wave, piece);
}

std::string soundsOf(const std::string& word)
{
    prepare({word});
    const cst_val* found = added(word);
    cst_val* guessed = found ? nullptr : lex_lookup(&lexicon(), word.c_str(), nullptr, nullptr);
    std::string all;
    for (const cst_val* sound = found ? val_cdr(val_cdr(found)) : guessed; sound; sound = val_cdr(sound))
        all += (all.empty() ? "" : " ") + std::string(val_string(val_car(sound)));
    delete_val(guessed);
    return all;
}

} // namespace voice
