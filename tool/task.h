// The task file: what one run of the tool is to do.

#pragma once

#include "config/xml_document.h"

#include <string>
#include <vector>

namespace tavelinUtils {

/// The excluded marks of one track.
struct TExcludBlobs
{
    int object = 0;           ///< the track, counted from 0
    std::vector<int> blobs{}; ///< its marks, counted from 0
};

/// One series of a report.
struct TSeria2
{
    std::string path{};            ///< its track table
    std::string filter = "filter"; ///< photometric filter; the key in the file is "filtr"
    std::string telescope = "telescope";
    std::vector<TExcludBlobs> excludes{};
};

/// The parsed task. Its members are named by the keys of the file.
struct TConvMea
{
    bool autoname = false;
    bool longname = true;
    bool autoTelescope = true;
    int object = -1;        ///< the one track of the first series that whatSave "object" keeps, from 0
    double interval = 30.0; ///< minutes between marks at which "eachgroup" cuts a track
    std::string path_in{};
    std::string out_dir{};
    std::string outputextension{};
    std::string inputformat{};
    std::string outputformat{};
    std::string originator = "observatory";
    std::string path_res{};
    std::string REFERENCE_FRAME{};
    std::string PARTICIPANT_1 = "telescope";
    std::string whatSave{};
    std::string toSeparateFile{};
    std::vector<TSeria2> paths{};
};

/// Reads a task file. False, with the task untouched, if it cannot be loaded. A key that is missing or empty
/// leaves its member as it was, except `paths`, which are always replaced, even by none. The root element may
/// have any name.
bool ltaskconv(std::string path, TConvMea& task);

/// The series below the child `key` of an element; none if there is no such child, or if its first "seria"
/// has no child element. A later "seria" without any child node makes the walk endless: it does not return.
std::vector<TSeria2> GetSeriaAndObjects(TiXmlElement* parent, std::string key);

} // namespace tavelinUtils
