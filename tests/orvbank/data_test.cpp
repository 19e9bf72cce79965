#include "bank/source.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace {

bool isPlain(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u' ' && c <= u'~'; });
}

TEST(Data, HoldsAWellMixedBankOfSpeakableQuestions)
{
    const bank::Bank bank = bank::readSource(ORVANTA_DATA);
    std::map<std::string, std::map<QString, int>> letters{{"1", {}}, {"2", {}}, {"3", {}}};
    for (const bank::Question& question : bank.questions) {
        ++letters[question.level.toStdString()][question.right];
        const QString spoken =
            question.text + QStringList(question.options.begin(), question.options.end()).join(u' ');
        EXPECT_TRUE(isPlain(spoken) && question.text.endsWith(u'?')) << spoken.toStdString();
    }
    for (auto& [level, counts] : letters) {
        const int total = counts[u"A"_qs] + counts[u"B"_qs] + counts[u"C"_qs] + counts[u"D"_qs];
        EXPECT_GE(total, 42) << "level " << level;
        for (const auto& [letter, count] : counts) {
            EXPECT_TRUE(count >= 0.22 * total && count <= 0.28 * total)
                << "level " << level << ", " << letter.toStdString() << ": " << count << " of " << total;
        }
    }
}

TEST(Data, HoldsPromptsThatFollowANameAndAskForALock)
{
    const bank::Bank bank = bank::readSource(ORVANTA_DATA);
    EXPECT_GE(bank.prompts.size(), 14U);
    for (const bank::Prompt& prompt : bank.prompts) {
        EXPECT_TRUE(prompt.message.front().isUpper() && prompt.message.endsWith(u'?') &&
                    isPlain(prompt.message))
            << prompt.message.toStdString();
    }
}

} // namespace
