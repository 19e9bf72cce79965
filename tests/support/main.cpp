#include "toolkit/desktop.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    toolkit::silenceLibraryWarnings();
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
