#include "running/task_witness.h"

#include "support/expected_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <map>

namespace {

namespace fs = std::filesystem;
using namespace companion;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

// A run with a plan, whose files are made between its two looks.
class Witnessed
{
public:
    Witnessed()
    {
        fs::create_directory(folder / "out");
        witnessed.path = "task.xml";
        witnessed.task.out_dir = folder / "out/";
        witnessed.plan = &plan;
        call = {"/bin/sh", "/tmp/made-up-7", "task.xml"};
        ended.status = 0;
    }

    // A file that the plan has, with the marks.
    void plans(const std::string& name, const std::string& word, std::size_t marks)
    {
        plan.files.push_back({folder / name, word, 1, marks});
    }

    TaskEvidence evidence(const std::map<std::string, std::string>& made = {},
                          Verification verification = Verification::none)
    {
        FolderWatch folders;
        const TaskWitness other(witnessed, folders);
        TaskWitness witness(witnessed, folders);
        for (const auto& [name, bytes] : made) {
            makeFile(folder / name, bytes);
        }
        return witness.evidence(call, ended, verification);
    }

    std::vector<std::string> codes(const std::map<std::string, std::string>& made = {},
                                   Verification verification = Verification::none)
    {
        std::vector<std::string> codes;
        for (const Finding& each : evidence(made, verification).findings) {
            codes.push_back(each.code.text());
        }
        return codes;
    }

    TemporaryFolder folder;
    Plan plan;
    WitnessedTask witnessed;
    ChildCall call;
    EndedChild ended;
};

TEST(TaskWitness, WordsOfARunAreOneLineWithTheNameOfTheTool)
{
    Witnessed run;
    run.ended.said = "/tmp/made-up-7: one\n\n  two of /tmp/made-up-7\n";
    const auto findings = run.evidence().findings;
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].code.text(), "V410");
    EXPECT_THAT(findings[0].text, HasSubstr("\"vomar: one; two of vomar\""));
}

TEST(TaskWitness, RunWithoutAMadeUpNameIsQuotedAsItSpoke)
{
    Witnessed run;
    run.call.name = "";
    run.ended.said = "one";
    EXPECT_THAT(run.evidence().findings.at(0).text, HasSubstr("\"one\""));
}

TEST(TaskWitness, ManyWordsAreCut)
{
    Witnessed run;
    run.ended.said = std::string(500, 'a');
    EXPECT_THAT(run.evidence().findings.at(0).text, HasSubstr(std::string(500, 'a') + '"'));
    run.ended.said += 'b';
    EXPECT_THAT(run.evidence().findings.at(0).text, HasSubstr(std::string(500, 'a') + "...\""));
}

TEST(TaskWitness, GoodStatusAfterTheTimeLimitIsNoGoodEnd)
{
    Witnessed run;
    run.witnessed.task.path_res = run.folder / "out/a.result";
    EXPECT_THAT(run.codes(), ElementsAre("V401"));
    run.ended.limit = ChildLimit::time;
    EXPECT_THAT(run.codes(), ElementsAre("V412"));
}

TEST(TaskWitness, ProgramThatIsGoneIsTheMissingTool)
{
    Witnessed run;
    run.ended.status = -1;
    run.ended.failure = "No such file or directory";
    EXPECT_THAT(run.codes(), ElementsAre("V003"));
    run.call.program = run.folder / "missing";
    EXPECT_THAT(run.codes(), ElementsAre("V402"));
}

TEST(TaskWitness, ResultIsMissedOnlyWhereItCouldBeWritten)
{
    Witnessed run;
    EXPECT_THAT(run.codes(), IsEmpty());
    run.witnessed.task.path_res = run.folder / "missing/a.result";
    EXPECT_THAT(run.codes(), IsEmpty());
}

TEST(TaskWitness, FilesThatDoNotStandAtTheEndAreNotLookedFor)
{
    Witnessed run;
    run.plans("out/a.txt", "mea", 1);
    run.plans("out/a.txt", "mea", 1);
    run.plans("out/b.txt", "unknown", 1);
    run.plan.files[0].replacedBy = 2;
    run.plan.files[2].isWritten = false;
    const TaskEvidence evidence = run.evidence({{"out/a.txt", ""}});
    ASSERT_EQ(evidence.files.size(), 1u);
    EXPECT_EQ(evidence.files[0].path, run.folder / "out/a.txt");
    EXPECT_THAT(evidence.findings, IsEmpty());
}

TEST(TaskWitness, FilesAreCountedWhereTheyAreVerified)
{
    Witnessed run;
    run.plans("out/a.tel", "telegram", 2);
    const std::string whole = expectedFiles::fileOf("telegram", {{"A", 2}});
    const std::string broken = whole.substr(0, whole.find("END"));
    EXPECT_THAT(run.codes({{"out/a.tel", broken}}, Verification::none), IsEmpty());
    EXPECT_THAT(run.codes({{"out/a.tel", whole}}, Verification::count), IsEmpty());
    const auto found = run.evidence({{"out/a.tel", broken}}, Verification::count).findings;
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].code.text(), "V416");
    EXPECT_THAT(found[0].text, HasSubstr("2 marks and breaks off"));
}

TEST(TaskWitness, FileThatIsMissingHasNoMarksToCompare)
{
    Witnessed run;
    run.plans("out/a.mea", "mea", 1);
    EXPECT_THAT(run.codes({}, Verification::full), ElementsAre("V415"));
}

TEST(TaskWitness, FileThatCannotBeReadHoldsNothing)
{
    Witnessed run;
    run.plans("out/a.mea/b.mea", "mea", 1);
    run.plan.files[0].path = run.folder / "out";
    const TaskEvidence evidence = run.evidence({{"out/c.mea", ""}}, Verification::count);
    ASSERT_EQ(evidence.files.size(), 1u);
    EXPECT_EQ(evidence.files[0].found, 0u);
    ASSERT_FALSE(evidence.findings.empty());
    EXPECT_EQ(evidence.findings[0].code.text(), "V003");
}

TEST(TaskWitness, SeveralStrangersAreOneFinding)
{
    Witnessed run;
    const auto findings = run.evidence({{"out/a", ""}, {"out/b", ""}}).findings;
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_THAT(findings[0].text, HasSubstr("2 files"));
    EXPECT_THAT(findings[0].text, EndsWith(run.folder / "out/a" + ", " + run.folder / "out/b" +
                                           "; another task that is running may have written there"));
}

} // namespace
