// System faults: calls of the system that fail, or end the process, as on a full disk or when the power goes.

#pragma once

#include <cstdint>
#include <functional>
#include <vector>

/// A call that does not do its work.
struct SystemFault
{
    long call = 0; ///< its number
    int error = 0; ///< what it fails with; 0: the process ends there, and none of its code runs any more
    std::uint32_t flag = 0; ///< only where the third argument has this bit; 0: always
};

/// From now on and for good these calls of this process go wrong.
void setFaults(const std::vector<SystemFault>& faults);

/// Where a name of the C library may stand for several calls: all that put a name in the place of another.
std::vector<SystemFault> faultsOfRename(int error);

/// The system gives no right to a file, to no one.
std::vector<SystemFault> faultsOfAccess(int error);

/// Opening a file without a name fails, as on file systems that have none.
SystemFault noFilesWithoutNames();

/// Does work in a process of its own; gives the status as waitpid does. Work that returns exits with 0, one
/// that throws with 1. The signals of a terminal have their usual effect there.
int statusOfChild(const std::function<void()>& work);

/// Starts such a process; gives its id.
int startChild(const std::function<void()>& work);

/// Waits for it; gives the status.
int waitForChild(int process);
