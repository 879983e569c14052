// The single conversion: one measurement file in one format into another.

#pragma once

#include "results/result.h"
#include "task.h"
#include "works.h"

#include <string>

/// Reads path_in, stamps the task's names on the tracks and writes them to out_dir + name + outputextension,
/// simply joined. The name is that of the input, or with `autoname` that of CreateAutoName for the first
/// track.
///
/// The result names the path that was tried: code 0 and the output path even if the output word is unknown
/// or its writer has nothing to write. Code -1 for an unknown input word, for a reader that throws and for
/// `autoname` without a first mark; code -3 if the output path equals path_in. Exceptions of a writer are
/// passed on.
tavelinUtils::TFuncRes converter(std::string path_in, std::string out_dir, std::string outputextension,
                                 std::string inputformat, std::string outputformat, std::string originator,
                                 std::string REFERENCE_FRAME, std::string PARTICIPANT_1, bool autoname);

/// The same with the values of a task, and with sources and sinks of the caller's choice.
tavelinUtils::TFuncRes converter(const tavelinUtils::TConvMea& task, const Works& works = ownWorks());
