// Takes the pictures of the documentation from the real program on a display of its own, at one and two times
// the usual size; or, with --check, tells which of them are old, going by those of the usual size.

#include "tour.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool check = arguments.contains("--check");
    if (arguments.size() != (check ? 3 : 2)) {
        std::fprintf(stderr, "usage: screenshots [--check] FOLDER\n");
        return 2;
    }
    try {
        for (int scale = 1; scale <= (check ? 1 : 2); ++scale) {
            Album album(QDir(arguments.last()), check ? Album::Purpose::Compare : Album::Purpose::Renew,
                        scale);
            tour(album);
            const QStringList old = album.finish();
            for (const QString& file : old)
                std::printf("%s\n", qPrintable(file));
            if (!old.isEmpty())
                return 1;
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
    return 0;
}
