// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace test {

/// No file of this process may grow beyond a size as long as this lives, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

} // namespace test
