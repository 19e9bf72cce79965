#include "stage/balloon_text.h"

namespace stage {

namespace {

bool isBlank(QChar c)
{
    return c.isSpace() || c.category() == QChar::Other_Control;
}

bool endsPhrase(QChar c)
{
    return QStringView(u".?!:;\u2026").contains(c);
}

/// What stands for `marks` pause marks between two characters.
QString pause(QChar before, qsizetype marks, bool blank, QChar after)
{
    if (marks == 0)
        return " ";
    if (endsPhrase(after))
        return {};
    if (endsPhrase(before))
        return " ";
    if (marks > 1)
        return "\u2026 ";
    const bool inNumber = before.isDigit() && after.isDigit() && !blank;
    return inNumber ? "," : ", ";
}

} // namespace

QString shownText(const QString& text)
{
    QString shown;
    qsizetype marks = 0;
    bool blank = false;
    for (const QChar c : text) {
        if (c == u',') {
            ++marks;
        } else if (isBlank(c)) {
            blank = true;
        } else {
            if (!shown.isEmpty() && (marks > 0 || blank))
                shown += pause(shown.back(), marks, blank, c);
            shown += c;
            marks = 0;
            blank = false;
        }
    }
    return shown;
}

} // namespace stage
