// What the pages show is true: every block of a kind that a program reads is read by that program.

#include "pages/page_blocks.h"
#include "pages/page_samples.h"
#include "results/result_files.h"

#include "support/child_process.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"
#include "task.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const std::vector<PageBlock>& blocks()
{
    static const std::vector<PageBlock> all = allBlocks(VOMAR_PROJECT);
    return all;
}

// Calls the check for each block that it is for; there must be one.
template <class IsFor, class Check>
void forBlocks(IsFor isFor, Check check)
{
    int count = 0;
    for (const PageBlock& block : blocks()) {
        if (!block.isNoted("not run:") && isFor(block)) {
            SCOPED_TRACE(block.place() + "\n" + block.text);
            check(block);
            ++count;
        }
    }
    EXPECT_GT(count, 0);
}

bool isTask(const PageBlock& block)
{
    return block.kind == "xml" && (block.isNoted("task") || block.isNoted("task:"));
}

bool isProgram(const PageBlock& block)
{
    return block.text.find("int main(") != std::string::npos;
}

// A whole program is taken as it is; anything else is the body of one.
std::string programOf(const PageBlock& block)
{
    if (isProgram(block)) {
        return block.text;
    }
    return "#include <tavelin/tavelin.h>\n#include <cstdio>\nusing namespace tavelinUtils;\n"
           "using namespace tavelinMath;\nint main()\n{\n" +
           block.text + "}\n";
}

// Checks that each path that a result names was written; its reader hands the description out as the comment.
void expectOutputs(const std::string& copy, const std::string& result)
{
    const tavelinUtils::TFuncRes end = tavelinUtils::lResXML(copy + "/" + result);
    EXPECT_EQ(end.Code, 0);
    EXPECT_NE(end.Comment, "");
    std::istringstream paths(end.Comment);
    for (std::string path; std::getline(paths, path, ';');) {
        EXPECT_TRUE(exists(copy + "/" + path)) << path;
    }
}

// All that tests are named in, as one line: their sources, those for pytest too, and the files that hand
// programs and scripts to ctest.
std::string sourcesOfTests()
{
    std::string all;
    for (const auto& entry : fs::recursive_directory_iterator(std::string(VOMAR_PROJECT) + "/tests")) {
        const std::string extension = entry.path().extension();
        if (extension == ".cpp" || extension == ".py" || extension == ".cmake" ||
            entry.path().filename() == "CMakeLists.txt")
        {
            all += bytesOf(entry.path());
        }
    }
    std::replace(all.begin(), all.end(), '\n', ' ');
    return all;
}

// Whether there is a test of the name: "Suite.Name" of a test program, a function for pytest, or a name of
// ctest.
bool isTest(const std::string& name, const std::string& sources)
{
    const std::size_t point = name.find('.');
    const bool isOfAProgram = point != std::string::npos;
    const std::string call =
        isOfAProgram ? name.substr(0, point) + ", " + name.substr(point + 1) + ")" : name + " ";
    const std::vector<std::string> starts =
        isOfAProgram ? std::vector<std::string>{"TEST(", "TEST_F(", "TEST_P("}
                     : std::vector<std::string>{"NAME ", "add_faults_test(", "add_consumer_test(",
                                                "add_install_test("};
    return sources.find("def " + name + "(") != std::string::npos ||
           std::any_of(starts.begin(), starts.end(), [&](const std::string& start) {
               return sources.find(start + call) != std::string::npos;
           });
}

// The words in backticks of the last cell of a row.
std::vector<std::string> wordsOfTheLastCell(const std::string& row)
{
    std::vector<std::string> words;
    const std::string cell = row.substr(row.rfind("| ", row.size() - 3));
    const std::regex word("`([^`]*)`");
    for (std::sregex_iterator at(cell.begin(), cell.end(), word), end; at != end; ++at) {
        words.push_back((*at)[1]);
    }
    return words;
}

// The rows of the tables whose last column names tests, on the pages that promise something.
std::vector<std::string> rowsOfPromises()
{
    std::vector<std::string> rows;
    for (const std::string page : {"reliability", "stability"}) {
        std::istringstream text(bytesOf(std::string(VOMAR_PROJECT) + "/docs/" + page + ".md"));
        bool isOfPromises = false;
        for (std::string line; std::getline(text, line);) {
            if (isOfPromises && line.starts_with("| ")) {
                rows.push_back(line);
            }
            isOfPromises = line.starts_with('|') && (isOfPromises || line.ends_with("| Tests |"));
        }
    }
    return rows;
}

// A copy of the examples with an empty folder for outputs.
std::string copyOfExamples(const TemporaryFolder& folder)
{
    const std::string copy = folder / "examples";
    std::filesystem::copy(std::string(VOMAR_PROJECT) + "/examples", copy,
                          std::filesystem::copy_options::recursive);
    std::filesystem::remove_all(copy + "/out");
    std::filesystem::create_directory(copy + "/out");
    return copy;
}

// Such a copy after each of its tasks was run.
std::string copyWithOutputs(const TemporaryFolder& folder)
{
    const std::string copy = copyOfExamples(folder);
    for (const auto& entry : std::filesystem::directory_iterator(std::string(VOMAR_PROJECT) + "/examples")) {
        if (entry.path().extension() == ".xml") {
            expectQuietEnd(runTool(entry.path().filename(), copy));
        }
    }
    return copy;
}

} // namespace

TEST(Pages, EveryBlockIsOfAKindThatIsCheckedOrSaysWhyNot)
{
    EXPECT_FALSE(blocks().empty());
    for (const PageBlock& block : blocks()) {
        const bool isExcused = block.isNoted("not run:") && !block.noted("not run:").empty();
        // Those in Python are run by the tests of the package.
        const bool isProgram = block.kind == "cpp" || block.kind == "sh" || block.kind == "python";
        const bool isChecked = isProgram || block.isNoted("file:") || block.isNoted("lines of") ||
                               block.isNoted("case:") || isTask(block) || sampleCheckOf(block) != nullptr;
        EXPECT_FALSE(block.kind.empty()) << block.place() << ": no word behind the fence";
        EXPECT_NE(block.kind, "unclosed") << block.place();
        EXPECT_TRUE(isExcused || isChecked) << block.place() << ": nothing checks a block of the kind \""
                                            << block.kind << "\" with the note \"" << block.note << "\"";
    }
}

// To a file of the project, and among the findings to a heading, which is named in small letters.
// named v001.
TEST(Pages, LinksLeadToFilesAndHeadings)
{
    const std::string project = VOMAR_PROJECT;
    const std::regex link(R"(\]\(([^)#\s]*)(?:#([^)\s]*))?\))");
    int count = 0;
    for (const std::string& page : pagesOf(project)) {
        const std::string text = bytesOf(project + '/' + page);
        for (std::sregex_iterator at(text.begin(), text.end(), link), end; at != end; ++at) {
            const std::string path = (*at)[1];
            if (path.find("://") != std::string::npos || path.starts_with("mailto:")) {
                continue;
            }
            const fs::path target =
                path.empty() ? fs::path(project) / page : (fs::path(project) / page).parent_path() / path;
            EXPECT_TRUE(fs::exists(target)) << page << " leads to " << path;
            const std::string finding = (*at)[2];
            if (fs::exists(target) && target.filename() == "findings.md") {
                std::string heading = "## " + finding;
                std::transform(heading.begin(), heading.end(), heading.begin(),
                               [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
                EXPECT_TRUE(finding.empty() || bytesOf(target).find('\n' + heading) != std::string::npos)
                    << page << " leads to " << finding;
            }
            ++count;
        }
    }
    EXPECT_GT(count, 100);
}

TEST(Pages, TestsThatHoldAPromiseExist)
{
    const std::string sources = sourcesOfTests();
    int count = 0;
    for (const std::string& row : rowsOfPromises()) {
        const std::vector<std::string> tests = wordsOfTheLastCell(row);
        EXPECT_FALSE(tests.empty()) << row;
        for (const std::string& test : tests) {
            EXPECT_TRUE(isTest(test, sources)) << test;
            ++count;
        }
    }
    EXPECT_GT(count, 70);
}

TEST(Pages, SamplesAreReadByTheirReader)
{
    forBlocks([](const PageBlock& block) { return sampleCheckOf(block) != nullptr; },
              [](const PageBlock& block) {
                  const TemporaryFolder folder;
                  makeFile(folder / "sample", block.text);
                  sampleCheckOf(block)(folder / "sample", block.text);
              });
}

TEST(Pages, LinesOfOutputsAreThoseOfTheExamples)
{
    const TemporaryFolder folder;
    const std::string copy = copyWithOutputs(folder);
    forBlocks([](const PageBlock& block) { return block.isNoted("lines of"); },
              [&copy](const PageBlock& block) {
                  const std::string output = "\n" + bytesOf(copy + "/" + block.noted("lines of"));
                  std::istringstream lines(block.text);
                  for (std::string line; std::getline(lines, line);) {
                      EXPECT_NE(output.find("\n" + line + "\n"), std::string::npos) << line;
                  }
              });
}

TEST(Pages, TasksAreLoadedAndRun)
{
    const auto check = [](const PageBlock& block) {
        const TemporaryFolder folder;
        const std::string copy = copyOfExamples(folder);
        makeFile(copy + "/task_of_page.xml", block.text);
        tavelinUtils::TConvMea task;
        ASSERT_TRUE(tavelinUtils::ltaskconv(copy + "/task_of_page.xml", task));
        EXPECT_TRUE(!task.inputformat.empty() || !task.paths.empty());
        if (block.note != "task: run") {
            return;
        }
        std::filesystem::copy_file(copy + "/K88_20240120.mea", copy + "/night.mea"); // a file of the reader's
        expectQuietEnd(runTool("task_of_page.xml", copy));
        expectOutputs(copy, task.path_res);
    };
    forBlocks(isTask, check);
}

TEST(Pages, ProgramsCompileAndPrintWhatTheySay)
{
    const auto check = [](const PageBlock& block) {
        const TemporaryFolder folder;
        const std::string copy = copyOfExamples(folder);
        const std::string program = folder / "program";
        makeFile(program + ".cpp", programOf(block));
        const std::string command =
            std::string(VOMAR_COMPILE) + " " + program + ".cpp -o " + program + " " + VOMAR_LINK;
        const ChildEnd compiled = runProgram("/bin/sh", {"-c", command});
        ASSERT_EQ(compiled.exitStatus, 0) << compiled.output;
        if (block.isNoted("prints")) {
            const ChildEnd ran = runProgram(program, {}, copy);
            EXPECT_EQ(ran.exitStatus, 0);
            EXPECT_EQ(ran.output, block.noted("prints") + "\n");
        }
    };
    forBlocks([](const PageBlock& block) { return block.kind == "cpp"; }, check);
}
