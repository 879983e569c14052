// A file that exists and that nobody can open.

#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/// Makes the address of a socket at the path.
inline void makeSocket(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof address.sun_path);
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const int end = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_GE(end, 0);
    EXPECT_EQ(bind(end, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(end);
}
