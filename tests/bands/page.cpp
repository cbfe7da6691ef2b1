// SPDX-License-Identifier: MIT
// The page on threads names exactly the exports that these tests cut.
#include "bands/names.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

namespace {

std::set<std::string> named_in_section(const std::string& page, const std::string& title)
{
    std::ifstream text(page);
    EXPECT_TRUE(text) << page;
    std::set<std::string> names;
    bool within = false;
    for (std::string line; std::getline(text, line);) {
        if (line.starts_with("## ")) within = line == "## " + title;
        if (!within || !line.starts_with("|")) continue;
        const std::string first_cell = line.substr(0, line.find('|', 1));
        for (size_t end, at = first_cell.find('`'); at != std::string::npos; at = first_cell.find('`', end + 1)) {
            end = first_cell.find('`', at + 1);
            names.insert(first_cell.substr(at + 1, end - at - 1));
        }
    }
    return names;
}

TEST(BandsPage, names_the_exports_that_are_cut)
{
    std::set<std::string> cut;
    for (const auto& names : {bands::loads(), bands::jobs()}) cut.insert(names.begin(), names.end());
    EXPECT_EQ(named_in_section(VSURF_THREADS_PAGE, "Exports that can be cut"), cut);
}

} // namespace
