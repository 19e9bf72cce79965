#include "sheet.h"

#include "rig/character_file.h"
#include "rig/figure.h"

#include <CLI/CLI.hpp>
#include <QDir>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

rig::Figure load(const std::string& path)
{
    const QString name = QString::fromStdString(path);
    return {rig::readCharacterFile(name), name};
}

void save(const QImage& image, const std::string& path)
{
    if (!image.save(QString::fromStdString(path)))
        throw std::runtime_error(path + ": the picture cannot be written");
}

void draw(const std::string& path, const std::string& gesture, int count, double zoom,
          const std::string& output)
{
    rig::Figure figure = load(path);
    std::vector<rig::Pose> poses;
    for (const rig::Gesture& each : figure.rig().gestures)
        if (gesture.empty() || &each == figure.rig().gesture(QString::fromStdString(gesture)))
            std::ranges::copy(posesOf(figure.rig(), each, count), std::back_inserter(poses));
    if (poses.empty())
        throw std::runtime_error("there is no gesture " + gesture);
    save(drawPoses(figure, poses, count, zoom), output);
}

/// One picture for every gesture, one of the mouth shapes and one of everything, for the documents.
void drawSheets(const std::string& path, const std::string& output)
{
    rig::Figure figure = load(path);
    const QDir folder(QString::fromStdString(output));
    if (!folder.mkpath("."))
        throw std::runtime_error(output + ": the folder cannot be made");
    const auto keep = [&](const QImage& image, const QString& name) {
        save(image, folder.filePath(name + ".png").toStdString());
    };
    std::vector<rig::Pose> middles;
    int number = 0;
    for (const rig::Gesture& gesture : figure.rig().gestures) {
        // The number tells names apart where the case of letters does not count.
        const QString place = QString("%1-").arg(++number, 2, 10, QLatin1Char('0'));
        keep(drawPoses(figure, posesOf(figure.rig(), gesture, 7), 7, 0.8), place + gesture.name);
        middles.push_back(posesOf(figure.rig(), gesture, 1).front());
    }
    keep(drawPoses(figure, middles, 6, 0.75), "overview");
    keep(drawMouths(figure), "mouths");
}

/// Returns the exit code of the command.
int run(int argc, char** argv)
{
    CLI::App app("Checks and draws the character files of the host.");
    app.require_subcommand(1);
    std::string character;
    std::string output;
    std::string gesture;
    int poses = 6;
    double zoom = 1;
    CLI::App* check = app.add_subcommand("check", "Check a character file and name its first defect");
    CLI::App* one = app.add_subcommand("draw", "Draw the poses of a gesture, or of all");
    CLI::App* sheets =
        app.add_subcommand("sheets", "Draw each gesture, the mouth shapes and an overview, a picture each");
    for (CLI::App* command : {check, one, sheets})
        command->add_option("character", character)->required();
    one->add_option("--output", output, "The picture, a PNG file")->required();
    one->add_option("--gesture", gesture, "Draw this one only");
    one->add_option("--poses", poses, "Poses of each gesture")->check(CLI::Range(1, 20));
    one->add_option("--zoom", zoom, "Times the size on screen")->check(CLI::Range(0.25, 4.0));
    sheets->add_option("--output", output, "The folder of the pictures")->required();
    CLI11_PARSE(app, argc, argv);

    if (*check)
        load(character);
    else if (*one)
        draw(character, gesture, poses, zoom, output);
    else
        drawSheets(character, output);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return run(argc, argv);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
