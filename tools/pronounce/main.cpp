// Shows how the host says texts, and which of their words he may get wrong.

#include "voice/respelling.h"
#include "voice/spelling.h"
#include "voice/synthesiser.h"

#include <CLI/CLI.hpp>

#include <array>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

void forEachLine(const std::string& path, const std::function<void(const std::string&)>& use)
{
    std::ifstream file(path);
    if (!file && path != "-")
        throw std::runtime_error(path + " cannot be read");
    std::istream& lines = path == "-" ? std::cin : file;
    for (std::string line; std::getline(lines, line);)
        use(line);
}

/// What the host says of a line of a question file; all of a line of any other.
std::string spokenPart(const std::string& line)
{
    constexpr std::array<std::string_view, 4> unspoken = {"level:", "topic:", "right:", "why:"};
    for (const std::string_view key : unspoken)
        if (line.starts_with(key))
            return {};
    const bool option = line.size() > 3 && line.substr(1, 2) == ": ";
    const std::size_t start = line.starts_with("question: ") ? 10 : option ? 3 : 0;
    return line.starts_with('#') ? std::string() : line.substr(start);
}

std::string soundsOfWritten(const std::string& word)
{
    if (word == "A")
        return "ey1"; // the letter, not the article
    return voice::soundsOf(voice::stem(word)) + (word.ends_with("'s") ? " 's" : "");
}

void say(const std::vector<std::string>& paths)
{
    for (const std::string& path : paths)
        forEachLine(path, [](const std::string& line) {
            for (const voice::SpokenWord& word :
                 voice::spokenWords(QString::fromStdString(spokenPart(line)))) {
                const std::string sounds = word.sounds.empty() ? soundsOfWritten(word.text) : word.sounds;
                std::cout << word.text << '[' << sounds << ']' << voice::markOf(word.pause) << ' ';
            }
            std::cout << '\n';
        });
}

/// The words of a dictionary, whose lines begin with them, and all that can be
/// told from them.
class Known
{
public:
    explicit Known(const std::string& dictionary)
    {
        forEachLine(dictionary, [this](const std::string& line) {
            words_.insert(voice::lower(line.substr(0, line.find_first_of(" \t("))));
        });
        for (const auto& [word, respelling] : voice::respellings())
            words_.emplace(word);
    }

    [[nodiscard]] bool has(const std::string& word) const
    {
        return word.size() == 1 || words_.contains(word);
    }

private:
    std::set<std::string> words_;
};

void listUnknown(const std::string& dictionary, const std::vector<std::string>& paths)
{
    const Known known(dictionary);
    std::map<std::string, std::string> places;
    for (const std::string& path : paths)
        forEachLine(path, [&](const std::string& line) {
            const std::string text = spokenPart(line);
            for (const voice::SpokenWord& word : voice::spokenWords(QString::fromStdString(text))) {
                const std::string plain = voice::stem(word.text);
                if (word.sounds.empty() && !known.has(plain))
                    places.emplace(plain, text);
            }
        });
    for (const auto& [word, text] : places)
        std::printf("%s\t%s\t%s\n", word.c_str(), voice::soundsOf(word).c_str(), text.c_str());
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
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
