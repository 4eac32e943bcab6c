// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>
#include <gtest/gtest.h>

// The HTTP client needs an application, and loopback must not go through a proxy of the machine.
int main(int argc, char** argv) {
    for (const char* name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"})
        qunsetenv(name);
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
