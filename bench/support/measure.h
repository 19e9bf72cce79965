#pragma once

#include <QTemporaryDir>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

/// What the benchmarks share.
namespace bench {

constexpr int many = 1'000'000;
constexpr int few = 300;

[[nodiscard]] double milliseconds(std::chrono::steady_clock::duration span);
/// How long `work` takes.
[[nodiscard]] double milliseconds(const std::function<void()>& work);
[[nodiscard]] double median(std::vector<double> values);
/// What a process holds in memory now, in MiB; 0 if there is none such. "Rss" counts shared libraries too,
/// "Anonymous" nothing that is a page of a file.
[[nodiscard]] double mebibytes(const std::string& kind = "Rss", const std::string& process = "self");

/// Makes a question bank with so many questions, with an index on the levels if wanted; its path.
QString makeBank(const QString& path, int questions, bool withIndex = true);

} // namespace bench
