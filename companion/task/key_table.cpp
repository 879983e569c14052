#include "task/key_table.h"

#include "format_words.h"
#include "report_divisions.h"

#include <algorithm>

namespace companion {
namespace {

constexpr TaskKey taskKeys[] = {
    {"path_in", KeyType::text, "", KeyWork::both,
     "The input file of a conversion. Its folder is the output folder where out_dir does not exist.",
     "A name without a folder, \"night.mea\", has no folder that could take the output: write "
     "\"./night.mea\"."},
    {"out_dir", KeyType::text, "", KeyWork::both,
     "The folder of the output, with or without a slash at its end.",
     "A folder that does not exist is not made: the output goes beside the input instead."},
    {"outputextension", KeyType::text, "", KeyWork::both, "What follows the name of each output file.",
     "A conversion adds it as it is, so it brings its own point: \".txt\". A report puts a point in front: "
     "\"txt\"."},
    {"inputformat", KeyType::words, "", KeyWork::both,
     "The format of the input, or \"vomar\" for a multi-series report.",
     "Words are compared exactly: \"MEA\" is unknown. \"mpc\", \"tdm.xml\", \"mag\" and \"aavso\" can only "
     "be "
     "written."},
    {"outputformat", KeyType::words, "", KeyWork::both, "The format of the output.",
     "Words are compared exactly. An unknown word gives code 0 and no file."},
    {"originator", KeyType::text, "observatory", KeyWork::both, "Stamped on every track as its originator.",
     "It replaces what the file says, even where the task does not name it."},
    {"REFERENCE_FRAME", KeyType::text, "", KeyWork::conversion,
     "Stamped on every track of a conversion as its reference frame.",
     "Without it the frame of the file becomes an empty text. Reports always say ICRF."},
    {"PARTICIPANT_1", KeyType::text, "telescope", KeyWork::both,
     "Stamped on every track as its telescope; in a report only where autoTelescope is not true.",
     "It replaces what the file says, even where the task does not name it, and is the front of an automatic "
     "name."},
    {"autoname", KeyType::boolean, "false", KeyWork::conversion,
     "Names the output after telescope, object and time instead of after the input.",
     "Only exactly \"true\" is true."},
    {"path_res", KeyType::text, "", KeyWork::both,
     "The result file: a document for .xml and .result, else a text log.",
     "Without it nobody learns how the run ended. A name without a folder is never written: write "
     "\"./result.xml\"."},
    {"longname", KeyType::boolean, "true", KeyWork::report,
     "Names files after telescope, base name, time and filtr instead of after the base name alone.",
     "Only exactly \"true\" is true: \"True\" switches it off."},
    {"autoTelescope", KeyType::boolean, "true", KeyWork::report,
     "Stamps the telescope of each series instead of PARTICIPANT_1.",
     "Only exactly \"true\" is true: \"True\" switches it off."},
    {"whatSave", KeyType::words, "", KeyWork::report, "\"object\" keeps one track of the first series.",
     "Any other word keeps everything."},
    {"object", KeyType::integer, "-1", KeyWork::report,
     "The track that whatSave \"object\" keeps, counted from 0.",
     "A track that does not exist is code -1, and nothing is written."},
    {"toSeparateFile", KeyType::words, "", KeyWork::report, "What one file of a report holds.",
     "Without a known word nothing is written, with code 0."},
    {"interval", KeyType::number, "30.0", KeyWork::report,
     "The gap in minutes at which \"eachgroup\" cuts a track.",
     "Each piece of a track that is cut loses its last mark."},
    {"paths", KeyType::series, "", KeyWork::report, "The series of a report, an element \"seria\" each.",
     "A seria that holds nothing makes the run endless, or as the first makes the list empty."},
};

constexpr TaskKey seriaKeys[] = {
    {"path", KeyType::text, "", KeyWork::report,
     "The track table of the series, three levels below the folder of the series.",
     "Without it the run ends by an exception. A table that does not exist is not reported."},
    {"filtr", KeyType::text, "filter", KeyWork::report,
     "The label of the series in names; separates objects under \"eachobject\".",
     "The key is spelled without an e. It does not change the band of a mark."},
    {"telescope", KeyType::text, "telescope", KeyWork::report,
     "Stamped on every track of the series where autoTelescope is true.", ""},
    {"excludes", KeyType::exclusions, "", KeyWork::report,
     "Marks to leave out: \"3;0;7\" leaves out marks 0 and 7 of track 3, with a blank between such items.",
     "Tracks and marks count from 0. One that does not exist is skipped, and a text that is no number is 0."},
};

std::vector<std::string> divisionWords()
{
    std::vector<std::string> words;
    for (const ReportDivision& row : reportDivisionTable()) {
        words.emplace_back(row.word);
    }
    return words;
}

} // namespace

std::span<const TaskKey> taskKeyTable()
{
    return taskKeys;
}

std::span<const TaskKey> seriaKeyTable()
{
    return seriaKeys;
}

const TaskKey* keyOf(std::span<const TaskKey> table, std::string_view name)
{
    const auto row =
        std::find_if(table.begin(), table.end(), [name](const TaskKey& key) { return key.name == name; });
    return row == table.end() ? nullptr : &*row;
}

std::vector<std::string> namesOf(std::span<const TaskKey> table)
{
    std::vector<std::string> names;
    for (const TaskKey& key : table) {
        names.emplace_back(key.name);
    }
    return names;
}

std::string documentationOf(const TaskKey& key)
{
    return std::string(key.effect) + (key.trap.empty() ? "" : ' ' + std::string(key.trap)) +
           (key.ofNone.empty() ? "" : " Default: " + std::string(key.ofNone) + '.');
}

std::vector<std::string> wordsOf(const TaskKey& key)
{
    if (key.name == "inputformat") {
        std::vector<std::string> words = inputWords();
        words.emplace_back("vomar");
        return words;
    }
    if (key.name == "outputformat") {
        return outputWords();
    }
    if (key.name == "toSeparateFile") {
        return divisionWords();
    }
    return key.name == "whatSave" ? std::vector<std::string>{"all", "object"} : std::vector<std::string>{};
}

std::vector<std::string> inputWords()
{
    std::vector<std::string> words;
    for (int number = 0; const FormatWord* const row = formatWord(number); ++number) {
        if (row->read != nullptr) {
            words.emplace_back(row->word);
        }
    }
    return words;
}

std::vector<std::string> outputWords()
{
    std::vector<std::string> words;
    for (int number = 0; const FormatWord* const row = formatWord(number); ++number) {
        words.emplace_back(row->word);
    }
    return words;
}

} // namespace companion
