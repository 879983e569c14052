// Catalogue lists: any bytes after the first, which chooses the reader, give a star for each line that
// counts. A written list is the same when it is read and written again.

#include "exchange/catalogue_lists.h"
#include "files/text_files.h"
#include "written_bytes.h"

#include <iterator>
#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

std::size_t linesBehind(const std::string& path, std::size_t headLines)
{
    const std::size_t lines = ReadFromFile(path).size();
    return lines < headLines ? 0 : lines - headLines;
}

std::string written(const std::vector<TVSX>& stars)
{
    return bytesWritten([&](const std::string& path) { SaveVSX(path, stars); });
}

void listOfIndex(const std::string& path)
{
    const std::vector<TVSX> stars = LoadVSX(path);
    mustHold(stars.size() == linesBehind(path, 2));
    const WrittenFile copy(written(stars));
    const std::vector<TVSX> again = LoadVSX(copy.path());
    mustHold(again.size() == stars.size() && written(again) == written(stars));
}

void shortListOfIndex(const std::string& path)
{
    std::vector<TVSX> stars(2);
    lListVSX(path, stars);
    mustHold(stars.size() == linesBehind(path, 1));
}

void answerOfIndex(const std::string& path)
{
    std::vector<TVSX> stars(2);
    mustHold(LoadVSXQuerry(path, stars) || stars.size() == 2);
}

void chart(const std::string& path)
{
    mustHold(lVSP(path).size() == linesBehind(path, 2));
}

void requestedList(const std::string& path)
{
    std::vector<TAAVSOvsp> stars(2);
    lListAAVSOvsp(path, stars);
    mustHold(stars.size() == linesBehind(path, 0));
}

void names(const std::string& path)
{
    mustHold(lNameSat(path).size() == linesBehind(path, 0));
}

constexpr void (*readers[])(const std::string& path) = {listOfIndex, shortListOfIndex, answerOfIndex,
                                                        chart,       requestedList,    names};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size != 0) {
        const InputFile file(bytes + 1, size - 1);
        readers[(bytes[0] - std::size_t{'A'}) % std::size(readers)](file.path());
    }
    return 0;
}
