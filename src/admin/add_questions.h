#pragma once

#include "admin/editor.h"
#include "admin/entry_checks.h"
#include "toolkit/choice_list.h"
#include "toolkit/text_box.h"

namespace admin {

/// The question editor: shows the bank one question at a time, in the order of their numbers.
class AddQuestions final : public Editor
{
public:
    explicit AddQuestions(toolkit::Services services);

protected:
    void Form_Load() override;

private:
    void connectControls();
    void displayrecord();
    void displayrow() override { displayrecord(); }
    /// The entry of the list that stands for a stored right answer, or that answer if none does.
    [[nodiscard]] QString entryFor(const QString& correctAnswer) const;
    void fillcorrectanswers();
    void checkmodified() override;

    /// Looks, once the owner pauses, whether the bank has nearly the question that is being typed in.
    void lookForNear();
    void note(const QString& text);
    /// Notes whether what a control shows is something else than its field of the current row.
    void compare(const char* field, const QString& shown);
    [[nodiscard]] QuestionEntry entered() const;
    /// The checks before a question is written; tells the owner what they found.
    [[nodiscard]] bool check(const QuestionEntry& entry);
    void setFields(const QuestionEntry& entry);

    void addquestions_question_Change();
    void addquestions_answer_Change(std::size_t index);
    void addquestions_cmdfirst_Click();
    void addquestions_cmdprevious_Click();
    void addquestions_cmdnext_Click();
    void addquestions_cmdlast_Click();
    void addquestions_cmdadd_Click();
    void addquestions_cmdsave_Click();
    void addquestions_cmdupdate_Click();
    void addquestions_cmddelete_Click();
    void addquestions_cmdcancel_Click();
    void addquestions_cmdexit_Click();

    /// A shown value was changed since modified was last cleared; matters only while browsing.
    bool modified = false;

    toolkit::Timer* pause; ///< in the typing of a question
    RowScan nearScan;

    toolkit::Label* near;
    toolkit::TextBox* questionid;
    toolkit::TextBox* question;
    std::array<toolkit::TextBox*, 4> answers;
    toolkit::ChoiceList* correctanswer;
    toolkit::ChoiceList* level;
    toolkit::Button* cmddelete;
    toolkit::Button* cmdexit;
};

} // namespace admin
