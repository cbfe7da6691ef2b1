// SPDX-License-Identifier: MIT
// The time that pictures spend in the library.
#pragma once
#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace player {

class Stats {
public:
    // `work` returns the name of the export that did it.
    template <class Work> void time(Work&& work)
    {
        const auto start = std::chrono::steady_clock::now();
        const char* name = work();
        last_ = name;
        add(name, std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    void add(const std::string& name, double milliseconds) { samples_[name].push_back(milliseconds); }

    // "loadimage_rgb32: 250 pictures, ms per picture: min 0.101, median 0.108, mean 0.110", one for each export.
    std::vector<std::string> lines() const;

    const std::string& last() const { return last_; } // the export that ran last
    double mean(const std::string& name) const;       // its milliseconds

private:
    std::string last_;
    std::map<std::string, std::vector<double>> samples_;
};

} // namespace player
