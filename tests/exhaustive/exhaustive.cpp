// Exhaustive: operations held against a reference over each value that there is.
//
//   exhaustive times --jobs 2             each millisecond of a day
//   exhaustive angles --jobs 2            each tenth of an arcsecond of the circle
//   exhaustive floats --jobs 2            each float: three quarters of an hour of a processor
//   exhaustive floats --part 3/64         a part of it, from 1 to 64
//   exhaustive floats --every 65521       one value of so many

#include "exhaustive/sweeps.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string_view>
#include <thread>
#include <vector>

namespace {

struct Sweep
{
    std::string_view name;
    std::uint64_t count;
    void (*run)(const Stretch& stretch, Differences& differences);
    const char* values;
};

constexpr Sweep sweeps[] = {
    {"times", millisecondsOfADay, sweepTimes, "milliseconds"},
    {"angles", tenthsOfTheCircle, sweepAngles, "tenths of an arcsecond, with both signs"},
    {"floats", magnitudesOfFloats, sweepFloats, "magnitudes of floats, with both signs"},
};

struct Options
{
    const Sweep* sweep = nullptr;
    std::uint64_t jobs = 1;
    std::uint64_t part = 1;
    std::uint64_t parts = 1;
    std::uint64_t step = 1;
};

int usage()
{
    std::fputs("usage: exhaustive times|angles|floats [--jobs N] [--part I/N] [--every N]\n", stderr);
    return 2;
}

// Reads a number of at least 1 and moves behind it.
bool readNumber(const char*& text, std::uint64_t& number)
{
    char* end = nullptr;
    number = std::strtoull(text, &end, 10);
    const bool isRead = end != text && number >= 1;
    text = end;
    return isRead;
}

bool readOption(std::string_view name, const char* value, Options& options)
{
    if (name == "--part") {
        return readNumber(value, options.part) && *value++ == '/' && readNumber(value, options.parts) &&
               *value == '\0' && options.part <= options.parts;
    }
    const bool isKnown = name == "--jobs" || name == "--every";
    return isKnown && readNumber(value, name == "--jobs" ? options.jobs : options.step) && *value == '\0';
}

bool parse(int argc, char** argv, Options& options)
{
    for (const Sweep& sweep : sweeps) {
        if (argc % 2 == 0 && argv[1] == sweep.name) {
            options.sweep = &sweep;
        }
    }
    bool isRead = options.sweep != nullptr;
    for (int i = 2; isRead && i < argc; i += 2) {
        isRead = readOption(argv[i], argv[i + 1], options);
    }
    return isRead;
}

// The values of the part. Those of all parts are each value once: a part begins on a step.
Stretch stretchOf(const Options& options)
{
    const std::uint64_t steps = (options.sweep->count + options.step - 1) / options.step;
    const auto firstOf = [&](std::uint64_t part) { return steps * part / options.parts * options.step; };
    return {firstOf(options.part - 1), std::min(firstOf(options.part), options.sweep->count), options.step};
}

// Threads that take piece after piece of the stretch.
Differences swept(const Options& options, const Stretch& stretch)
{
    const std::uint64_t piece = 4096 * stretch.step;
    std::atomic<std::uint64_t> next{stretch.begin};
    std::mutex mutex;
    Differences all;
    const auto work = [&] {
        Differences own;
        for (std::uint64_t begin = next.fetch_add(piece); begin < stretch.end; begin = next.fetch_add(piece))
        {
            options.sweep->run({begin, std::min(begin + piece, stretch.end), stretch.step}, own);
        }
        const std::lock_guard lock(mutex);
        all.add(own);
    };
    std::vector<std::thread> threads;
    for (std::uint64_t job = 0; job < options.jobs; ++job) {
        threads.emplace_back(work);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    return all;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!parse(argc, argv, options)) {
        return usage();
    }
    const auto begin = std::chrono::steady_clock::now();
    const Stretch stretch = stretchOf(options);
    const Differences differences = swept(options, stretch);
    for (const std::string& sentence : differences.first()) {
        std::puts(sentence.c_str());
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    const std::uint64_t count = (stretch.end - stretch.begin + stretch.step - 1) / stretch.step;
    std::printf("%s, part %llu of %llu: %llu %s, %llu differences, %.0f s\n", options.sweep->name.data(),
                static_cast<unsigned long long>(options.part), static_cast<unsigned long long>(options.parts),
                static_cast<unsigned long long>(count), options.sweep->values,
                static_cast<unsigned long long>(differences.count()), seconds.count());
    return differences.count() == 0 ? 0 : 1;
}
