#include "narrator/voice.h"

namespace narrator {

namespace {

constexpr qint64 charactersPerSecond = 15;

MouthShape shapeOfPair(QChar first, QChar second)
{
    if (second == u'h') {
        if (first == u's' || first == u'c') {
            return MouthShape::S;
        }
        if (first == u't') {
            return MouthShape::T;
        }
        if (first == u'p') {
            return MouthShape::F;
        }
    }
    if (first == second && first == u'e') {
        return MouthShape::E;
    }
    if ((first == second && first == u'o') || (first == u'o' && second == u'u')) {
        return MouthShape::U;
    }
    return MouthShape::Rest;
}

MouthShape shapeOfLetter(QChar letter)
{
    constexpr struct
    {
        QStringView letters;
        MouthShape shape;
    } table[]{
        {u"mbp", MouthShape::M}, {u"fv", MouthShape::F}, {u"tdnl", MouthShape::T}, {u"szcjx", MouthShape::S},
        {u"a", MouthShape::A},   {u"o", MouthShape::O},  {u"uwrq", MouthShape::U},
    };
    for (const auto& [letters, shape] : table) {
        if (letters.contains(letter)) {
            return shape;
        }
    }
    return letter.isLetterOrNumber() ? MouthShape::E : MouthShape::Rest;
}

} // namespace

void SilentVoice::say(const QString& text, std::chrono::milliseconds now)
{
    text_ = text;
    start_ = now;
}

void SilentVoice::hush()
{
    text_.clear();
}

std::optional<std::chrono::milliseconds> SilentVoice::firstWord(std::chrono::milliseconds)
{
    return start_;
}

std::optional<std::chrono::milliseconds> SilentVoice::lastWord(std::chrono::milliseconds now)
{
    const auto end = start_ + readingPace(text_.size());
    return now >= end ? std::optional(end) : std::nullopt;
}

MouthShape SilentVoice::mouth(std::chrono::milliseconds now)
{
    const auto elapsed = now - start_;
    return elapsed.count() < 0 ? MouthShape::Rest
                               : mouthShape(text_, elapsed.count() * charactersPerSecond / 1000);
}

std::chrono::milliseconds readingPace(qsizetype characters)
{
    return std::chrono::milliseconds((characters * 1000 + charactersPerSecond - 1) / charactersPerSecond);
}

MouthShape mouthShape(QStringView text, qsizetype index)
{
    if (index < 0 || index >= text.size()) {
        return MouthShape::Rest;
    }
    const auto letter = [&](qsizetype i) {
        return i >= 0 && i < text.size() ? text[i].toLower() : QChar(u' ');
    };
    // Both letters of a pair show the same shape, so that the mouth does not flutter.
    for (const qsizetype first : {index, index - 1}) {
        const MouthShape pair = shapeOfPair(letter(first), letter(first + 1));
        if (pair != MouthShape::Rest) {
            return pair;
        }
    }
    return shapeOfLetter(letter(index));
}

} // namespace narrator
