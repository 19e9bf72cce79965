// The least that a program with a window and a question bank can be; bench_start measures the game beside it.

#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include <SQLiteCpp/Database.h>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    SQLite::Database bank("orv.orv", SQLite::OPEN_READWRITE);
    bank.exec("pragma synchronous = full"); // reads the schema

    QWidget window;
    window.setWindowTitle("Floor");
    QPalette colours = window.palette();
    colours.setColor(QPalette::Window, QColor(0, 0, 128));
    window.setPalette(colours);
    window.setFixedSize(452, 207);
    auto* label = new QLabel("WELCOME", &window);
    label->setGeometry(128, 0, 199, 50);
    auto* button = new QPushButton("Contestant", &window);
    button->setGeometry(248, 112, 145, 33);
    window.show();
    return QApplication::exec();
}
