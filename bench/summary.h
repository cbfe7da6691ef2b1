// SPDX-License-Identifier: MIT
// Collects what Google Benchmark measures and prints it as ratios: to the roof, to the best peer, to the plain twin.
#pragma once
#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

#include "bench/groups.h"

namespace bench {

class Summary : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    // `prefix` is "hot/1920x1080/", the part of a benchmark's name that precedes its contender's.
    void print_table(const std::string& prefix, const std::vector<Contender>& contenders) const;
    void print_line(const std::string& prefix, const Group& group) const;
    void print_stores(const std::string& prefix, const std::vector<Contender>& contenders) const;
    void write_json(std::ostream& to) const;

private:
    double seconds(const std::string& name) const; // a picture, the fastest repetition; 0 if it did not run
    double fastest(const std::string& beginning, std::string* which = nullptr) const;
    // The export's own, or else that of its plain form.
    double peer_of(const std::string& prefix, const std::string& name, const std::string& plain) const;
    double roof(const std::string& prefix, const Contender& of, const std::vector<Contender>& contenders) const;

    std::map<std::string, double> seconds_;
    std::vector<Run> runs_;
};

} // namespace bench
