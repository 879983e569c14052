// Result files: how a run or a step ended, for the other modules of the pipeline.
//
// A name that ends in ".xml" or ".result" gets an XML document, overwritten at each save:
//
//   <?xml version="1.0" ?>
//   <ResultsList>
//       <Result>
//           <Code>7</Code>
//           <Comment>Error opening file</Comment>
//           <Description>in/night.mea</Description>
//           <Date>2024-03-09 04:05:06.000789</Date>
//       </Result>
//   </ResultsList>
//
// With every other name a line is appended to a text log:
//
//   2024-03-09 04:05:06.000789 Code=7//Error opening file//in/night.mea

#pragma once

#include "../export.h"
#include "result.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Saves a result in the form that the path's extension asks for, compared exactly and with case. If the
/// folder of the path does not exist, nothing is written or reported; a bare name is its own folder and so is
/// never written.
void SaveLogCode(std::string path, TFuncRes result);

/// The same for a result of code, comment and description.
void SaveLogCode(std::string path, int code, std::string comment, std::string description);

/// The same for several results, without the test of the folder: a bare name is written.
void SaveLogCode(std::string path, std::vector<TFuncRes> results);

/// Add the line of a result, or of each result with the same time stamp, to a text log. A file that cannot be
/// opened is skipped in silence.
void sResTXT(std::string path, TFuncRes result);
void sResTXT(std::string path, std::vector<TFuncRes> results);

/// Replace the file with the document of one result, or of several in order. 1 for success, 0 for failure.
int sResXML(std::string path, TFuncRes result);
int sResXML(std::string path, std::vector<TFuncRes> results);

/// The last result of a document, key by key. The two texts change places: Comment comes back in
/// Description, and Description in Comment. Code -1 for a missing file, 5 for one that cannot be loaded.
TFuncRes lResXML(std::string path);

/// All results of a document, their texts exchanged likewise. One result of code -1 for a missing file, and
/// of code 7 for one that cannot be loaded; none for a document without results or of another root.
std::vector<TFuncRes> lArrResXML(std::string path);

/// Appends a time stamp and a text to a log. An empty path does nothing; a file that cannot be opened is
/// skipped in silence.
void slog(std::string path, std::string text);

} // namespace tavelinUtils
