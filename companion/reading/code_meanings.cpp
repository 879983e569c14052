#include "reading/code_meanings.h"

#include "base/tokens.h"
#include "results/code_table.h"

#include <algorithm>
#include <iterator>

namespace companion {
namespace {

namespace resultCode = tavelinUtils::resultCode;

bool isSuccessText(const ResultEntry& entry)
{
    return entry.comment == "OK";
}

bool isList(const ResultEntry& entry)
{
    return isSuccessText(entry) && entry.description.ends_with(';');
}

constexpr CodeMeaning meanings[] = {
    {resultCode::outputIsInput, "the comment \"input file = output file\"",
     "The output path is the input path, so nothing was written.", "Give another out_dir or outputextension.",
     [](const ResultEntry& entry) { return entry.comment == "input file = output file"; }},
    {resultCode::unknownOutputFormat, "the comment \"unknown output format\"",
     "No format has this output word. Only programs of the library see this code: a run drops it and says 0.",
     "Write one of the format words exactly as docs/task_file.md gives them.",
     [](const ResultEntry& entry) { return entry.comment == "unknown output format"; }},
    {resultCode::runFailed, "the comment \"unknown input format\"",
     "The word of inputformat is no format, so nothing was read.",
     "Write mea, telegram, tdm, ssmas or vomar, in small letters.",
     [](const ResultEntry& entry) { return entry.comment == "unknown input format"; }},
    {resultCode::runFailed, "the comment \"OK\" and the description \"paths.size() == 0\"",
     "The report has no series, so nothing was read.",
     "Give paths a seria with a path for each series, and delete empty ones.",
     [](const ResultEntry& entry) {
         return isSuccessText(entry) && entry.description == "paths.size() == 0";
     }},
    {resultCode::runFailed, "the comment \"OK\" and an empty description",
     "No file of the report was tried: object is not a track of the first series, or no track has a mark "
     "that "
     "is left.",
     "Check object and interval; tavelin check names the reason.",
     [](const ResultEntry& entry) { return isSuccessText(entry) && entry.description.empty(); }},
    {resultCode::runFailed, "the comment \"OK\" and the paths that were tried",
     "A file of the report had no name and was left out, or a track without marks was met. The files that "
     "are "
     "named were tried.",
     "See tavelin check for the tracks that are left out.", isList},
    {resultCode::runFailed, "the path of the input as comment and description",
     "The input could not be read, since a date, time or angle is too short; or autoname found no first "
     "mark.",
     "See tavelin lint for the line.",
     [](const ResultEntry& entry) { return entry.comment == entry.description; }},
    {resultCode::success, "the comment \"OK\" and an empty description",
     "The report wrote nothing: toSeparateFile is no known word, or there are no tracks.",
     "Check toSeparateFile and the track tables; tavelin check names the reason.",
     [](const ResultEntry& entry) { return isSuccessText(entry) && entry.description.empty(); }},
    {resultCode::success, "the comment \"OK\" and several paths",
     "The report was done, and these files were tried. One that could not be made is not told.",
     "Check that each file is there and holds what you expect.", isList},
    {resultCode::success, "the comment \"OK\" and one path",
     "The conversion was done, and this file was tried. Where there was nothing to write it is missing, or "
     "an "
     "older one stays.",
     "Check that the file is there and holds what you expect.", isSuccessText},
    {resultCode::unopenedFile, "the comment \"Error opening file\"",
     "The task could not be loaded: it is missing, or not well-formed XML. Started with several arguments, "
     "or "
     "with none, the tool looks for a task f:\\vomar\\binwindows64\\thresh.xml in the present folder. The "
     "entry "
     "is only in the log beside the executable.",
     "Give the tool one argument, the path of the task; tavelin check says what is wrong with it.",
     [](const ResultEntry& entry) { return entry.comment == "Error opening file"; }},
};

struct LibraryMeaning
{
    int code;
    std::string_view meaning;
};

constexpr LibraryMeaning ofLibrary[] = {
    {resultCode::noResultFile, "there is no result file to read"},
    {resultCode::success, "all is well"},
    {resultCode::noParameterFile, "a parameter file does not exist"},
    {resultCode::emptyFile, "a file holds too little to be read"},
    {resultCode::noFile, "a file does not exist"},
    {resultCode::unreadableFile, "a file exists and its content cannot be read"},
    {resultCode::noFolder, "the folder of an output does not exist"},
    {resultCode::unopenedFile, "a file cannot be opened, read or written"},
    {resultCode::undeterminedConfiguration, "no configuration was found for a series"},
    {resultCode::noConfiguration, "a configuration file does not exist"},
    {resultCode::brokenConfiguration, "a configuration file cannot be loaded"},
    {resultCode::settingOutOfRange, "settings lie outside the range of allowed values"},
};

constexpr int successOfOtherModules = 100;

} // namespace

std::span<const CodeMeaning> toolMeanings()
{
    return meanings;
}

std::vector<CodeMeaning> toolMeaningsOf(int code)
{
    std::vector<CodeMeaning> ofCode;
    std::copy_if(std::begin(meanings), std::end(meanings), std::back_inserter(ofCode),
                 [code](const CodeMeaning& each) { return each.code == code; });
    return ofCode;
}

const CodeMeaning* toolMeaning(const ResultEntry& entry)
{
    const auto* const row =
        std::find_if(std::begin(meanings), std::end(meanings), [&entry](const CodeMeaning& each) {
            return each.code == entry.code && each.isOf(entry);
        });
    return row == std::end(meanings) ? nullptr : row;
}

std::string_view libraryMeaning(int code)
{
    const auto* const row = std::find_if(std::begin(ofLibrary), std::end(ofLibrary),
                                         [code](const LibraryMeaning& each) { return each.code == code; });
    return row == std::end(ofLibrary) ? std::string_view() : row->meaning;
}

bool isResultCode(int code)
{
    return tavelinUtils::GetTextCode(code) != "UnknownErr";
}

bool tellsOfFailure(const ResultEntry& entry)
{
    return entry.code != resultCode::success && entry.code != successOfOtherModules;
}

std::vector<std::string> namedFiles(const ResultEntry& entry)
{
    if (isList(entry)) {
        std::vector<std::string> files;
        tavelinUtils::forEachToken(entry.description, ';',
                                   [&files](std::string_view path) { files.emplace_back(path); });
        return files;
    }
    const bool isPath =
        entry.code == resultCode::success && isSuccessText(entry) && !entry.description.empty();
    return isPath ? std::vector<std::string>{entry.description} : std::vector<std::string>{};
}

} // namespace companion
