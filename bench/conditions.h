// SPDX-License-Identifier: MIT
// A run of the benchmarks: which cells, in which order, on which memory.
#pragma once
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "bench/groups.h"
#include "bench/summary.h"

namespace bench {

struct Options {
    bool brief = false;            // one line a group instead of a table
    bool check = false;            // nothing measured, but results compared
    std::vector<Threshold> stores; // not empty: with each of these instead of everything against its peers
    std::string json;              // where the measurements go
};

class Session {
public:
    explicit Session(Options options);

    // Whether all went well; only a check can find otherwise.
    bool run();

private:
    using List = std::vector<Contender>;

    std::string prefix(const std::string& regime, const Place& place) const;
    List wanted(const std::string& prefix, List list) const;
    List list_of(const Family& family, const Group& group, const Place& place) const;

    void run_group(const Family& family, const Group& group, Size size);
    void run_cell(const Group& group, const std::string& prefix, const std::string& regime, const List& list);
    void run_interleaved(const std::string& prefix, const std::string& regime, const List& list);

    Options options_;
    std::string filter_;
    std::regex wanted_;
    std::ofstream json_;
    Ring ring_;
    Summary summary_;
    bool any_ = false;
};

} // namespace bench
