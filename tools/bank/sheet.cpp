#include "bank/actions.h"

#include "bank/new_file.h"
#include "bank/rules.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QTextDocument>

#include <algorithm>
#include <memory>
#include <ostream>
#include <random>

namespace bank {
namespace {

/// So many questions of each level, drawn at random, in the order of the levels.
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

/// A PDF file (A4) of them.
QByteArray printed(const QString& pages)
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
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    {
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
    return file.data();
}

} // namespace

void actions::sheet(Command& command)
{
    const auto chosen = drawn(command.questions(), command.perLevel);
    if (chosen.empty())
        throw Failure(QString::fromStdString(command.file) + " has no questions for a sheet");
    writeNew(command.other, printed(pagesOf(chosen)), Readers::Everyone);
    command.out << counted(chosen.size(), "question") << " went into " << command.other << ".\n";
}

} // namespace bank
