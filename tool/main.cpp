#include "conversion.h"
#include "files/essentials.h"
#include "multi_report.h"
#include "results/code_table.h"
#include "results/result_files.h"
#include "task.h"

#include <string>

namespace {

using namespace tavelinUtils;

constexpr const char* defaultTask = "f:\\vomar\\binwindows64\\thresh.xml";

// The folder of the output, with a slash at its end. An out_dir that does not exist is not created: output
// goes to the folder of the input instead.
std::string outputFolder(const TConvMea& task)
{
    std::string folder = task.out_dir;
    if (folder.empty() || !DirectoryExists(folder)) {
        return ExtractPath(task.path_in) + Slash;
    }
    AddSlash(folder, Slash);
    return folder;
}

TFuncRes runTask(const TConvMea& task)
{
    return task.inputformat == "vomar" ? CreateMultiReport(task) : converter(task);
}

} // namespace

// Prints nothing and always returns 0: the result file says how the run ended. An exception of a writer is
// not caught: the runtime then ends the process, and no result file is written.
int main(int argc, char** argv)
{
    const std::string path = argc == 2 ? argv[1] : defaultTask;
    TConvMea task;
    if (!ltaskconv(path, task)) {
        SaveLogCode(argv[0] + std::string(".log"), GetErrCode(resultCode::unopenedFile, path));
        return 0;
    }
    task.out_dir = outputFolder(task);
    SaveLogCode(task.path_res, runTask(task));
    return 0;
}
