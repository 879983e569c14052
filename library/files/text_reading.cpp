#include "files/text_reading.h"

#include "results/code_table.h"

namespace tavelinUtils {

void mustNotBeRegular(std::FILE* stream, const std::string& path)
{
    if (isRegular(stream)) {
        throwErrCode(resultCode::unopenedFile, path);
    }
}

bool readText(const std::string& path, FileBytes& file)
{
    const OpenFile stream = openForReading(path);
    if (!stream) {
        return false;
    }
    const bool isWhole = readBytes(stream.get(), file);
    if (!isWhole) {
        mustNotBeRegular(stream.get(), path);
    }
    return isWhole;
}

} // namespace tavelinUtils
