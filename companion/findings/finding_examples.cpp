#include "findings/finding_examples.h"

#include <algorithm>
#include <iterator>

namespace companion {
namespace {

// Made by scripts/make_companion_texts from the cases of the tests.
// clang-format off
constexpr FindingExample rows[] = {
    {"V001", "explain/several_things", "explain V240 7",
     "tavelin: explain: takes one WHAT [V001]"},
    {"V002", "explain/unknown_code", "explain 14",
     "tavelin: no result code \"14\" [V002]"},
    {"V003", "explain/no_result_file", "explain --as=result night.txt",
     "tavelin: night.txt: it holds no result [V003]"},
    {"V011", "explain/task_that_loads_not", "explain night.xml",
     "tavelin: the task is not well-formed XML: Premature end of data in tag task line 1 [V011]"},
    {"V302", "explain/doubt", "explain 7",
     "tavelin: cannot tell whether this is a code or a file [V302]"},
};
// clang-format on

} // namespace

std::span<const FindingExample> findingExamples()
{
    return rows;
}

const FindingExample* findingExample(FindingCode code)
{
    const auto* const row =
        std::lower_bound(std::begin(rows), std::end(rows), code,
                         [](const FindingExample& each, FindingCode wanted) { return each.code < wanted; });
    return row != std::end(rows) && row->code == code ? row : nullptr;
}

} // namespace companion
