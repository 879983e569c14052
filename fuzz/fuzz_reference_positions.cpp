// Reference positions: any bytes give a mark for each line that counts, and a report of residuals.

#include "files/text_files.h"
#include "formats/reference_positions.h"
#include "formats/residual_report.h"
#include "input_file.h"
#include "results/result.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tavelinUtils;
    const InputFile file(bytes, size);
    const std::vector<std::string> lines = ReadFromFile(file.path());
    std::vector<TrackVtorichka> tracks(2);
    loadAMU(file.path(), tracks[0]);
    mustHold(tracks[0].Marks.size() == (lines.empty() ? 0 : lines.size() - 1));
    loadEtalonAMU(file.path(), tracks[1]);
    const auto isRemark = [](const std::string& line) { return line.starts_with('#'); };
    const auto remarks = std::count_if(lines.begin(), lines.end(), isRemark);
    mustHold(tracks[1].Marks.size() + static_cast<std::size_t>(remarks) == lines.size());
    try {
        SaveResidAMU("/dev/null", "name", tracks); // no folder: the text is made, and thrown away
    } catch (const TavelinException& failure) {
        mustHold(failure.getCode() == 7);
    }
    return 0;
}
