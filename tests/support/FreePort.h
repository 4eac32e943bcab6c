// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

namespace test {

/// A port of this machine that no server listens at.
inline int FreePort() {
    const int socketNumber = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    EXPECT_EQ(bind(socketNumber, reinterpret_cast<sockaddr*>(&address), size), 0);
    EXPECT_EQ(getsockname(socketNumber, reinterpret_cast<sockaddr*>(&address), &size), 0);
    close(socketNumber);
    return ntohs(address.sin_port);
}

} // namespace test
