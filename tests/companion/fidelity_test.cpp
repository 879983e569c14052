// What the page of fidelity says is what `tavelin diff` finds between each night and its conversions.

#include "companion/golden.h"
#include "conversion.h"
#include "reading/signatures.h"
#include "support/temporary_folder.h"
#include "task/key_table.h"
#include "texts/fidelity_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

const std::string project = VOMAR_PROJECT;

// A row of a table of the page.
struct Row
{
    std::vector<std::string> cells{}; // to, marks, time, right ascension, declination, magnitude, station

    // Whether a night and its conversion are the same within half of the last digit of the coarser format.
    bool isKept() const
    {
        bool isCut = false;
        for (const std::string& cell : cells) {
            isCut = isCut || cell.find("cut") != std::string::npos;
        }
        return !isCut && cells[1] == "all" && cells[5] != "no";
    }
};

// The rows by input and output word.
std::map<std::string, std::map<std::string, Row>> rowsOfThePage()
{
    std::map<std::string, std::map<std::string, Row>> rows;
    std::istringstream page(bytesOf(project + "/docs/fidelity.md"));
    std::string from;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("## From `")) {
            from = line.substr(9, line.rfind('`') - 9);
        } else if (line.starts_with("| `")) {
            Row row;
            std::istringstream cells(line.substr(2));
            for (std::string cell; std::getline(cells, cell, '|');) {
                const std::size_t first = cell.find_first_not_of(' ');
                row.cells.push_back(cell.substr(first, cell.find_last_not_of(' ') + 1 - first));
            }
            const std::string to = row.cells.at(0).substr(1, row.cells[0].size() - 2);
            rows[from][to] = row;
        }
    }
    return rows;
}

std::vector<std::string> nightsOf(const std::string& word)
{
    std::vector<std::string> nights;
    for (const char* folder : {"/tests/fixtures/nights", "/tests/fixtures/mea_nights"}) {
        for (const auto& entry : std::filesystem::directory_iterator(project + folder)) {
            const std::string path = entry.path();
            if (companion::recognisedFile(path).format == word) {
                nights.push_back(path);
            }
        }
    }
    return nights;
}

// What diff prints of a night and its conversion to a word.
CommandEnd diffOf(const std::string& night, const std::string& from, const std::string& to)
{
    const TemporaryFolder folder;
    tavelinUtils::TConvMea task;
    task.path_in = night;
    task.out_dir = folder.path() + "/";
    task.outputextension = ".out";
    task.inputformat = from;
    task.outputformat = to;
    task.REFERENCE_FRAME = "ICRF";
    task.PARTICIPANT_1 = std::filesystem::path(night).filename().string().substr(0, 3);
    const std::string output = converter(task, ownWorks()).Description;
    return callCommand({"diff", "-c", night, output});
}

TEST(Fidelity, ThePageHasEachPairOfWords)
{
    const auto rows = rowsOfThePage();
    ASSERT_EQ(rows.size(), companion::inputWords().size());
    for (const std::string& from : companion::inputWords()) {
        for (const std::string& to : companion::outputWords()) {
            ASSERT_TRUE(rows.contains(from) && rows.at(from).contains(to)) << from << ' ' << to;
            EXPECT_EQ(rows.at(from).at(to).cells.size(), 7u) << from << ' ' << to;
        }
    }
}

TEST(Fidelity, DiffFindsWhatThePageSaysAndNothingElse)
{
    const auto rows = rowsOfThePage();
    for (const std::string& from : companion::inputWords()) {
        const auto nights = nightsOf(from);
        ASSERT_FALSE(nights.empty()) << from;
        for (const std::string& to : companion::outputWords()) {
            SCOPED_TRACE(from + " to " + to);
            const Row& row = rows.at(from).at(to);
            int worst = 0;
            for (const std::string& night : nights) {
                const CommandEnd end = diffOf(night, from, to);
                worst = std::max(worst, end.status);
                EXPECT_TRUE(end.status == 0 || !row.isKept()) << night << '\n' << end.out << end.err;
                const bool isTold = end.out.find("magnitude ") == std::string::npos || row.cells[5] != "all";
                EXPECT_TRUE(isTold) << night << '\n' << end.out;
            }
            EXPECT_EQ(worst, row.isKept() ? 0 : 1);
        }
    }
}

TEST(Fidelity, ThePageIsMeasured)
{
    const auto rows = rowsOfThePage();
    companion::PairFidelity sum;
    const std::string night = project + "/tests/fixtures/nights/K88_20240120.tdm";
    companion::addFidelity(night, "tdm", "mpc", sum);
    EXPECT_EQ(sum.marks, 130u);
    EXPECT_EQ(sum.found, 130u);
    EXPECT_LE(sum.time, 0.432 + 1e-6);
    EXPECT_FALSE(sum.keepsStation);
    companion::PairFidelity brightness;
    companion::addFidelity(night, "tdm", "aavso", brightness);
    EXPECT_EQ(brightness.magnitudesLost, brightness.magnitudes);
    EXPECT_EQ(brightness.magnitudes, 130u);
}

} // namespace
