#pragma once

#include "desk.h"

#include <QDir>
#include <QStringList>

/// The pictures of the program in a folder: takes them anew, or finds out which of them are old.
class Album
{
public:
    enum class Purpose { Renew, Compare };

    Album(const QDir& folder, Purpose purpose, int scale);

    [[nodiscard]] int scale() const { return scale_; }

    /// All windows but the backdrop when they are at rest. What never rests, the host and the clock, is noted
    /// in the picture and does not count in comparisons.
    [[nodiscard]] static QImage atRest(desk::Desk& desk);
    /// Keeps the picture as `name`, or compares it with the one that was kept.
    void add(const QString& name, const QImage& picture);
    void take(desk::Desk& desk, const QString& name) { add(name, atRest(desk)); }

    /// To be called after the last picture. Removes the files of pictures that are taken no longer; when
    /// comparing, returns their names and those of the files that do not show what the program shows.
    QStringList finish();

private:
    QDir folder_;
    Purpose purpose_;
    int scale_;
    QStringList taken_;
    QStringList old_;
};
