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
    int object = -1;        ///< the one track that is kept where whatSave is "object"
    double interval = 30.0; ///< minutes between marks that part a track under "eachgroup"
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

/// Reads a task file. False, with the task untouched, where it cannot be loaded; a key that is missing or
/// empty leaves its member as it was, but `paths`, which are replaced also by none. The name of the root
/// element is not looked at.
bool ltaskconv(std::string path, TConvMea& task);

/// The series below the child `key` of an element; none where there is no such child, or its first "seria"
/// has no child element. A later "seria" without any node is never left: the walk does not return.
std::vector<TSeria2> GetSeriaAndObjects(TiXmlElement* parent, std::string key);

} // namespace tavelinUtils
