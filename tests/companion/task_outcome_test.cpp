// What is shown of tasks that were run, alone and of a batch.

#include "command/batch_outcome.h"
#include "command/task_outcome.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sstream>

namespace {

using namespace companion;
using testing::HasSubstr;
using testing::StartsWith;

TaskOutcome outcomeOf(RunStatus status)
{
    TaskOutcome outcome;
    outcome.task = std::make_unique<CheckedTask>();
    outcome.task->path = "a.xml";
    outcome.status = status;
    return outcome;
}

// Of a run that had so many files missing.
TaskOutcome failedOutcome(int missing)
{
    TaskOutcome outcome = outcomeOf(RunStatus::failed);
    outcome.evidence.emplace();
    for (int file = 0; file < missing; ++file) {
        outcome.evidence->findings.push_back(finding("V415", {{"path", std::to_string(file)}}).in("a.xml"));
    }
    return outcome;
}

// What something shows.
template <class Show>
std::string shownBy(const Show& show, Appearance look = {})
{
    std::ostringstream out;
    show(Console{out, out, look});
    return out.str();
}

std::string shown(const TaskOutcome& outcome)
{
    return shownBy([&outcome](const Console& console) { showOutcome(console, outcome); });
}

TEST(TaskOutcome, OfManyErrorsOfACodeThreeAreShown)
{
    EXPECT_EQ(shown(failedOutcome(3)), "a.xml: failed: 0 is missing [V415]\n"
                                       "a.xml: failed: 1 is missing [V415]\n"
                                       "a.xml: failed: 2 is missing [V415]\n");
    EXPECT_EQ(shown(failedOutcome(5)), "a.xml: failed: 0 is missing [V415]\n"
                                       "a.xml: failed: 1 is missing [V415]\n"
                                       "a.xml: failed: 2 is missing [V415]\n"
                                       "a.xml: failed: and 2 more [V415]\n");
}

TEST(TaskOutcome, StatusIsThatOfTheRunBeforeThatOfTheCheck)
{
    CheckedTask task;
    TaskEvidence evidence;
    EXPECT_EQ(statusOf(task, evidence), RunStatus::findings); // without a plan
    task.hasPlan = true;
    EXPECT_EQ(statusOf(task, evidence), RunStatus::good);
    task.plan.result.Code = 7;
    EXPECT_EQ(statusOf(task, evidence), RunStatus::findings);
    evidence.findings.push_back(finding("V415", {{"path", "a"}}));
    EXPECT_EQ(statusOf(task, evidence), RunStatus::failed);
    evidence.ended.signal = SIGSEGV;
    EXPECT_EQ(statusOf(task, evidence), RunStatus::signal);
    evidence.ended.limit = ChildLimit::time;
    EXPECT_EQ(statusOf(task, evidence), RunStatus::limit);
}

TEST(TaskOutcome, TaskThatWasNotStartedHasNoEnd)
{
    const std::string json = outcomeJson(outcomeOf(RunStatus::refused), false).text();
    EXPECT_THAT(json, HasSubstr("\"status\":\"refused\""));
    EXPECT_THAT(json, HasSubstr("\"ended\":null"));
    TaskOutcome started = failedOutcome(0);
    started.evidence->ended.limit = ChildLimit::memory;
    EXPECT_THAT(outcomeJson(started, false).text(), HasSubstr("\"limit\":\"memory\""));
}

TEST(TaskOutcome, LimitThatEndedARunHasItsWord)
{
    TaskOutcome outcome = failedOutcome(0);
    for (const auto& [limit, word] : {std::pair(ChildLimit::time, "\"limit\":\"time\"}"),
                                      std::pair(ChildLimit::memory, "\"limit\":\"memory\"}"),
                                      std::pair(ChildLimit::none, "\"limit\":null}")})
    {
        outcome.evidence->ended.limit = limit;
        EXPECT_THAT(outcomeJson(outcome, false).text(), HasSubstr(word));
    }
}

TEST(TaskOutcome, EachStatusHasItsWord)
{
    const std::pair<RunStatus, const char*> words[] = {
        {RunStatus::good, "good"},        {RunStatus::findings, "findings"}, {RunStatus::failed, "failed"},
        {RunStatus::refused, "refused"},  {RunStatus::limit, "limit"},       {RunStatus::signal, "signal"},
        {RunStatus::leftOut, "left out"},
    };
    for (const auto& [status, word] : words) {
        EXPECT_EQ(statusWord(status), word);
    }
}

TEST(TaskOutcome, TimesAreThoseOfARun)
{
    const auto shownWithTimes = [](const TaskOutcome& outcome) {
        return shownBy([&outcome](const Console& console) { showOutcome(console, outcome); },
                       {.times = true});
    };
    TaskOutcome outcome = outcomeOf(RunStatus::refused);
    EXPECT_EQ(shownWithTimes(outcome), "a.xml: refused: 0 errors, see tavelin check a.xml\n");
    outcome = failedOutcome(0);
    outcome.status = RunStatus::good;
    EXPECT_EQ(shownWithTimes(outcome), "a.xml: good: 0 of 0 marks in 0 files (0.000 s, 0.0 MB)\n");
}

TEST(TaskOutcome, TotalsNameFindingsWhereThereAreAny)
{
    RunTotals totals;
    totals.add(outcomeOf(RunStatus::good));
    EXPECT_EQ(totals.text(), "1 task: 1 good, 0 failed, 0 refused; 0 of 0 marks written");
    EXPECT_EQ(totals.exitStatus(), 0);
    for (const RunStatus status : {RunStatus::findings, RunStatus::limit, RunStatus::signal,
                                   RunStatus::failed, RunStatus::refused, RunStatus::leftOut})
    {
        totals.add(outcomeOf(status));
    }
    EXPECT_EQ(totals.text(),
              "7 tasks: 1 good, 1 with findings, 3 failed, 1 refused, 1 left out; 0 of 0 marks written");
    EXPECT_EQ(totals.exitStatus(), 1);
}

// A batch of one task of number 7.
class OneTask
{
public:
    OneTask()
    {
        task.number = 7;
    }

    BatchOutcome outcome(BatchStatus status) const
    {
        return {task, "work/tasks/a.xml", status};
    }

    static std::string shown(const std::vector<BatchOutcome>& outcomes, Appearance look = {}, int signal = 0)
    {
        return shownBy(
            [&](const Console& console) {
                BatchPresentation presentation(console, BatchFolder("work"));
                for (const BatchOutcome& each : outcomes) {
                    presentation.add(each);
                }
                presentation.finish(signal);
            },
            look);
    }

private:
    BatchTask task;
};

TEST(BatchOutcome, TaskOfNoKnownReasonIsShownWithItsMarks)
{
    const OneTask batch;
    BatchOutcome outcome = batch.outcome(BatchStatus::failed);
    outcome.read = 1200;
    EXPECT_THAT(batch.shown({outcome}), StartsWith("work/tasks/a.xml: failed: 0 of 1,200 marks\n"));
    outcome.reason = "it was not run yet";
    EXPECT_THAT(batch.shown({outcome}), StartsWith("work/tasks/a.xml: failed: it was not run yet\n"));
}

TEST(BatchOutcome, LogNamesTheReceiptWhereThereIsOne)
{
    const OneTask batch;
    const Appearance json{.json = true};
    BatchOutcome outcome = batch.outcome(BatchStatus::failed);
    EXPECT_THAT(batch.shown({outcome}, json), HasSubstr("work/tasks/a.xml: failed: 0 of 0 marks\n"));
    outcome.reason = "left out";
    EXPECT_THAT(batch.shown({outcome}, json), HasSubstr("work/tasks/a.xml: failed: left out\n"));
    outcome.errors = {"an error [V415]"};
    EXPECT_THAT(batch.shown({outcome}, json), HasSubstr("work/tasks/a.xml: failed: an error [V415]\n"));
    outcome.receipt = "work/receipts/000007.json";
    EXPECT_THAT(batch.shown({outcome}, json),
                HasSubstr("work/tasks/a.xml: failed: an error [V415] (work/receipts/000007.json)\n"));
}

TEST(BatchOutcome, TotalsNameTheFirstReceiptOfThoseThatFailed)
{
    const OneTask batch;
    BatchOutcome first = batch.outcome(BatchStatus::failed);
    first.receipt = "work/receipts/000007.json";
    BatchOutcome second = batch.outcome(BatchStatus::failed);
    second.receipt = "work/receipts/000008.json";
    EXPECT_THAT(batch.shown({first}),
                HasSubstr("batch: 1 task: 1 failed (work/receipts/000007.json); 0 of 0 marks\n"));
    EXPECT_THAT(batch.shown({first, second}),
                HasSubstr("batch: 2 tasks: 2 failed (work/receipts/000007.json and 1 more); 0 of 0 marks\n"));
}

TEST(BatchOutcome, GoodTaskIsShownByItsWarningsAlone)
{
    const OneTask batch;
    TaskOutcome ran = outcomeOf(RunStatus::good);
    BatchOutcome outcome = batch.outcome(BatchStatus::good);
    outcome.ran = &ran;
    EXPECT_EQ(batch.shown({outcome}), "batch: 1 task: 1 good; 0 of 0 marks\n");
    ran.evidence.emplace();
    EXPECT_EQ(batch.shown({outcome}), "batch: 1 task: 1 good; 0 of 0 marks\n");
    ran.evidence->findings.push_back(
        finding("V418", {{"files", "1 file"}, {"paths", "left.txt"}}).in("work/tasks/a.xml"));
    EXPECT_THAT(batch.shown({outcome}), StartsWith("work/tasks/a.xml: warning: 1 file appeared"));
}

TEST(BatchOutcome, SignalGivesTheStatus)
{
    const OneTask batch;
    EXPECT_THAT(batch.shown({}, {.json = true}, SIGINT), HasSubstr("\"exit\":130}"));
    EXPECT_THAT(batch.shown({}, {.json = true}), HasSubstr("\"exit\":0}"));
}

} // namespace
