// Inputs that the system does not give: copies of what can be read only once, and files in memory.

#include "reading/input_files.h"

#include "findings/finding.h"
#include "reading/memory_file.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>

#include <pthread.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

using companion::InputFiles;
using companion::MemoryFile;

// Whether work in a process of its own is refused with a text.
bool isRefused(const std::string& text, const std::function<void()>& work)
{
    const int status = statusOfChild([&] {
        std::string why;
        try {
            work();
        } catch (const companion::WrongUsage& wrong) {
            why = wrong.why.text;
        }
        if (why != text) {
            _exit(2);
        }
    });
    return status == 0;
}

bool isRefused(const std::string& text, const SystemFault& fault, const std::function<void()>& work)
{
    return isRefused(text, [&] {
        setFaults({fault});
        work();
    });
}

// A pipe that is the standard input, with its end for writing.
int pipeAsInput()
{
    int ends[2] = {};
    if (pipe(ends) != 0 || dup2(ends[0], STDIN_FILENO) < 0) {
        _exit(3);
    }
    close(ends[0]);
    return ends[1];
}

void writeText(int to, const std::string& text)
{
    if (write(to, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
        _exit(3);
    }
    close(to);
}

void doNothing(int /*signal*/)
{
}

const char* const device = "/dev/null";

} // namespace

TEST(InputFaults, ACopyThatCannotBeMade)
{
    EXPECT_TRUE(isRefused("/dev/null: No such file or directory", [] {
        const TemporaryFolder folder;
        setenv("TMPDIR", (folder / "missing").c_str(), 1);
        InputFiles().pathOf(device);
    }));
    EXPECT_TRUE(
        isRefused("/dev/null: Permission denied", {SYS_openat, EACCES}, [] { InputFiles().pathOf(device); }));
}

TEST(InputFaults, ACopyWithoutRoom)
{
    EXPECT_TRUE(isRefused("/dev/zero: No space left on device", {SYS_write, ENOSPC},
                          [] { InputFiles().pathOf("/dev/zero"); }));
}

TEST(InputFaults, AStandardInputThatIsNotThere)
{
    EXPECT_TRUE(isRefused("-: Bad file descriptor", [] {
        close(STDIN_FILENO);
        InputFiles().pathOf("-");
    }));
}

TEST(InputFaults, ASignalDoesNotEndAnInput)
{
    const int status = statusOfChild([] {
        struct sigaction action
        {
        };
        action.sa_handler = doNothing;
        sigaction(SIGUSR1, &action, nullptr);
        const int to = pipeAsInput();
        const pthread_t reader = pthread_self();
        std::thread writer([to, reader] {
            for (int times = 0; times < 50; ++times) {
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
                pthread_kill(reader, SIGUSR1);
            }
            writeText(to, "text");
        });
        InputFiles inputs;
        const std::string path = inputs.pathOf("-");
        writer.join();
        if (bytesOf(path) != "text") {
            _exit(2);
        }
    });
    EXPECT_EQ(status, 0);
}

TEST(InputFaults, EachInputHasItsOwnCopy)
{
    const int status = statusOfChild([] {
        InputFiles inputs;
        const std::string empty = inputs.pathOf(device);
        writeText(pipeAsInput(), "text");
        const std::string path = inputs.pathOf("-");
        const bool areRight = bytesOf(empty).empty() && bytesOf(path) == "text" &&
                              inputs.pathOf(device) == empty && inputs.pathOf("-") == path;
        if (!areRight) {
            _exit(2);
        }
    });
    EXPECT_EQ(status, 0);
}

TEST(InputFaults, AFileInMemoryThatCannotBeMadeOrFilled)
{
    EXPECT_TRUE(isRefused("a file in memory: Too many open files", {SYS_memfd_create, EMFILE},
                          [] { MemoryFile("text"); }));
    EXPECT_TRUE(isRefused("a file in memory: No space left on device", {SYS_write, ENOSPC},
                          [] { MemoryFile("text"); }));
}
