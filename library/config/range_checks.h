// Loading the whole configuration of a module, and checks that collect the parameters outside their ranges.
//
// The program configuration, "vomar/vomar.xml" in the folder of the programs, names the other programs:
//
//   <programs>
//       <FindOrb>find_orb%exe%</FindOrb>
//       <Java>java</Java>
//   </programs>
//
// The name of its root does not matter.

#pragma once

#include "../export.h"
#include "../results/result.h"
#include "settings.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// Reads the program configuration; a missing key leaves its member. Code 0, or 138 for a missing file and
/// 139 for one that cannot be loaded, each with the path in the description; nothing is changed then.
TFuncRes lConfig(std::string path, TExe& exe);

/// Loads the settings of a series and the paths of the programs, and logs each step; an empty log path means
/// no log. The configuration is the file of the given path or, if that does not exist, the one that
/// GetSeriaConfig finds in the series. Element sets are read only if asked for. A program that the program
/// configuration does not name has its standard name; without a program folder Java is "java" and the others
/// have none.
///
/// The result is that of the program configuration, which is not read if the program folder is empty, or that
/// of LoadUserConfXML; if the first fails, the settings of the series are not read. If there is no
/// configuration, the result has code 123, and a TavelinException with the same code is thrown.
TPorogs LoadUserConf(std::string seriesFolder, std::string programFolder, std::string configPath,
                     std::string logPath, TFuncRes& result, bool loadTLE);

/// Turns the names of folders and files into paths below the folder of a series. The service folder keeps its
/// name, and so do the folders of the multi-series tool. Meant for names: a second call prepends the service
/// folder again.
void SetBlanks(TPorogs& porogs);

/// Removes the first ".exe" and the first marker "%exe%" from the paths of all programs: executables have no
/// extension here.
void DelExtensionExe(TPorogs& porogs);

/// Prepends a folder, with or without a slash at its end, to the paths of all programs, whatever they are; an
/// empty one leaves them as they are.
void CheckModulsForPaths(std::string folder, TPorogs& porogs);

/// Appends a parameter and its range to the description of a result, "name out of [range] ", and sets its
/// code to 142. The comment stays, and so does the text "OK" with which the description of a new result
/// begins.
void SetCode142(std::string name, std::string range, TFuncRes& result);

/// Does this for a value outside min and max, which both belong to the range: "name=value out of [min; max]
/// ". Not-a-number is outside every range.
void CheckDoubleMinMax(std::string name, double min, double max, double value, TFuncRes& result);

/// Does this for a value that is not in a list such as "1,3,5": "name=2 out of [1,3,5] ". An item of the list
/// that is no number counts as 0.
void CheckAstroDegree(std::string name, int value, std::string allowed, TFuncRes& result);

} // namespace tavelinUtils
