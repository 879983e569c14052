#include "conversion.h"
#include "files/essentials.h"
#include "multi_report.h"
#include "results/code_table.h"
#include "results/result_files.h"
#include "task.h"

#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

constexpr const char* defaultTask = "f:\\vomar\\binwindows64\\thresh.xml";

// An output folder that does not exist is not made: output goes beside the input instead.
std::string settledFolder(const TConvMea& task)
{
    std::string folder = task.out_dir;
    if (folder.empty() || !DirectoryExists(folder)) {
        return ExtractPath(task.path_in) + Slash;
    }
    AddSlash(folder, Slash);
    return folder;
}

// The tracks are never taken down: the system frees what a run leaves faster than a million destructors do.
TFuncRes runTask(const TConvMea& task)
{
    if (task.inputformat == "vomar") {
        static auto& reports = *new std::vector<TrackList>;
        return CreateMultiReport(task, reports);
    }
    static auto& tracks = *new std::vector<TrackVtorichka>;
    return converter(task, tracks);
}

} // namespace

// Prints nothing and returns 0 on every path: the result file tells how the run ended. An exception of a
// writer is not caught, so that the runtime ends the process and no result file appears.
int main(int argc, char** argv)
{
    const std::string path = argc == 2 ? argv[1] : defaultTask;
    TConvMea task;
    if (!ltaskconv(path, task)) {
        SaveLogCode(argv[0] + std::string(".log"), GetErrCode(resultCode::unopenedFile, path));
        return 0;
    }
    task.out_dir = settledFolder(task);
    SaveLogCode(task.path_res, runTask(task));
    return 0;
}
