#include "join.h"
#include "palette.h"
#include "sheet.h"

#include "rig/character_file.h"
#include "rig/figure.h"

#include <CLI/CLI.hpp>
#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

void require(bool done, const QFileDevice& file)
{
    if (!done)
        throw std::runtime_error((file.fileName() + ": " + file.errorString()).toStdString());
}

void join(const std::vector<std::string>& sources, const std::string& output)
{
    QStringList gestures;
    for (std::size_t i = 2; i < sources.size(); ++i)
        gestures += QString::fromStdString(sources[i]);
    const QByteArray joined =
        joinCharacter(QString::fromStdString(sources[0]), QString::fromStdString(sources[1]), gestures);
    QSaveFile file(QString::fromStdString(output));
    const rig::Figure checked(rig::readCharacter(joined, file.fileName()), file.fileName());
    require(file.open(QIODevice::WriteOnly), file);
    file.write(joined);
    require(file.commit(), file);
}

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

struct DrawOptions
{
    std::string character;
    std::string output;
    std::string gesture; ///< empty for all
    int poses = 6;
    double zoom = 1;
};

void draw(const DrawOptions& options)
{
    rig::Figure figure = load(options.character);
    if (options.gesture.empty())
        return save(drawSheet(figure, options.poses, options.zoom), options.output);
    const rig::Gesture* gesture = figure.rig().gesture(QString::fromStdString(options.gesture));
    if (!gesture)
        throw std::runtime_error("there is no gesture " + options.gesture);
    save(drawGesture(figure, *gesture, options.poses, options.zoom), options.output);
}

/// One picture for every gesture, one of the mouth shapes and one of everything, for the documents.
void drawSheets(const std::string& path, const std::string& output)
{
    rig::Figure figure = load(path);
    const QDir folder(QString::fromStdString(output));
    if (!folder.mkpath("."))
        throw std::runtime_error(output + ": the folder cannot be made");
    const auto keep = [&](const QImage& image, const QString& name) {
        save(inFewColours(image), folder.filePath(name + ".png").toStdString());
    };
    keep(drawOverview(figure, 6, 0.75), "overview");
    keep(drawMouths(figure), "mouths");
    int number = 0;
    for (const rig::Gesture& gesture : figure.rig().gestures) {
        // The number tells names apart where the case of letters does not count.
        const QString place = QString("%1-").arg(++number, 2, 10, QLatin1Char('0'));
        keep(drawGesture(figure, gesture, 7, 0.8), place + gesture.name);
    }
}

/// Returns the exit code of the command.
int run(int argc, char** argv)
{
    CLI::App app("Joins and checks the character files of the host.");
    app.require_subcommand(1);
    std::vector<std::string> sources;
    std::string output;
    std::string character;
    DrawOptions drawing;

    CLI::App* joinCommand =
        app.add_subcommand("join", "Join a drawing, a rig and gestures into a character file");
    joinCommand->add_option("--output", output, "The character file")->required();
    joinCommand->add_option("sources", sources, "The drawing (SVG), the rig and the gestures (XML)")
        ->required()
        ->expected(3, 100);
    CLI::App* checkCommand = app.add_subcommand("check", "Check a character file and name its first defect");
    checkCommand->add_option("character", character)->required();
    CLI::App* drawCommand = app.add_subcommand("draw", "Draw the poses of a gesture, or of all");
    drawCommand->add_option("character", drawing.character)->required();
    drawCommand->add_option("--output", drawing.output, "The picture, a PNG file")->required();
    drawCommand->add_option("--gesture", drawing.gesture, "Draw this one only");
    drawCommand->add_option("--poses", drawing.poses, "Poses of each gesture")->check(CLI::Range(1, 20));
    drawCommand->add_option("--zoom", drawing.zoom, "Times the size on screen")->check(CLI::Range(0.25, 4.0));
    CLI::App* sheetsCommand =
        app.add_subcommand("sheets", "Draw each gesture, the mouth shapes and an overview, a picture each");
    sheetsCommand->add_option("character", character)->required();
    sheetsCommand->add_option("--output", output, "The folder of the pictures")->required();
    CLI11_PARSE(app, argc, argv);

    if (*joinCommand)
        join(sources, output);
    else if (*checkCommand)
        load(character);
    else if (*sheetsCommand)
        drawSheets(character, output);
    else
        draw(drawing);
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
