#include "bank/source.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

#include <map>

namespace {

TEST(Data, IsAWellMixedBankOfSpeakableTexts)
{
    const bank::Bank bank = bank::readSource(ORVANTA_DATA);
    std::map<QString, double> counts; // of each level, and of each right letter in it
    QStringList spoken;
    for (const bank::Question& question : bank.questions) {
        ++counts[question.level];
        ++counts[question.level + question.right];
        spoken << QStringList(question.options.begin(), question.options.end()).join(u' ') + question.text;
    }
    for (const bank::Prompt& prompt : bank.prompts) {
        EXPECT_TRUE(prompt.message.front().isUpper()) << prompt.message.toStdString();
        spoken << prompt.message;
    }
    for (const QString& text : spoken) {
        EXPECT_TRUE(QRegularExpression("^[ -~]*\\?$").match(text).hasMatch()) << text.toStdString();
    }
    for (const auto& [key, count] : counts) {
        const double share = count / counts[key.left(1)];
        EXPECT_TRUE(key.size() == 1 ? count >= 42 : share >= 0.22 && share <= 0.28) << key.toStdString();
    }
    EXPECT_EQ(counts.size(), 15U);
    EXPECT_GE(bank.prompts.size(), 14U);
}

} // namespace
