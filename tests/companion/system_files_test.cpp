#include "out/system_files.h"

#include "support/child_process.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <string>
#include <thread>

#include <sys/time.h>
#include <unistd.h>

namespace {

using companion::temporaryFolder;
using companion::writeAll;

TEST(TemporaryFolderOfTheSystem, IsThatOfTheEnvironmentUnlessItIsEmpty)
{
    expectTrueInChild([] {
        setenv("TMPDIR", "/var/tmp", 1);
        const bool isTaken = temporaryFolder() == "/var/tmp";
        setenv("TMPDIR", "", 1);
        const bool isLeft = temporaryFolder() == "/tmp";
        unsetenv("TMPDIR");
        return isTaken && isLeft && temporaryFolder() == "/tmp";
    });
}

TEST(WriteAll, SignalsDoNotCutIt)
{
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    struct sigaction interrupt = {};
    struct sigaction old = {};
    interrupt.sa_handler = [](int) {}; // calls of the system are not begun again
    sigaction(SIGALRM, &interrupt, &old);
    const std::string bytes(1'000'000, 'a'); // more than a pipe holds
    std::string read;
    std::thread reader([&] {
        sigset_t alarm;
        sigemptyset(&alarm);
        sigaddset(&alarm, SIGALRM);
        pthread_sigmask(SIG_BLOCK, &alarm, nullptr); // so that they come to the writer
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        std::string part(65536, ' ');
        for (ssize_t count = 0; (count = ::read(ends[0], part.data(), part.size())) > 0;) {
            read.append(part, 0, static_cast<std::size_t>(count));
        }
    });
    const itimerval each{{0, 5000}, {0, 5000}};
    const itimerval none{};
    setitimer(ITIMER_REAL, &each, nullptr);
    EXPECT_TRUE(writeAll(ends[1], bytes));
    setitimer(ITIMER_REAL, &none, nullptr);
    close(ends[1]);
    reader.join();
    close(ends[0]);
    sigaction(SIGALRM, &old, nullptr);
    EXPECT_EQ(read, bytes);
}

TEST(WriteAll, WhatCannotBeWrittenIsTold)
{
    errno = 0;
    EXPECT_FALSE(writeAll(-1, "a"));
    EXPECT_EQ(errno, EBADF);
    EXPECT_TRUE(writeAll(-1, ""));
}

} // namespace
