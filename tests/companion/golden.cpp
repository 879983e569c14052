#include "companion/golden.h"

#include "command/subcommand.h"
#include "support/folder_entries.h"
#include "support/folders.h"
#include "support/socket_file.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <locale>
#include <map>
#include <optional>
#include <sstream>

#include <fcntl.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

const std::vector<std::string> ownFiles{"call", "prepare",  "sockets", "entries", "text",
                                        "json", "messages", "status",  "left",    "tool"};

std::string textOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

fs::path folderOf(const std::string& group)
{
    return fs::path(VOMAR_PROJECT) / "tests/companion" / group;
}

// The call of a case.
struct Call
{
    std::vector<std::string> arguments{};
    std::string input = "/dev/null";

    Call with(const std::string& option) const
    {
        Call call = *this;
        call.arguments.push_back(option);
        return call;
    }
};

Call callOf(const fs::path& path)
{
    std::istringstream line(textOf(path));
    Call call;
    for (std::string word; line >> std::ws && !line.eof();) {
        if (line.peek() == '"') {
            line.get();
            std::getline(line, word, '"');
        } else {
            line >> word;
        }
        if (word == "<") {
            line >> call.input;
        } else {
            call.arguments.push_back(word);
        }
    }
    return call;
}

// The standard input comes from a file.
class StandardInput
{
public:
    explicit StandardInput(const std::string& path) : before(dup(STDIN_FILENO))
    {
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        EXPECT_GE(file, 0) << path;
        give(file);
    }
    ~StandardInput()
    {
        give(before);
    }
    StandardInput(const StandardInput&) = delete;
    StandardInput& operator=(const StandardInput&) = delete;

private:
    static void give(int file)
    {
        dup2(file, STDIN_FILENO);
        close(file);
        std::rewind(stdin);
    }

    int before;
};

CommandEnd ended(const Call& call)
{
    const StandardInput input(call.input);
    return callCommand(call.arguments);
}

// Names, kinds, sizes and times of all that is in a folder.
std::map<std::string, std::string> stateOf(const fs::path& folder)
{
    std::map<std::string, std::string> state;
    for (const auto& entry :
         fs::recursive_directory_iterator(folder, fs::directory_options::skip_permission_denied))
    {
        const bool isFile = entry.is_regular_file() && !entry.is_symlink();
        const auto time =
            entry.is_symlink() || !entry.exists() ? 0 : entry.last_write_time().time_since_epoch().count();
        state[entry.path()] = std::to_string(isFile ? entry.file_size() : 0) + '@' + std::to_string(time);
    }
    return state;
}

// What is new, changed or gone in a folder, a path each line. Folders change with what is in them.
std::string changesIn(const fs::path& folder, const std::map<std::string, std::string>& before)
{
    std::string text;
    const auto now = stateOf(folder);
    for (const auto& [path, state] : now) {
        const auto old = before.find(path);
        if (old == before.end() || (old->second != state && !fs::is_directory(path))) {
            text += fs::path(path).lexically_relative(folder).string() +
                    (old == before.end() ? "\n" : " changed\n");
        }
    }
    for (const auto& [path, state] : before) {
        text += now.contains(path) ? "" : fs::path(path).lexically_relative(folder).string() + " gone\n";
    }
    return text;
}

// A copy of a case's inputs.
class CaseFolder
{
public:
    explicit CaseFolder(const fs::path& source) : present(folder.path())
    {
        for (const auto& entry : fs::directory_iterator(source)) {
            const std::string name = entry.path().filename();
            if (std::find(ownFiles.begin(), ownFiles.end(), name) == ownFiles.end()) {
                fs::copy(entry, fs::path(folder / name), fs::copy_options::recursive);
            }
        }
        if (fs::exists(source / "prepare")) {
            const std::string command = "sh -eu '" + (source / "prepare").string() + "'";
            EXPECT_EQ(std::system(command.c_str()), 0) << command;
        }
        std::istringstream sockets(textOf(source / "sockets"));
        for (std::string name; sockets >> name;) {
            makeSocket(name);
        }
    }

private:
    TemporaryFolder folder;
    PresentFolder present;
};

// How the entries of folders come in a case.
class EntriesOfCase
{
public:
    explicit EntriesOfCase(const fs::path& source)
    {
        if (exists(source / "entries")) {
            const bool areSorted = textOf(source / "entries") == "sorted\n";
            setFolderEntries(areSorted ? FolderEntries::sorted : FolderEntries::withoutKinds);
        }
    }
    ~EntriesOfCase()
    {
        setFolderEntries(FolderEntries::asTheyAre);
    }
    EntriesOfCase(const EntriesOfCase&) = delete;
    EntriesOfCase& operator=(const EntriesOfCase&) = delete;
};

// Numbers as some people write them: 1.234,5.
class NumbersWithCommas : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override
    {
        return ',';
    }
    char do_thousands_sep() const override
    {
        return '.';
    }
    std::string do_grouping() const override
    {
        return "\3";
    }
};

// A variable of the environment until the end of the block.
class Variable
{
public:
    Variable(const char* ofName, const char* value) : name(ofName)
    {
        if (const char* const present = std::getenv(name)) {
            before = present;
        }
        setenv(name, value, 1);
        tzset(); // it may be the zone
    }
    ~Variable()
    {
        before ? setenv(name, before->c_str(), 1) : unsetenv(name);
        tzset();
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name;
    std::optional<std::string> before{};
};

// Another locale and another zone until the end of the block, for this process and its children.
class Abroad
{
public:
    Abroad() : streams(std::locale::global(std::locale(std::locale::classic(), new NumbersWithCommas)))
    {
        std::setlocale(LC_ALL, "C.UTF-8");
    }
    ~Abroad()
    {
        std::setlocale(LC_ALL, "C");
        std::locale::global(streams);
    }
    Abroad(const Abroad&) = delete;
    Abroad& operator=(const Abroad&) = delete;

private:
    Variable words{"LC_ALL", "C.UTF-8"};
    Variable zone{"TZ", "ABROAD-5:45"};
    std::locale streams;
};

// The lines of a text that tell of errors.
std::vector<std::string> errorLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.find(": error: ") != std::string::npos) {
            lines.push_back(line);
        }
    }
    return lines;
}

} // namespace

CommandEnd callCommand(const std::vector<std::string>& arguments)
{
    std::ostringstream out;
    std::ostringstream err;
    const int status = companion::runCommand(arguments, {out, err});
    return {status, out.str(), err.str()};
}

std::vector<std::string> goldenCases(const std::string& group)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folderOf(group))) {
        if (entry.is_directory()) {
            names.push_back(entry.path().filename());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

void expectGolden(const std::string& group, const std::string& name)
{
    const fs::path source = folderOf(group) / name;
    const CaseFolder folder(source);
    const Call call = callOf(source / "call");
    const int status = exists(source / "status") ? std::stoi(textOf(source / "status")) : 0;
    const auto before = stateOf(fs::current_path());
    const EntriesOfCase entries(source);

    const CommandEnd plain = ended(call);
    EXPECT_EQ(plain.out, textOf(source / "text"));
    EXPECT_EQ(plain.err, textOf(source / "messages"));
    EXPECT_EQ(plain.status, status);
    const Abroad abroad;
    EXPECT_EQ(ended(call).out, plain.out);
    if (exists(source / "json")) {
        const CommandEnd json = ended(call.with("--json"));
        EXPECT_EQ(json.out, textOf(source / "json"));
        EXPECT_EQ(json.status, status);
    }
    for (const char* option : {"--quiet", "--verbose"}) {
        SCOPED_TRACE(option);
        const CommandEnd other = ended(call.with(option));
        EXPECT_EQ(other.status, status);
        EXPECT_EQ(errorLines(other.out), errorLines(plain.out));
    }
    EXPECT_EQ(stateOf(fs::current_path()), before);
}

void expectGoldenMade(const std::string& group, const std::string& name, const std::string& tool)
{
    const fs::path source = folderOf(group) / name;
    const int status = exists(source / "status") ? std::stoi(textOf(source / "status")) : 0;
    const Call bare = callOf(source / "call");
    const Call call = tool.empty() ? bare : bare.with("--vomar").with(tool);
    const auto runWith = [&](const Call& wanted) {
        const CaseFolder folder(source);
        const auto before = stateOf(fs::current_path());
        const CommandEnd end = ended(wanted);
        EXPECT_EQ(end.status, status);
        EXPECT_EQ(changesIn(fs::current_path(), before), textOf(source / "left"));
        return end;
    };
    const CommandEnd plain = runWith(call);
    EXPECT_EQ(plain.out, textOf(source / "text"));
    EXPECT_EQ(plain.err, textOf(source / "messages"));
    for (const char* option : {"--quiet", "--verbose"}) {
        SCOPED_TRACE(option);
        EXPECT_EQ(errorLines(runWith(call.with(option)).out), errorLines(plain.out));
    }
    const Abroad abroad;
    EXPECT_EQ(runWith(call).out, plain.out);
    if (exists(source / "json")) {
        EXPECT_EQ(runWith(call.with("--json")).out, textOf(source / "json"));
    }
}

void expectGoldenRun(const std::string& name, const std::string& tool, const std::string& group)
{
    const fs::path source = folderOf(group) / name;
    const int status = exists(source / "status") ? std::stoi(textOf(source / "status")) : 0;
    const std::string own = exists(source / "tool") ? textOf(source / "tool") : tool;
    const Call call = callOf(source / "call").with("--vomar").with(own);
    const auto runWith = [&](const Call& wanted) {
        const CaseFolder folder(source);
        return ended(wanted);
    };
    const CommandEnd plain = runWith(call);
    EXPECT_EQ(plain.out, textOf(source / "text"));
    EXPECT_EQ(plain.err, textOf(source / "messages"));
    EXPECT_EQ(plain.status, status);
    EXPECT_EQ(runWith(call.with("--quiet")).status, status);
    EXPECT_EQ(runWith(call.with("--verbose")).status, status);
    const Abroad abroad;
    EXPECT_EQ(runWith(call.with("-j2")).out, plain.out);
    const CommandEnd json = runWith(call.with("-j2").with("--json"));
    EXPECT_EQ(json.status, status);
    if (exists(source / "json")) {
        EXPECT_EQ(json.out, textOf(source / "json"));
    }
}
