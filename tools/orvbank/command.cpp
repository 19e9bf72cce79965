#include "bank/command.h"

#include "bank/create.h"
#include "bank/failure.h"
#include "bank/password.h"
#include "bank/source.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace bank {
namespace {

constexpr int inputError = 1;
constexpr int usageError = 2;

void create(const std::filesystem::path& file, const std::filesystem::path& source, std::ostream& out)
{
    const Bank bank = readSource(source);
    const Account owner{"owner", newPassword()};
    createDatabase(file, bank, owner);
    out << file.string() << " was created with " << bank.questions.size() << " questions and "
        << bank.prompts.size() << " prompts.\n"
        << "Log in to the administration console as \"" << owner.name << "\" with the password \""
        << owner.password << "\". It was made for this file alone and is not shown again: note it down now.\n"
        << std::flush;
    if (!out) {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
        throw Failure(QStringLiteral("%1 was removed again: its password could not be shown")
                          .arg(QString::fromStdString(file.string())));
    }
}

} // namespace

int run(int argc, const char* const* argv, std::ostream& out, std::ostream& err)
{
    CLI::App app("Looks after the question bank of Orvanta.", "orvbank");
    app.require_subcommand(1);
    app.footer("Exit code: 0 done, 1 bad input or a file that cannot be written, 2 wrong usage.");

    std::string file;
    std::string source;
    auto* const creation = app.add_subcommand("create", "Make a new quiz database out of text files");
    creation->add_option("FILE", file, "The database to make, for the game always orv.orv; must not exist")
        ->required();
    creation
        ->add_option("--from", source,
                     "Folder with questions-*.txt and prompts.txt; its README.md describes their form")
        ->required()
        ->option_text("DATADIR REQUIRED");
    creation->callback([&] { create(file, source, out); });

    try {
        app.parse(argc, argv);
        return 0;
    } catch (const CLI::ParseError& error) {
        return app.exit(error, out, err) == 0 ? 0 : usageError;
    } catch (const std::exception& error) {
        err << error.what() << '\n';
        return inputError;
    }
}

} // namespace bank
