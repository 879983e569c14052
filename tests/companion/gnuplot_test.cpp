// Gnuplot: what comes of runs in which no picture is drawn. A script of the shell takes its place.

#include "running/gnuplot.h"

#include "findings/finding.h"
#include "support/search_path.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include <sys/wait.h>

namespace {

namespace fs = std::filesystem;
using companion::ChildLimit;
using companion::drawingProblem;
using companion::drawnPicture;
using companion::EndedChild;
using companion::ScriptFor;

// A program of the name that runs its script in the shell, before all others in the search path.
class ShellAsGnuplot
{
public:
    explicit ShellAsGnuplot(const std::string& first = "#!/bin/sh\n")
        : path(folder.path() + ":" + std::getenv("PATH"))
    {
        makeFile(folder / "gnuplot", first + ". \"$2\"\n");
        fs::permissions(folder / "gnuplot", fs::perms::owner_all);
    }

    // What is told of a picture.
    static std::string problem(const ScriptFor& scriptFor)
    {
        try {
            drawnPicture(".svg", scriptFor);
        } catch (const companion::WrongUsage& wrong) {
            return wrong.why.text;
        }
        return "";
    }

private:
    TemporaryFolder folder;
    SearchPath path;
};

TEST(Gnuplot, PictureIsWhatTheScriptDraws)
{
    const ShellAsGnuplot gnuplot;
    EXPECT_EQ(drawnPicture(".svg", [](const std::string& picture) { return "echo drawn >" + picture; }),
              "drawn\n");
}

TEST(Gnuplot, EmptyPictureIsNone)
{
    const ShellAsGnuplot gnuplot;
    EXPECT_EQ(gnuplot.problem([](const std::string& picture) { return ": >" + picture; }),
              "gnuplot has drawn nothing");
}

TEST(Gnuplot, ProgramThatCannotBeStartedIsTold)
{
    const ShellAsGnuplot gnuplot("#!/no/such/shell\n");
    EXPECT_EQ(gnuplot.problem([](const std::string&) { return ""; }),
              "gnuplot could not be started: No such file or directory");
}

TEST(Gnuplot, ScriptThatCannotBeWrittenIsTold)
{
    const ShellAsGnuplot gnuplot;
    std::string script;
    const std::string problem = gnuplot.problem([&script](const std::string& picture) {
        script = (fs::path(picture).parent_path() / "script").string();
        fs::create_directory(script);
        return "";
    });
    EXPECT_EQ(problem, "gnuplot cannot be given its script: " + script + " cannot be written");
}

TEST(Gnuplot, SignalThatComesMeanwhileEndsTheProgram)
{
    const ShellAsGnuplot gnuplot;
    const int status = statusOfChild(
        [] { drawnPicture(".svg", [](const std::string&) { return "kill -INT $PPID; exec sleep 600"; }); });
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGINT);
}

TEST(Gnuplot, FirstReasonIsTold)
{
    EndedChild ended;
    ended.said = "words\n";
    EXPECT_EQ(drawingProblem(ended), "said \"words\\x0A\"");
    ended.limit = ChildLimit::time;
    EXPECT_EQ(drawingProblem(ended), "took longer than a minute");
    ended.failure = "Permission denied";
    EXPECT_EQ(drawingProblem(ended), "could not be started: Permission denied");
    EXPECT_EQ(drawingProblem({}), "has drawn nothing");
}

} // namespace
