// Golden cases: a folder with inputs, a call of the command, and what it prints.
//
//   call      the arguments, one line; words with blanks in double quotes; "< FILE" at its end gives the
//             standard input
//   prepare   shell commands that make what a repository does not keep: links, pipes, folders without rights
//   sockets   names of sockets to make; no file where there are none
//   entries   how the entries of folders come: "sorted" or "without kinds"
//   text      what it prints to standard output
//   json      what it prints with --json; left out where the subcommand is not asked for it
//   messages  what it prints to standard error; nothing where the file is missing
//   status    the exit status; 0 where the file is missing
//   tool      the tool of a case of runs, instead of the one of its test
//   left      of a subcommand that writes files: the paths that it makes, changes or removes

#pragma once

#include <string>
#include <vector>

/// What a call of the command gave.
struct CommandEnd
{
    int status = 0;
    std::string out{};
    std::string err{};
};

/// Calls the command in this process, in the present folder.
CommandEnd callCommand(const std::vector<std::string>& arguments);

/// The names of the cases below tests/companion/GROUP, in the order of bytes.
std::vector<std::string> goldenCases(const std::string& group);

/// Runs a case in a copy of its folder: text, JSON, messages and status are as they stand, also in another
/// locale and zone; the options -q and -v change neither the status nor the errors; nothing in the folder
/// changes.
void expectGolden(const std::string& group, const std::string& name);

/// Runs a case of a subcommand that writes files, with a tool where it starts one, each time in a new copy of
/// its folder. Text, JSON, messages and status are as they stand, also in another locale and zone, and after
/// each call what is new, changed or gone in the folder is what the file "left" lists, a path each line.
void expectGoldenMade(const std::string& group, const std::string& name, const std::string& tool = "");

/// Runs a case of a group of runs with a tool, each time in a new copy of its folder, which the tool changes.
/// Text, JSON, messages and status are as they stand, and two at once, in another locale and zone, print the
/// same as one after the other.
void expectGoldenRun(const std::string& name, const std::string& tool, const std::string& group = "run");
