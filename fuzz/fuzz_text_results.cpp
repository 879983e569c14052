// Small text results: any bytes after the first, which chooses the reader, give numbers or none.

#include "exchange/text_results.h"
#include "files/text_files.h"
#include "written_bytes.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

void bands(const std::string& path)
{
    const std::vector<std::string> names = lBand(path);
    mustHold(names.empty() || !ReadFromFile(path).empty());
}

void results(const std::string& path)
{
    std::vector<double> values(2);
    LoadResult61(path, values);
    mustHold(values.size() == std::max<std::size_t>(ReadFromFile(path).size(), 3) - 1);
}

std::string written(const TPlateRec& plate)
{
    return bytesWritten([&](const std::string& path) { sAstroPlate(path, plate); });
}

void plate(const std::string& path)
{
    const TPlateRec read = lAstroPlate(path);
    mustHold(read.List1.size() == read.List2.size());
    if (isShort(read.List1.size())) {
        const WrittenFile copy(written(read));
        mustHold(written(lAstroPlate(copy.path())) == written(read));
    }
}

void solution(const std::string& path)
{
    TFitHead head;
    head.Width = 7;
    mustHold(lIniASTAP(path, head) != 0 || FitHeadToPlate(head).Value1 == 0.0);
    mustHold(head.Width == 7);
}

void fisherTable(const std::string& path)
{
    TFisherTable table;
    table.Column = 7;
    const int code = lFisherTable(path, 0.0, table);
    mustHold(code == (ReadFromFile(path).size() < 3 ? 2 : 0));
    mustHold(table.Rows.size() == table.Values.size());
    mustHold(code == 0 || table.Column == 7);
}

void lastResult(const std::string& path)
{
    mustHold(LoadResultExe(path).Comment == "OK");
}

constexpr void (*readers[])(const std::string& path) = {bands,    results,     plate,
                                                        solution, fisherTable, lastResult};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size != 0) {
        const InputFile file(bytes + 1, size - 1);
        readers[(bytes[0] - std::size_t{'A'}) % std::size(readers)](file.path());
    }
    return 0;
}
