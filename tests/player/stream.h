// SPDX-License-Identifier: MIT
// Streams whose pictures are dumped.
#pragma once
#include "tests/player/clip.h"
#include "tests/player/process.h"
#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>

namespace player_test {

class Stream : public testing::Test {
protected:
    Result dump(const std::filesystem::path& file, Arguments options = {})
    {
        options.insert(options.end(), {"--dump", directory().string(), file.string()});
        return play(options);
    }

    std::filesystem::path directory() const { return scratch_ / "pictures"; }

    Image picture(int number) const
    {
        char name[32];
        std::snprintf(name, sizeof name, "picture-%06d.png", number);
        return read_png(directory() / name);
    }

    long complete_pictures() const
    {
        long count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(directory())) {
            EXPECT_EQ(entry.path().extension(), ".png");
            EXPECT_GT(read_png(entry.path()).width, 0) << entry.path();
            count++;
        }
        return count;
    }

    void expect_one_line(const Result& result, const char* hint) const
    {
        EXPECT_EQ(result.status, 2) << result.err;
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
        EXPECT_NE(result.err.find(hint), std::string::npos) << result.err;
    }

    const ScratchDirectory scratch_;
};

} // namespace player_test
