// The time that pictures spend in the library.
#pragma once
#include <chrono>
#include <string>
#include <vector>

namespace player {

class Stats {
public:
    template <class Work> void time(Work&& work)
    {
        const auto start = std::chrono::steady_clock::now();
        work();
        add(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    void add(double milliseconds) { samples_.push_back(milliseconds); }

    // "250 pictures, ms per picture: min 0.101, median 0.108, mean 0.110"
    std::string summary() const;

private:
    std::vector<double> samples_;
};

} // namespace player
