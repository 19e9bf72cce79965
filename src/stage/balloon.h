#pragma once

#include <QLabel>
#include <QPainterPath>
#include <QTextLayout>

namespace stage {

/// The balloon with the words being said, which come one by one: its text is what has been said so far.
/// It has its size from the first word on; lines that do not fit are scrolled up. Hidden while nothing
/// is said. A screen reader is told its words.
class Balloon final : public QLabel
{
public:
    /// The balloon keeps within `room`, standing on the middle of its lower edge.
    Balloon(const QRect& room, QWidget* parent);

    /// `text` as it was given to be said, of which the first `said` characters have been. Returns whether
    /// the outline has changed.
    bool say(const QString& text, qsizetype said);

    /// Moves to another room, with letters of another size.
    void setRoom(const QRect& room, int letterPixels);

    /// In coordinates of the parent.
    [[nodiscard]] QPainterPath outline() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawWords(QPainter& painter) const;
    void scrollTo(qsizetype end);
    void fitToPage();
    /// Lays out what begins at the top line and returns the number of characters that fit.
    qsizetype layOut();
    qsizetype breakLines(const QString& page);

    QRect room_;
    QString given_;
    QString whole_;         ///< what will be shown in the end
    qsizetype said_ = 0;    ///< of given_
    qsizetype top_ = 0;     ///< where the top line begins in whole_
    qsizetype fitting_ = 0; ///< characters of whole_ that fit from there on
    QTextLayout layout_;
};

} // namespace stage
