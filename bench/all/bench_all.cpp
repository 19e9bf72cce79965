// Runs every benchmark, one after the other, so that together they print one table.

#include <QCoreApplication>
#include <QProcess>

#include <cstdio>
#include <fstream>
#include <string>
#include <thread>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    std::string load;
    std::ifstream("/proc/loadavg") >> load;
    std::printf("%u processors; %s programs wanted them in the last minute\n",
                std::thread::hardware_concurrency(), load.c_str());
    std::fflush(stdout);
    int failures = 0;
    for (const char* name : {"start", "db", "admin", "bank", "host"})
        failures += QProcess::execute(QCoreApplication::applicationDirPath() + "/bench_" + name, {}) != 0;
    return failures;
}
