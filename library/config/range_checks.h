// Loading the whole configuration of a module, and checks that collect the parameters out of their ranges.
//
// The program configuration, "vomar/vomar.xml" in the folder of the programs, names the other programs:
//
//   <programs>
//       <FindOrb>find_orb%exe%</FindOrb>
//       <Java>java</Java>
//   </programs>
//
// The name of its root is not looked at.

#pragma once

#include "../results/result.h"
#include "settings.h"

#include <string>

namespace tavelinUtils {

/// Reads the program configuration; a key that is missing leaves its member. Code 0, or 138 for a missing
/// file and 139 for one that cannot be loaded, each with the path in the description; nothing has changed
/// then.
TFuncRes lConfig(std::string path, TExe& exe);

/// Loads the settings of a series and the paths of the programs, and tells each step in the log; an empty log
/// path is none. The configuration is the file of the given path or, where that does not exist, the one that
/// GetSeriaConfig finds in the series. Element sets are read only where asked for. A program that the program
/// configuration does not name has its standard name; without a program folder Java is "java" and the others
/// have none.
///
/// The result is that of the program configuration, which an empty program folder leaves out, or that of
/// LoadUserConfXML; on a failure of the first the settings of the series are not read. Where there is no
/// configuration the result has code 123, and TavelinException is thrown with the same.
TPorogs LoadUserConf(std::string seriesFolder, std::string programFolder, std::string configPath,
                     std::string logPath, TFuncRes& result, bool loadTLE);

/// Makes paths below the folder of a series out of the names of folders and files. The service folder keeps
/// its name, and so do the folders of the multi-series tool. Meant for names: a second call puts the service
/// folder in front once more.
void SetBlanks(TPorogs& porogs);

/// Takes ".exe" and the marker "%exe%", the first occurrence of each, out of the paths of all programs:
/// executables have no extension here.
void DelExtensionExe(TPorogs& porogs);

/// Puts a folder, with or without a slash at its end, in front of the paths of all programs, whatever they
/// are; an empty one leaves them as they are.
void CheckModulsForPaths(std::string folder, TPorogs& porogs);

/// Puts a parameter and its range behind the description of a result, "name out of [range] ", and sets its
/// code to 142. The comment stays, also the text "OK" that a new result begins its description with.
void SetCode142(std::string name, std::string range, TFuncRes& result);

/// Does this for a value outside of min and max, which both belong to the range:
/// "name=value out of [min; max] ". Not-a-number is outside of every range.
void CheckDoubleMinMax(std::string name, double min, double max, double value, TFuncRes& result);

/// Does this for a value that is not in a list such as "1,3,5": "name=2 out of [1,3,5] ". A part of the list
/// that is no number is 0.
void CheckAstroDegree(std::string name, int value, std::string allowed, TFuncRes& result);

} // namespace tavelinUtils
