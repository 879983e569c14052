#include "conversion.h"
#include "file_names.h"
#include "multi_report.h"
#include "results/code_table.h"
#include "results/result_files.h"
#include "task.h"

#include <string>

namespace {

using namespace tavelinUtils;

constexpr const char* defaultTask = "f:\\vomar\\binwindows64\\thresh.xml";

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
