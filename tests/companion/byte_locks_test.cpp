#include "running/byte_locks.h"

#include "findings/finding.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using companion::ByteLocks;

// Whether another process gets a byte.
bool isFreeForOthers(const std::string& path, std::size_t byte)
{
    const pid_t child = fork();
    if (child == 0) {
        _exit(ByteLocks(path).take(byte) ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(ByteLocks, EachByteHasALockOfItsOwn)
{
    const TemporaryFolder folder;
    const ByteLocks locks(folder / "lock");
    EXPECT_TRUE(locks.take(7));
    EXPECT_TRUE(locks.take(7)); // the process's own
    EXPECT_FALSE(isFreeForOthers(folder / "lock", 7));
    EXPECT_TRUE(isFreeForOthers(folder / "lock", 8));
    locks.leave(7);
    EXPECT_TRUE(isFreeForOthers(folder / "lock", 7));
    EXPECT_EQ(bytesOf(folder / "lock"), "");
}

TEST(ByteLocks, GoWithAProcessThatIsKilled)
{
    const TemporaryFolder folder;
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        const ByteLocks locks(folder / "lock");
        locks.wait(3);
        [[maybe_unused]] const auto written = write(ready[1], "x", 1);
        pause();
        _exit(0);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    const ByteLocks locks(folder / "lock");
    EXPECT_FALSE(locks.take(3));
    kill(child, SIGKILL);
    locks.wait(3);
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(locks.take(3));
}

TEST(ByteLocks, FolderThatIsMissingIsToldInUsage)
{
    EXPECT_THROW(ByteLocks("/no/such/folder/lock"), companion::WrongUsage);
}

// The status of a process that takes a byte where the system refuses locks with an error.
int statusOfTaking(const std::string& path, int error)
{
    return WEXITSTATUS(statusOfChild([&] {
        const ByteLocks locks(path);
        setFaults({{SYS_fcntl, error}});
        _exit(locks.take(1) ? 10 : 11);
    }));
}

// Systems say in one of two ways that another has the lock; all else is no answer.
TEST(ByteLocks, OnlyTheErrorsOfATakenLockMeanThatItIsTaken)
{
    const TemporaryFolder folder;
    EXPECT_EQ(statusOfTaking(folder / "lock", EACCES), 11);
    EXPECT_EQ(statusOfTaking(folder / "lock", EAGAIN), 11);
    EXPECT_EQ(statusOfTaking(folder / "lock", ENOLCK), 1); // by an exception
}

} // namespace
