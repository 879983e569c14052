// Preloaded into a program, lets the n-th request for memory fail, or all from the n-th on, and counts them
// over the program and all processes that it starts.
//
//   FAULT_CALL     malloc (and what else gives new memory) or realloc; without it no request fails
//   FAULT_AT       the number of the request that fails, from 1 on; 0: none
//   FAULT_ON       where it is there, all later ones fail too
//   FAULT_COUNTER  a file of eight zero bytes, which holds the count afterwards
//
// Memory is asked for by functions of the C library that a program can replace; all other faults are made at
// the system's calls, by fault_driver.

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

// The C library's own, which keeps these names for those that replace its functions.
extern "C" {
void* systemsMalloc(std::size_t size) __asm__("__libc_malloc");
void* systemsCalloc(std::size_t count, std::size_t size) __asm__("__libc_calloc");
void* systemsRealloc(void* memory, std::size_t size) __asm__("__libc_realloc");
void* systemsMemalign(std::size_t alignment, std::size_t size) __asm__("__libc_memalign");
}

namespace {

enum class Request
{
    fresh,
    larger
};

using Counter = std::atomic<std::uint64_t>;
static_assert(Counter::is_always_lock_free && sizeof(Counter) == sizeof(std::uint64_t));

// What fails, by the environment, which is not there yet when the loader asks for memory first.
struct Faults
{
    bool isRead = false;
    Request request = Request::fresh;
    std::uint64_t number = 0;
    bool goesOn = false;
    Counter* counter = nullptr;
};

Faults faults;

Counter* sharedCounter(const char* path)
{
    const int descriptor = open(path, O_RDWR | O_CLOEXEC);
    void* const memory = mmap(nullptr, sizeof(Counter), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    close(descriptor);
    return memory == MAP_FAILED ? nullptr : static_cast<Counter*>(memory);
}

void readFaults()
{
    const char* const counter = environ == nullptr ? nullptr : std::getenv("FAULT_COUNTER");
    const char* const call = counter == nullptr ? nullptr : std::getenv("FAULT_CALL");
    if (call == nullptr) {
        return;
    }
    faults.isRead = true;
    faults.request = std::strcmp(call, "realloc") == 0 ? Request::larger : Request::fresh;
    const char* const number = std::getenv("FAULT_AT");
    faults.number = number == nullptr ? 0 : std::strtoull(number, nullptr, 10);
    faults.goesOn = std::getenv("FAULT_ON") != nullptr;
    faults.counter = sharedCounter(counter);
}

bool isRefused(Request request)
{
    if (!faults.isRead) {
        readFaults();
    }
    if (faults.counter == nullptr || request != faults.request) {
        return false;
    }
    const std::uint64_t number = ++*faults.counter;
    return faults.number != 0 && (faults.goesOn ? number >= faults.number : number == faults.number);
}

void* refused()
{
    errno = ENOMEM;
    return nullptr;
}

} // namespace

extern "C" void* malloc(std::size_t size)
{
    return isRefused(Request::fresh) ? refused() : systemsMalloc(size);
}

extern "C" void* calloc(std::size_t count, std::size_t size)
{
    return isRefused(Request::fresh) ? refused() : systemsCalloc(count, size);
}

extern "C" void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return isRefused(Request::fresh) ? refused() : systemsMemalign(alignment, size);
}

extern "C" int posix_memalign(void** memory, std::size_t alignment, std::size_t size)
{
    void* const given = isRefused(Request::fresh) ? nullptr : systemsMemalign(alignment, size);
    if (given == nullptr) {
        return ENOMEM;
    }
    *memory = given;
    return 0;
}

extern "C" void* realloc(void* memory, std::size_t size)
{
    const Request request = memory == nullptr ? Request::fresh : Request::larger;
    return isRefused(request) ? refused() : systemsRealloc(memory, size);
}
