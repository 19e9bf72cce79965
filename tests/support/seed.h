#pragma once

namespace support {

/// What a random run begins with: `usual`, or the N of the test program's option `--seed N`. `--minutes N`
/// does the random runs alone, with one new seed after another, until one fails or the time is over.
[[nodiscard]] int seed(int usual);

} // namespace support
