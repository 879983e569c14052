#include "results/failure_saving.h"

#include "files/essentials.h"
#include "files/paths.h"
#include "results/code_table.h"
#include "results/result_files.h"

namespace tavelinUtils {
namespace {

std::string logNameOf(const std::string& source)
{
    return ChangeFileExt("LOG_" + ExtractFileName(source, Slash), ".xml");
}

} // namespace

void tavelinExceptionsAct(int code, std::string text, std::string path1, std::string path2, std::string path3)
{
    const TFuncRes result = GetErrCode(code, text);
    for (const std::string& path : {path1, path2, path3}) {
        SaveLogCode(path, result);
    }
}

void SaveExceptLogCode(std::string source, std::string result, TFuncRes res)
{
    // A missing result file is not created: its presence means to others that the step ran to its end.
    if (FileExists(result)) {
        SaveLogCode(result, res);
    }
    const std::string folder = ExtractPath(result);
    SaveLogCode((DirectoryExists(folder) ? folder : ExtractPath(source)) + Slash + logNameOf(source), res);
}

} // namespace tavelinUtils
