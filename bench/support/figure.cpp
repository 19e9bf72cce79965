#include "bench/figure.h"

#include "bench/measure.h"

#include <cstdio>

namespace bench {

void printHeading(const std::string& name)
{
    const std::string title = name + " (" BENCH_BUILD ")";
    std::printf("\n%-58s %10s      %9s %7s   %s\n", title.c_str(), "value", "floor", "ratio", "wanted");
}

void print(const Figure& figure)
{
    std::printf("%-58s ", figure.what.c_str());
    if (figure.values.empty()) {
        std::printf("%10s\n", "not here");
        return;
    }
    double bounded = median(figure.values);
    std::printf("%10.2f %-4s", bounded, figure.unit.c_str());
    if (figure.floors.empty()) {
        std::printf(" %9s %7s", "", "");
    } else {
        std::vector<double> ratios;
        for (std::size_t i = 0; i < figure.values.size(); ++i)
            ratios.push_back(figure.values[i] / figure.floors.at(i));
        bounded = median(ratios);
        std::printf(" %9.2f %7.2f", median(figure.floors), bounded);
    }
    if (figure.atMost)
        std::printf("   at most %g: %s", *figure.atMost, bounded <= *figure.atMost ? "kept" : "MISSED");
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace bench
