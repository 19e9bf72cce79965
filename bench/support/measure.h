#pragma once

#include <QTemporaryDir>

#include <functional>
#include <string>
#include <vector>

/// What the benchmarks share.
namespace bench {

constexpr int many = 1'000'000;
constexpr int few = 300;

/// How long `work` takes.
[[nodiscard]] double milliseconds(const std::function<void()>& work);
[[nodiscard]] double median(std::vector<double> values);
/// What a process holds in memory now, in MiB, shared libraries included; 0 if there is none such.
[[nodiscard]] double residentMebibytes(const std::string& process = "self");

/// Makes a question bank with so many questions, with an index on the levels if wanted; its path.
QString makeBank(const QString& path, int questions, bool withIndex = true);

} // namespace bench
