// Two real series, in every pair of a division and a format.

#include "support/child_process.h"
#include "support/places.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <set>
#include <sstream>
#include <string>

namespace {

const std::string wholeRuns = runsFolder();

std::size_t linesWith(const std::string& text, const std::function<bool(const std::string&)>& isWanted)
{
    std::istringstream lines(text);
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line);) {
        if (isWanted(line)) {
            ++count;
        }
    }
    return count;
}

std::function<bool(const std::string&)> holding(const std::string& part)
{
    return [part](const std::string& line) { return line.find(part) != std::string::npos; };
}

// The number of marks in the text of a file.
std::size_t marksIn(const std::string& word, const std::string& text)
{
    if (word == "mea") {
        return linesWith(text, holding(" 001 "));
    }
    if (word == "telegram") {
        return linesWith(
            text, [](const std::string& line) { return std::count(line.begin(), line.end(), ' ') == 4; });
    }
    if (word == "tdm") {
        return linesWith(text, holding("MAG = "));
    }
    if (word == "ssmas") {
        return linesWith(text, holding(" 001 "));
    }
    if (word == "mpc") {
        return linesWith(text, holding("  C20"));
    }
    if (word == "tdm.xml") {
        return linesWith(text, holding("<MAG>"));
    }
    if (word == "mag") {
        return linesWith(text, [](const std::string& line) { return line.starts_with("24"); });
    }
    return linesWith(text, [](const std::string& line) { return !line.starts_with("#"); });
}

// The names of the output of a kept run, without extensions and without the result file.
std::set<std::string> stemsOf(const std::string& run)
{
    std::set<std::string> stems;
    for (const auto& entry : std::filesystem::directory_iterator(wholeRuns + "/" + run + "/expected")) {
        if (entry.path().filename() != "result.xml") {
            stems.insert(entry.path().stem().string());
        }
    }
    return stems;
}

// Checks a kept run in another format: file names, code and number of marks stay.
void expectReport(const std::string& run, const std::string& format, int code, std::size_t expectedMarks)
{
    const std::string kept = wholeRuns + "/" + run;
    const TemporaryFolder folder;
    std::filesystem::copy(kept + "/series", folder / "series", std::filesystem::copy_options::recursive);
    std::filesystem::create_directory(folder / "out");
    std::string task = bytesOf(kept + "/task.xml");
    const std::string key = "<outputformat>";
    const std::size_t word = task.find(key) + key.size();
    task.replace(word, task.find('<', word) - word, format);
    makeFile(folder / "task.xml", task);
    expectQuietEnd(runTool("task.xml", folder.path()));

    const std::string result = bytesOf(folder / "out/result.xml");
    EXPECT_NE(result.find("<Code>" + std::to_string(code) + "</Code>"), std::string::npos) << result;
    std::size_t marks = 0;
    std::set<std::string> stems;
    for (const std::string& name : filesBelow(folder / "out")) {
        if (name != "result.xml") {
            EXPECT_NE(result.find("out/" + name + ";"), std::string::npos) << name;
            stems.insert(std::filesystem::path(name).stem().string());
            marks += marksIn(format, bytesOf(folder / "out/" + name));
        }
    }
    EXPECT_EQ(stems, stemsOf(run));
    EXPECT_EQ(marks, expectedMarks);
}

// The number of marks of a kept run in its own format.
std::size_t keptMarks(const std::string& run, const std::string& word)
{
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(wholeRuns + "/" + run + "/expected")) {
        if (entry.path().filename() != "result.xml") {
            count += marksIn(word, bytesOf(entry.path().string()));
        }
    }
    return count;
}

} // namespace

TEST(ReportPairs, EveryDivisionHasTheSameMarksInEveryFormat)
{
    struct Division
    {
        const char* run;
        const char* word;
        int code;
    };
    const Division divisions[] = {
        {"report_eachobject_mpc", "mpc", 0},
        {"report_eachseria_mea", "mea", 0},
        {"report_allobjects_mpc", "mpc", 0},
        {"report_eachgroup_tdm", "tdm", -1}}; // some stretches of cut tracks are empty
    for (const Division& division : divisions) {
        const std::size_t marks = keptMarks(division.run, division.word);
        ASSERT_GT(marks, 20U);
        for (const char* format : {"mea", "telegram", "tdm", "ssmas", "mpc", "tdm.xml", "mag", "aavso"}) {
            SCOPED_TRACE(std::string(division.run) + " in " + format);
            expectReport(division.run, format, division.code, marks);
        }
    }
}
