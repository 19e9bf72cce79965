#pragma once

#include <QLabel>
#include <QPainterPath>
#include <QTextLayout>

namespace narrator {

/// The balloon with the words being said. Its text is all of them; what does not fit is shown page by
/// page as the reading goes on. Hidden while nothing is said.
class Balloon final : public QLabel
{
public:
    /// The balloon keeps within `room`, standing on the middle of its lower edge.
    Balloon(const QRect& room, QWidget* parent);

    /// `text` as it was given to be said; `read` is the share of it that has been read. Returns whether
    /// the outline has changed.
    bool say(const QString& text, double read);

    /// Moves to another room, with letters of another size.
    void setRoom(const QRect& room, int letterPixels);

    /// In coordinates of the parent.
    [[nodiscard]] QPainterPath outline() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void turnPage();
    void fitTo(const QString& page);
    /// Lays `page` out and returns the number of characters that fit.
    qsizetype layOut(const QString& page);

    QRect room_;
    QString given_;
    qsizetype pageStart_ = 0;
    qsizetype pageEnd_ = 0;
    QTextLayout layout_;
};

} // namespace narrator
