#include "folder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

Folder::Folder() : root_(directory_.path().toStdString())
{
    std::filesystem::create_directory(root_ / "data");
    std::ostringstream questions;
    for (const char* level : {"1", "2", "3"}) {
        for (int number = 1; number <= 5; ++number) {
            questions << record(level, "Question " + std::to_string(number) + " of " + level + "?") << '\n';
        }
    }
    write("data/questions-1.txt", questions.str());
    write("data/prompts.txt", "Shall I?\n");
}

void Folder::write(const std::string& name, const std::string& content) const
{
    std::ofstream(root_ / name, std::ios::binary) << content;
}

std::string Folder::read(const std::string& name) const
{
    std::ifstream file(root_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> Folder::names() const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(root_)) {
        if (entry.path().filename() != "data") {
            names.push_back(entry.path().filename().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string record(const std::string& level, const std::string& question, std::size_t line,
                   const std::string& text)
{
    std::vector<std::string> lines{"",         "level: " + level, "topic: words", "question: " + question,
                                   "A: one",   "B: the two",      "C: three",     "D: four",
                                   "right: B", "why: because"};
    lines.at(line) = text;
    std::string all;
    std::for_each(lines.begin() + 1, lines.end(),
                  [&](const std::string& each) { all.append(each).append("\n"); });
    return all;
}
