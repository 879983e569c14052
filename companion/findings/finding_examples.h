// Finding examples: for each finding a call that finds it and what it prints. They are cases of the tests.

#pragma once

#include "findings/finding.h"

#include <span>
#include <string_view>

namespace companion {

/// An example of a finding.
struct FindingExample
{
    FindingCode code;
    std::string_view place; ///< of the case: "check/colliding_names"
    std::string_view call;  ///< "check night.xml"
    std::string_view lines; ///< those of the finding, with line feeds between them
};

/// All examples, by code.
std::span<const FindingExample> findingExamples();

/// The example of a code; a null pointer where there is none.
const FindingExample* findingExample(FindingCode code);

} // namespace companion
