// What a task would do.

#include "base/numbers.h"
#include "command/explanation.h"
#include "out/text.h"
#include "reading/signatures.h"
#include "task/checked_task.h"

#include <algorithm>
#include <string_view>

namespace companion {
namespace {

using tavelinUtils::TConvMea;

std::string titleOf(const std::string& word)
{
    return isFormatName(word) ? formatTitle(word) : '"' + word + '"';
}

// "TDM file", but "MPC report".
std::string nounOf(const std::string& word)
{
    const std::string title = titleOf(word);
    return title + (title.ends_with("report") || title.ends_with("curve") ? "" : " file");
}

std::string named(const std::string& what, const std::string& value)
{
    return value.empty() ? "no " + what : "the " + what + ' ' + value;
}

std::string tracksText(const CheckedTask& checked)
{
    const std::string marks = counted(checked.plan.account.read, "mark");
    return counted(checked.plan.tracks.size(), "track") + ", " + marks;
}

// What a task is about, a sentence each.
class Sentences
{
public:
    explicit Sentences(const CheckedTask& theTask) : checked(theTask), task(theTask.task)
    {
    }

    std::vector<std::string> all()
    {
        if (checked.isReport) {
            report();
        } else {
            conversion();
        }
        loss();
        outcome();
        return sentences;
    }

private:
    void say(const std::string& sentence)
    {
        sentences.push_back(sentence);
    }

    void conversion()
    {
        say("This task converts a file.");
        say("It reads " + task.path_in + " as " + titleOf(task.inputformat) + " (" + tracksText(checked) +
            ").");
        say("Every track gets " + named("originator", task.originator) + ", " +
            named("telescope", task.PARTICIPANT_1) + " and " + named("frame", task.REFERENCE_FRAME) + ".");
        if (task.autoname) {
            say("The output is named after telescope, object and time.");
        }
        if (checked.plan.writtenFiles() == 0) {
            say("It would write no file.");
        }
        for (const PlannedFile& file : checked.plan.files) {
            if (file.isWritten) {
                say("It writes the " + nounOf(file.format) + ' ' + file.path + ": " +
                    counted(file.marks, "mark") + '.');
            }
        }
    }

    void report()
    {
        say("This task makes a multi-series report.");
        const std::string tables =
            "It reads " + counted(task.paths.size(), "track table") + " (" + tracksText(checked) + ")";
        if (checked.configurations.empty()) {
            say(tables + '.');
        } else {
            say(tables + " and takes the settings of their series from");
            for (const std::string& path : checked.configurations) {
                say("    " + path);
            }
        }
        narrowing();
        if (!checked.plan.runningNames.empty()) {
            say("Objects without an answer of the checker get the names " +
                checked.plan.runningNames.front() + " and on.");
        }
        say(division());
        writing();
    }

    void writing()
    {
        const std::size_t files = checked.plan.writtenFiles();
        const std::string noun = nounOf(task.outputformat);
        if (files == 0) {
            say("It would write no file.");
        } else if (files == 1) {
            say("It writes one " + noun + ", " + checked.plan.files.back().path + '.');
        } else {
            say("It writes " + counted(files, noun) + " into " + task.out_dir + ", named " + fileNames() +
                '.');
        }
    }

    void narrowing()
    {
        const MarkAccount& account = checked.plan.account;
        if (account.excluded > 0) {
            say(counted(account.excluded, "mark") + (account.excluded == 1 ? " is" : " are") +
                " left out by excludes.");
        }
        if (task.whatSave == "object") {
            say("Of the first series only track " + std::to_string(task.object) + " is kept.");
        }
    }

    std::string division() const
    {
        const std::string& word = task.toSeparateFile;
        if (word == "eachgroup") {
            return "Each track has a file of its own, or several: it is cut where two marks are " +
                   minutes(task.interval) + " or more apart.";
        }
        if (word == "eachobject") {
            return "Each object has a file of its own: its tracks are joined where filtr is the same.";
        }
        if (word == "eachseria") {
            return "Each series has a file of its own.";
        }
        return word == "allobjects"
                   ? "All tracks are in one file."
                   : "The tracks are not divided into files: toSeparateFile is no known word.";
    }

    static std::string minutes(double number)
    {
        tavelinUtils::TextBuffer printed;
        tavelinUtils::appendFixed(printed, number, 6);
        std::string text = printed.str();
        text.erase(text.find_last_not_of('0') + 1);
        text.erase(text.find_last_not_of('.') + 1);
        return text + (text == "1" ? " minute" : " minutes");
    }

    // Of several: all objects would be in one.
    std::string fileNames() const
    {
        const std::string& word = task.toSeparateFile;
        const std::string base = word == "eachseria" ? "series" : "object";
        return (task.longname ? "telescope-" + base + "-time-filtr" : base) + '.' + task.outputextension;
    }

    void loss()
    {
        const MarkAccount& account = checked.plan.account;
        const std::size_t kept = account.written + account.excluded + account.narrowed;
        if (kept < account.read) {
            say(counted(account.read - kept) + " of " + counted(account.read, "mark") +
                " would be in no file: tavelin check " + checked.path + " tells which.");
        }
        const auto isError = [](const Finding& each) { return each.severity == Severity::error; };
        const auto errors = std::count_if(checked.findings.begin(), checked.findings.end(), isError);
        if (errors > 0) {
            say("It has " + counted(static_cast<std::size_t>(errors), "error") + ": tavelin check " +
                checked.path + " tells which.");
        }
    }

    void outcome()
    {
        if (checked.plan.dies) {
            say("The run would die with status 134, without a result.");
        } else if (task.path_res.empty()) {
            say("The outcome is written nowhere: there is no path_res.");
        } else {
            say("The outcome, code " + std::to_string(checked.plan.result.Code) + ", goes to " +
                task.path_res + '.');
        }
    }

    const CheckedTask& checked;
    const TConvMea& task;
    std::vector<std::string> sentences{};
};

} // namespace

Explanation explanationOf(const CheckedTask& checked)
{
    Explanation explained;
    Json list = Json::list();
    for (const std::string& sentence : Sentences(checked).all()) {
        explained.text += printable(sentence) + '\n';
        list.push(sentence);
    }
    explained.json.set("kind", "task");
    setBytes(explained.json, "file", checked.path);
    explained.json.set("work", checked.isReport ? "report" : "conversion").set("sentences", list);
    return explained;
}

} // namespace companion
