// Makes the folders of random tasks, for each seed the same one.
//
//   make_works FOLDER SEED...
//
// The task of a seed is FOLDER/SEED/case/task.xml, and FOLDER exists. Left out are tasks whose output would
// go to the root folder of the machine, and those for which the order of the file system decides.

#include "companion/truth/random_tasks.h"
#include "file_names.h"
#include "task.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iterator>
#include <set>
#include <string>

namespace fs = std::filesystem;

namespace {

// Of several configurations below a series the one that the file system gives first counts.
bool dependsOnTheOrder(const RandomTask& work)
{
    std::set<fs::path> series;
    for (const FolderEntry& entry : work.entries) {
        const fs::path path = entry.path;
        fs::path folder = *path.begin();
        if (folder == "nights") {
            folder /= *std::next(path.begin());
        }
        if (entry.path.ends_with(".conf") && !series.insert(folder).second) {
            return true;
        }
    }
    return false;
}

bool goesToTheRoot(const fs::path& place)
{
    fs::current_path(place);
    tavelinUtils::TConvMea task;
    return tavelinUtils::ltaskconv("task.xml", task) && outputFolder(task) == "/";
}

void makeWork(const fs::path& folder, const std::string& seed)
{
    const fs::path place = folder / seed / "case";
    const fs::path scratch = folder / seed / "scratch";
    fs::create_directories(place);
    const RandomTask work = randomTask(std::strtoull(seed.c_str(), nullptr, 10), scratch.string());
    makeFolder(work, place.string());
    fs::remove(scratch);
    if (dependsOnTheOrder(work) || goesToTheRoot(place)) {
        fs::current_path(folder);
        fs::remove_all(folder / seed);
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fputs("usage: make_works FOLDER SEED...\n", stderr);
        return 2;
    }
    try {
        const fs::path folder = fs::canonical(argv[1]);
        for (int i = 2; i < argc; ++i) {
            makeWork(folder, argv[i]);
        }
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "make_works: %s\n", exception.what());
        return 1;
    }
    return 0;
}
