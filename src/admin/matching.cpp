#include "admin/matching.h"

#include <algorithm>

namespace admin {

namespace {

QString folded(const QString& text)
{
    return text.normalized(QString::NormalizationForm_C).toCaseFolded();
}

bool isLittle(const QString& word)
{
    static const QSet<QString> little = [] {
        const QStringList words =
            QString("a an the of in on at to for from by with and or as is are was were be "
                    "been do does did has have had which what who whom whose when where how "
                    "many much this that these those it its there called named known")
                .split(QChar::Space);
        return QSet<QString>(words.begin(), words.end());
    }();
    return little.contains(word);
}

bool isPartOfWord(QChar c)
{
    return c.isLetterOrNumber() || c.isMark() || c.isSurrogate();
}

} // namespace

SearchWords::SearchWords(const QString& typed)
    : words_(folded(typed).simplified().split(QChar::Space, Qt::SkipEmptyParts))
{
}

bool SearchWords::areIn(const QStringList& texts) const
{
    const QString all = folded(texts.join(QChar::LineFeed));
    return std::ranges::all_of(words_, [&](const QString& word) { return all.contains(word); });
}

Likeness::Likeness(const QString& question)
{
    constexpr qsizetype firstLetters = 4; // "flow", "flows" and "flowed"
    const QString text = folded(question);
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = start;
        while (end < text.size() && isPartOfWord(text[end]))
            ++end;
        const QString word = text.sliced(start, end - start);
        start = end + 1;
        if (std::ranges::any_of(word, [](QChar c) { return c.isNumber(); }))
            numbers_ << word;
        else if (!word.isEmpty() && !isLittle(word))
            words_ << word.first(std::min(firstLetters, word.size()));
    }
}

bool Likeness::isNear(const QString& question) const
{
    // Most are told apart before they are taken to pieces.
    const QString text = folded(question);
    if (2 * std::ranges::count_if(words_, [&](const QString& word) { return text.contains(word); }) <
        words_.size())
        return false;
    const Likeness other(question);
    if (numbers_ != other.numbers_)
        return false;
    const qsizetype common = (QSet<QString>(words_) & other.words_).size();
    const qsizetype all = words_.size() + other.words_.size() - common;
    return 2 * common >= all;
}

} // namespace admin
