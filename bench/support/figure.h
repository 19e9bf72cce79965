#pragma once

#include <optional>
#include <string>
#include <vector>

namespace bench {

/// One figure, measured once or several times.
struct Figure
{
    std::string what;
    std::vector<double> values; ///< none if it cannot be measured here
    std::string unit;
    std::vector<double> floors;   ///< the same of the least that would do, each measured beside its value
    std::optional<double> atMost; ///< of the ratio to the floor; where there is none, of the value
};

/// Prints how the benchmark `name` was built, and what the columns of its figures are called.
void printHeading(const std::string& name);
/// Prints the medians, of the ratio too, and whether the bound is kept.
void print(const Figure& figure);

} // namespace bench
