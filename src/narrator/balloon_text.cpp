#include "narrator/balloon_text.h"

#include <algorithm>

namespace narrator {

namespace {

constexpr qsizetype longestPage = 2'000;

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
    if (marks == 0) {
        return QStringLiteral(" ");
    }
    if (endsPhrase(after)) {
        return {};
    }
    if (endsPhrase(before)) {
        return QStringLiteral(" ");
    }
    if (marks > 1) {
        return QStringLiteral("\u2026 ");
    }
    const bool inNumber = before.isDigit() && after.isDigit() && !blank;
    return inNumber ? QStringLiteral(",") : QStringLiteral(", ");
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
            if (!shown.isEmpty() && (marks > 0 || blank)) {
                shown += pause(shown.back(), marks, blank, c);
            }
            shown += c;
            marks = 0;
            blank = false;
        }
    }
    return shown;
}

qsizetype pageEnd(const QString& text, qsizetype start,
                  const std::function<qsizetype(const QString&)>& fitting)
{
    const qsizetype left = text.size() - start;
    const qsizetype fits =
        std::clamp<qsizetype>(fitting(text.mid(start, longestPage)), 1, std::max<qsizetype>(left, 1));
    if (fits >= left) {
        return text.size();
    }
    // A last page of a few words would be gone before it is read.
    if (left - fits < fits / 2) {
        const qsizetype middle = text.lastIndexOf(u' ', start + left / 2);
        if (middle > start && middle < start + fits) {
            return middle + 1;
        }
    }
    return start + fits;
}

} // namespace narrator
