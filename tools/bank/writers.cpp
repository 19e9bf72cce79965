#include "bank/writers.h"

#include "bank/aiken.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace bank::writers {
namespace {

QString csvCell(QString text)
{
    const auto needsMarks = [](QChar c) {
        return c == u'"' || c == u',' || c == u';' || c == u'\t' || c == u'\n' || c == u'\r';
    };
    if (std::none_of(text.cbegin(), text.cend(), needsMarks))
        return text;
    return u'"' + text.replace(u'"', "\"\"") + u'"';
}

QString giftText(const QString& text)
{
    QString escaped;
    for (const QChar c : text) {
        if (QStringView(u"~=#{}:\\").contains(c))
            escaped += u'\\';
        escaped += c;
    }
    return escaped;
}

QString giftOption(const QString& text)
{
    // A percent sign in front would begin a weight.
    return (text.startsWith(u'%') ? "\\" : QString()) + giftText(text);
}

} // namespace

QByteArray csv(const std::vector<Question>& questions)
{
    QString content(QChar::ByteOrderMark);
    content += "level,question,A,B,C,D,right,tally A,tally B,tally C,tally D\r\n";
    for (const Question& question : questions) {
        QStringList cells;
        for (const Field field :
             {Field::Level, Field::Question, Field::A, Field::B, Field::C, Field::D, Field::Right})
            cells << csvCell(question.at(field));
        for (const qint64 tally : question.tallies)
            cells << QString::number(tally);
        content += cells.join(u',') + "\r\n";
    }
    return content.toUtf8();
}

QByteArray gift(const std::vector<Question>& questions)
{
    QString content;
    QString level;
    int number = 0;
    for (const Question& question : questions) {
        if (question.level != level) {
            level = question.level;
            content += QString("$CATEGORY: level %1\n\n").arg(level);
        }
        // Behind a title no text can be taken for a comment, a category or the name of a markup.
        content += QString("::%1::[plain]").arg(++number) + giftText(question.text) + " {\n";
        for (std::size_t i = 0; i < question.options.size(); ++i) {
            const bool right = static_cast<int>(i) == question.rightIndex();
            content += u'\t' + QString(right ? u'=' : u'~') + giftOption(question.options.at(i)) + u'\n';
        }
        content += "}\n\n";
    }
    return content.toUtf8();
}

QByteArray aiken(const std::vector<Question>& questions)
{
    QString content;
    for (const Question& question : questions) {
        content += question.text + u'\n';
        for (const Field field : optionFields)
            content += nameOf(field) + ". " + question.at(field) + u'\n';
        content += "ANSWER: " + question.right + "\n\n";
    }
    return content.toUtf8();
}

QByteArray records(const std::vector<Question>& questions)
{
    QString content = "# The database holds neither topic nor why: add them before this becomes the "
                      "source of a bank.\n\n";
    for (const Question& question : questions) {
        for (const Field field :
             {Field::Level, Field::Question, Field::A, Field::B, Field::C, Field::D, Field::Right})
            content += nameOf(field) + ": " + question.at(field) + u'\n';
        content += u'\n';
    }
    return content.toUtf8();
}

bool aikenHolds(const Question& question)
{
    return bank::aiken::markerIn(question.text) == 0 && !bank::aiken::answerIn(question.text);
}

} // namespace bank::writers
