#include "bench/program.h"

#include "bench/measure.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {

Program::Program(std::vector<std::string> command, const std::filesystem::path& directory, int output)
{
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string& word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);

    started_ = std::chrono::steady_clock::now();
    process_ = fork();
    if (process_ == 0) {
        setpgid(0, 0);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(nowhere, STDIN_FILENO);
        dup2(output < 0 ? nowhere : output, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        if (chdir(directory.c_str()) == 0)
            execvp(arguments.front(), arguments.data());
        _exit(127);
    }
    close(nowhere);
    if (process_ < 0)
        throw std::system_error(errno, std::generic_category(), command.front());
}

Program::~Program()
{
    // An X server that is not asked to end leaves its lock behind.
    int signal = SIGTERM;
    for (int glance = 0; waitpid(process_, nullptr, WNOHANG) == 0; ++glance) {
        if (glance % 200 == 0)
            kill(-process_, std::exchange(signal, SIGKILL));
        usleep(10'000);
    }
}

double Program::resident() const
{
    return residentMebibytes(std::to_string(process_));
}

PrivateDirectory::PrivateDirectory()
{
    std::string name = std::filesystem::temp_directory_path() / "bench-XXXXXX";
    if (!mkdtemp(name.data()))
        throw std::system_error(errno, std::generic_category(), name);
    path_ = name;
}

PrivateDirectory::~PrivateDirectory()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

} // namespace bench
