#include "files/text_file.h"

#include "results/code_table.h"

#include <utility>

namespace tavelinUtils {

TextFile::TextFile(std::string filePath, PieceFile::Old old) : path(std::move(filePath)), file(path, old)
{
}

void TextFile::close()
{
    if (!file.close()) {
        fail();
    }
}

void TextFile::fail() const
{
    throwErrCode(resultCode::unopenedFile, path);
}

} // namespace tavelinUtils
