#pragma once

#include "desk.h"

#include <QDir>
#include <QStringList>

/// The pictures of the program in a folder: takes them anew, or finds out which of them are old.
class Album
{
public:
    enum class Purpose { Renew, Compare };

    Album(QDir folder, Purpose purpose, int scale);

    [[nodiscard]] int scale() const { return scale_; }

    /// Takes the picture `name` of all windows but the backdrop when they are at rest. The host, who never
    /// is, is noted in the file as "moving" and does not count in comparisons.
    void take(desk::Desk& desk, const QString& name);

    /// To be called after the last picture. Removes the files of pictures that are taken no longer; when
    /// comparing, returns their names and those of the files that do not show what the program shows.
    QStringList finish();

private:
    [[nodiscard]] QString fileOf(const QString& name) const;

    QDir folder_;
    Purpose purpose_;
    int scale_;
    QStringList taken_;
    QStringList old_;
};
