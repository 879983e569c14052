// Key table: every key of a task file, one row each. Checks, schemas, completion and pages come from it.

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// What the value of a key is.
enum class KeyType
{
    text,       ///< any text
    boolean,    ///< true for exactly "true"
    integer,    ///< an integer of 32 bits
    number,     ///< a number with a fraction
    words,      ///< one of a few words (wordsOf)
    exclusions, ///< marks to leave out: "3;0;7 5;1"
    series      ///< no value of its own: elements "seria"
};

/// The works in which a key counts.
enum class KeyWork
{
    conversion,
    report,
    both
};

/// A key of a task.
struct TaskKey
{
    std::string_view name;
    KeyType type;
    std::string_view ofNone; ///< what a task without the key has, as the key would say it
    KeyWork work;
    std::string_view effect; ///< a sentence
    std::string_view trap;   ///< a sentence; empty where there is none
};

/// The keys of the root, in the order of docs/task_file.md.
std::span<const TaskKey> taskKeyTable();

/// The keys of a "seria".
std::span<const TaskKey> seriaKeyTable();

/// The row of a name in a table; a null pointer where there is none. Names are compared exactly.
const TaskKey* keyOf(std::span<const TaskKey> table, std::string_view name);

/// The names of a table, in its order.
std::vector<std::string> namesOf(std::span<const TaskKey> table);

/// Effect, trap and default of a key, as schemas and manual pages say them.
std::string documentationOf(const TaskKey& key);

/// The words that a key of type `words` takes, in the order of the tool's own tables; none for other keys.
std::vector<std::string> wordsOf(const TaskKey& key);

/// The format words that can be read, and those that can be written.
std::vector<std::string> inputWords();
std::vector<std::string> outputWords();

} // namespace companion
