// Shows how the host says texts, and which of their words he may get wrong.

#include "voice/respelling.h"
#include "voice/spelling.h"
#include "voice/synthesiser.h"

#include <QRegularExpression>

#include <CLI/CLI.hpp>

#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

void forEachLine(const std::vector<std::string>& paths, const std::function<void(const QString&)>& use)
{
    for (const std::string& path : paths) {
        std::ifstream file(path);
        if (!file && path != "-")
            throw std::runtime_error(path + " cannot be read");
        std::istream& lines = path == "-" ? std::cin : file;
        for (std::string line; std::getline(lines, line);)
            use(QString::fromStdString(line));
    }
}

/// What the host says of a line of a question file; all of a line of any other.
QString spokenPart(QString line)
{
    static const QRegularExpression unspoken(
        "^(?:(?:#|level:|topic:|right:|why:).*|question: |[ -~]: (?=.))");
    return line.remove(unspoken);
}

std::string soundsOfWritten(const std::string& word)
{
    if (word == "A")
        return "ey1"; // the letter, not the article
    return voice::soundsOf(voice::stem(word)) + (word.ends_with("'s") ? " 's" : "");
}

void say(const std::vector<std::string>& paths)
{
    forEachLine(paths, [](const QString& line) {
        for (const voice::SpokenWord& word : voice::spokenWords(spokenPart(line))) {
            const std::string sounds = word.sounds.empty() ? soundsOfWritten(word.text) : word.sounds;
            std::cout << word.text << '[' << sounds << ']' << voice::markOf(word.pause) << ' ';
        }
        std::cout << '\n';
    });
}

void listUnknown(const std::string& dictionary, const std::vector<std::string>& paths)
{
    std::set<std::string> known;
    forEachLine({dictionary}, [&](const QString& line) {
        const std::string entry = line.toStdString();
        known.insert(voice::lower(entry.substr(0, entry.find_first_of(" \t("))));
    });
    for (const auto& [word, respelling] : voice::respellings())
        known.emplace(word);
    std::map<std::string, QString> places;
    forEachLine(paths, [&](const QString& line) {
        const QString text = spokenPart(line);
        for (const voice::SpokenWord& word : voice::spokenWords(text)) {
            const std::string plain = voice::stem(word.text);
            if (word.sounds.empty() && plain.size() != 1 && !known.contains(plain))
                places.emplace(plain, text);
        }
    });
    for (const auto& [word, text] : places)
        std::cout << word << '\t' << voice::soundsOf(word) << '\t' << text.toStdString() << '\n';
}

int run(int argc, char** argv)
{
    CLI::App app("Shows how the host says texts: lines of files, \"-\" for the input.");
    app.require_subcommand(1);
    std::vector<std::string> paths;
    std::string dictionary;
    CLI::App* sayCommand = app.add_subcommand("say", "Print all words with their sounds");
    CLI::App* unknownCommand =
        app.add_subcommand("unknown", "List the words that a dictionary does not have");
    unknownCommand->add_option("--known", dictionary, "The dictionary, a word first in each line")
        ->required();
    for (CLI::App* command : {sayCommand, unknownCommand})
        command->add_option("texts", paths, "Files of questions, or of anything else")->required();
    CLI11_PARSE(app, argc, argv);

    if (*sayCommand)
        say(paths);
    else
        listUnknown(dictionary, paths);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return run(argc, argv);
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
