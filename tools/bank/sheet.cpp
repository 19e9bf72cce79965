#include "bank/sheet.h"

#include "bank/failure.h"
#include "bank/lines.h"
#include "bank/new_file.h"
#include "bank/rules.h"

#include <QFile>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QTextDocument>

#include <algorithm>
#include <memory>
#include <random>

namespace bank {
namespace {

std::vector<Question> drawn(std::vector<Question> questions, std::size_t perLevel)
{
    std::mt19937 random{std::random_device()()};
    std::ranges::shuffle(questions, random);
    std::vector<Question> chosen;
    for (const char* const level : levels) {
        std::size_t count = 0;
        for (const Question& question : questions)
            if (question.level == QString(level) && question.rightIndex() >= 0 && count++ < perLevel)
                chosen.push_back(question);
    }
    return chosen;
}

QString pagesOf(const std::vector<Question>& questions)
{
    QString quiz = "<h1>Quiz</h1>";
    QString answers = "<h1 style='page-break-before: always'>Answers</h1>";
    QString level;
    int number = 0;
    for (const Question& question : questions) {
        if (question.level != level) {
            level = question.level;
            quiz += "<h2>Level " + level + "</h2>";
        }
        ++number;
        // A table is not torn between two pages as long as it is one row.
        quiz += QString("<table width='100%' cellpadding='3'><tr><td width='30'>%1.</td><td>").arg(number) +
                question.text.toHtmlEscaped();
        for (const Field field : optionFields)
            quiz += "<br>" + nameOf(field) + ".&nbsp;" + question.at(field).toHtmlEscaped();
        quiz += "</td></tr></table>";
        answers += QString("<p style='margin: 3px'>%1. %2: ").arg(number).arg(question.right) +
                   question.rightOption().toHtmlEscaped() + "</p>";
    }
    return quiz + answers;
}

void print(const QString& pages, QFile& file)
{
    // Fonts need an application, pages no display.
    std::unique_ptr<QGuiApplication> application;
    int argc = 1;
    char name[] = "orvbank";
    char* argv[] = {static_cast<char*>(name), nullptr};
    if (!QCoreApplication::instance()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        application = std::make_unique<QGuiApplication>(argc, static_cast<char**>(argv));
    }
    QPdfWriter writer(&file);
    writer.setCreator("orvbank");
    writer.setTitle("Quiz");
    writer.setPageSize(QPageSize(QPageSize::A4));
    constexpr qreal marginMm = 20;
    writer.setPageMargins({marginMm, marginMm, marginMm, marginMm}, QPageLayout::Millimeter);
    QTextDocument document;
    document.setDefaultFont(QFont("Verdana", 10));
    document.setHtml(pages);
    document.print(&writer);
}

} // namespace

std::size_t printSheet(std::vector<Question> questions, std::size_t perLevel,
                       const std::filesystem::path& target)
{
    const auto chosen = drawn(std::move(questions), perLevel);
    if (chosen.empty())
        throw Failure("There are no questions for a sheet");
    NewFile newFile(target, Readers::Everyone);
    QFile file(newFile.temporary());
    if (!file.open(QIODevice::WriteOnly))
        throw Failure(QString("%1 cannot be written: %2").arg(nameOf(target), file.errorString()));
    print(pagesOf(chosen), file);
    file.close();
    if (file.error() != QFileDevice::NoError)
        throw Failure(QString("%1 cannot be written: %2").arg(nameOf(target), file.errorString()));
    newFile.publish();
    return chosen.size();
}

} // namespace bank
