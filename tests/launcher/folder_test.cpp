#include "launcher/folder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>

namespace {

namespace fs = std::filesystem;

class Start : public testing::Test
{
protected:
    Start()
    {
        ::setenv("XDG_DATA_HOME", (root / "home/.data").c_str(), 1);
        ::setenv("XDG_DATA_DIRS", (root.string() + "/local:relative:" + root.string() + "/usr").c_str(), 1);
    }
    void write(const fs::path& file, const std::string& content) const
    {
        fs::create_directories((root / file).parent_path());
        std::ofstream(root / file) << content;
    }

    [[nodiscard]] std::string content(const fs::path& file) const
    {
        std::ifstream stream(root / file);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// What a start tells: "password", "nothing", or why it failed.
    [[nodiscard]] std::string start() const
    {
        try {
            const auto places = launcher::placesFor(ORVANTA_SOURCE);
            launcher::makeFolder(places);
            const auto password = launcher::furnish(places);
            return !password                                            ? "nothing"
                   : content(bank).find(*password) != std::string::npos ? "password"
                                                                        : "a lie";
        } catch (const launcher::Failure& failure) {
            return failure.what();
        }
    }

    QTemporaryDir directory;
    const fs::path root = directory.path().toStdString();
    const fs::path bank = "home/.data/orvanta/orv.orv";
    const fs::path link = root / bank;
};

TEST_F(Start, MakesABankOnceAndKeepsIt)
{
    EXPECT_EQ(start(), "password");
    const std::string made = content(bank);
    EXPECT_EQ(start(), "nothing");
    write("local/orvanta/orv.orv", "for all");
    EXPECT_EQ(start(), "nothing");
    EXPECT_EQ(content(bank), made);
    EXPECT_EQ(fs::read_symlink(link.parent_path() / "genie.acs"), ORVANTA_SOURCE "/genie.acs");
}

TEST_F(Start, UsesTheBankOfTheAdministratorAsLongAsThereIsOne)
{
    for (const char* folder : {"usr", "local"}) {
        write(root / folder / "orvanta/orv.orv", folder);
        EXPECT_EQ(start(), "nothing");
        EXPECT_EQ(content(bank), folder);
        fs::remove(root / folder / "orvanta/orv.orv");
    }
    EXPECT_EQ(start(), "password");
}

TEST_F(Start, LeavesWhatThePlayerHasPutThere)
{
    write(bank, "mine");
    write("home/.data/orvanta/genie.acs", "my host");
    EXPECT_EQ(start(), "nothing");
    EXPECT_EQ(content(bank) + content("home/.data/orvanta/genie.acs"), "minemy host");
    fs::remove(link);
    fs::create_symlink(root / "disk/that/is/away", link);
    EXPECT_EQ(start(), "nothing");
    EXPECT_EQ(fs::read_symlink(link), root / "disk/that/is/away");
}

TEST_F(Start, SaysWhyItCannotBe)
{
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"this account has no home folder",
         [] { ::unsetenv("XDG_DATA_HOME"), ::setenv("HOME", "not/absolute", 1); }},
        {"/orvanta, cannot be made: Not a directory", [this] { write("home", ""); }},
        {"/proc/orvanta, cannot be made: ", [] { ::setenv("XDG_DATA_HOME", "/proc", 1); }},
    };
    for (const auto& [reason, spoil] : cases) {
        ::setenv("XDG_DATA_HOME", (root / "home/.data").c_str(), 1);
        spoil();
        const std::string told = start();
        EXPECT_NE(told.find(reason), std::string::npos) << told;
        EXPECT_NE(told.find("then start again."), std::string::npos) << told;
    }
}

} // namespace
