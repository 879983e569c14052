#include "format_words.h"

#include "formats/mea.h"
#include "formats/mpc_report.h"

#include <cstddef>
#include <iterator>

using tavelinUtils::TFuncRes;
using tavelinUtils::TrackVtorichka;

namespace {

// A format's number is the place of its row.
constexpr FormatWord formatWords[] = {
    {"mea",
     [](const std::string& path, const std::string& originator) {
         return tavelinUtils::plMEATrack(path, originator);
     },
     [](const std::string& path, const std::vector<TrackVtorichka>& tracks) {
         tavelinUtils::sMEA(path, tracks);
     }},
    {"telegram", nullptr, nullptr},
    {"tdm", nullptr, nullptr},
    {"ssmas", nullptr, nullptr},
    {"mpc", nullptr,
     [](const std::string& path, const std::vector<TrackVtorichka>& tracks) {
         tavelinUtils::sMPC(path, tracks);
     }},
    {"tdm.xml", nullptr, nullptr},
    {"mag", nullptr, nullptr},
    {"aavso", nullptr, nullptr},
};

} // namespace

const FormatWord* formatWord(int number)
{
    const bool known = number >= 0 && number < static_cast<int>(std::size(formatWords));
    return known ? &formatWords[number] : nullptr;
}

int formatOpticMea_to_int(std::string word)
{
    int number = 0;
    for (const FormatWord& row : formatWords) {
        if (row.word == word) {
            return number;
        }
        ++number;
    }
    return -1;
}

TFuncRes SelectFormatAndSave(std::string path, std::string format, std::vector<TrackVtorichka>& tracks)
{
    TFuncRes result;
    const FormatWord* const row = formatWord(formatOpticMea_to_int(format));
    if (row == nullptr) {
        result.Code = -2;
        result.Comment = "unknown output format";
        result.Description = "format_out";
    } else if (row->write != nullptr) {
        row->write(path, tracks);
    }
    return result;
}
