// Failure saving: a caught failure in several result files, so that whoever watches a series finds it.

#pragma once

#include "result.h"

#include <string>

namespace tavelinUtils {

/// Saves the result of a code and its description to the three paths, one after the other. Each takes the
/// form that its name asks for; an empty one, or one in a missing folder, gets nothing and reports nothing.
void tavelinExceptionsAct(int code, std::string text, std::string path1, std::string path2,
                          std::string path3);

/// Saves a result to the result file, where that exists already, and as "LOG_" and the source's name with
/// the extension ".xml" to the folder of the result, or to that of the source where there is none. A file of
/// that name is replaced. Reports nothing.
void SaveExceptLogCode(std::string source, std::string result, TFuncRes res);

} // namespace tavelinUtils
