// Failure saving: writes a caught failure to several result files, so that whoever watches a series finds it.

#pragma once

#include "../export.h"
#include "result.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// Saves the result of a code and its description to the three paths, one after the other. Each file has the
/// form that its extension asks for; an empty path, or one in a missing folder, is skipped in silence.
void tavelinExceptionsAct(int code, std::string text, std::string path1, std::string path2,
                          std::string path3);

/// Saves a result to the result file if that exists already, and to "LOG_" plus the source's name with the
/// extension ".xml", in the folder of the result file or, if that folder is missing, in that of the source. A
/// file of that name is replaced. Reports nothing.
void SaveExceptLogCode(std::string source, std::string result, TFuncRes res);

} // namespace tavelinUtils
