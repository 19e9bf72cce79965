#include "bank/near.h"
#include "bank/source.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

#include <map>

namespace {

TEST(Data, IsAWellMixedBankOfSpeakableTexts)
{
    bank::Progress none;
    bank::Intake intake(bank::Texts::Reviewed, {}, none);
    bank::readFolder(ORVANTA_DATA, intake);
    bank::checkMix(intake.bank, {"data"}, intake.complaints, none);
    EXPECT_EQ(intake.complaints.lines().join('\n').toStdString(), "");
    std::map<QString, int> counts; // of each level
    QStringList spoken;
    for (const bank::Question& question : intake.bank.questions) {
        ++counts[question.level];
        spoken << QStringList(question.options.begin(), question.options.end()).join(u' ') + question.text;
    }
    for (const bank::Prompt& prompt : intake.bank.prompts) {
        EXPECT_TRUE(prompt.message.front().isLower()) << prompt.message.toStdString();
        spoken << prompt.message;
    }
    for (const QString& text : spoken)
        EXPECT_TRUE(QRegularExpression("^[ -~]*[?.!']$").match(text).hasMatch()) << text.toStdString();
    EXPECT_EQ(counts, (std::map<QString, int>{{"1", 300}, {"2", 300}, {"3", 300}}));
    EXPECT_EQ(intake.bank.prompts.size(), 100U);
}

} // namespace
