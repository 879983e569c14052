// New task: a task that is made and not read, and its text.
//
//   NewTask task;
//   task.set("path_in", "night.mea");
//   task.text();

#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace companion {

/// A key and its value.
using TaskValue = std::pair<std::string, std::string>;

/// A task under way.
class NewTask
{
public:
    /// Gives a key a value, and replaces the one that it has. A key without a text would not be what it says
    /// to readers of tasks: an empty value takes the key out.
    void set(std::string_view key, const std::string& value);

    /// Adds a series by its keys, those with an empty value left out.
    void addSeries(const std::vector<TaskValue>& keys);

    /// The document, with the keys in the order in which they were first set and the series after them. It is
    /// UTF-8 where all values are; else each byte stands for itself, as in ISO 8859-1.
    std::string text() const;

private:
    std::vector<TaskValue> keys;
    std::vector<std::vector<TaskValue>> series;
};

} // namespace companion
