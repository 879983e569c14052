// The names of the files that a run writes. What is named after something that is missing has no name.

#pragma once

#include "records/track.h"
#include "task.h"

#include <cstddef>
#include <optional>
#include <string>

/// The folder of the output, with a slash at its end. An out_dir that does not exist is not created: output
/// goes to the folder of the input instead.
std::string outputFolder(const tavelinUtils::TConvMea& task);

/// The automatic file name, without folder and extension: telescope, name, date and time of the first mark
/// and the track's Series, joined with "-": "T1-1234-2023-02-25T12-00-00-R". A track without marks gets the
/// time of MJD 0.
std::string CreateAutoName(const tavelinUtils::TrackVtorichka& track, std::string telescope,
                           std::string name);

/// The output path of a conversion: out_dir + name + outputextension, simply joined. The name is that of the
/// input, or with `autoname` that of CreateAutoName for the first track; nothing where `autoname` finds no
/// first mark. The pointer is null where there is no track.
std::optional<std::string> conversionPath(const tavelinUtils::TConvMea& task,
                                          const tavelinUtils::TrackVtorichka* first);

/// The base name of a file of objects: the QRVName of its first track; nothing for a null pointer.
std::optional<std::string> objectName(const tavelinUtils::TrackVtorichka* first);

/// The base name of the file of a series, counted from 0: the name of its folder, the fourth part from the
/// end of its path; nothing where there is no such series or its path has fewer parts.
std::optional<std::string> seriesFolderName(const tavelinUtils::TConvMea& task, std::size_t number);

/// The base name of the file of all objects: the last folder of out_dir, empty where it has none.
std::string outputFolderName(const tavelinUtils::TConvMea& task);

/// The output path of a file of a report: out_dir + name + "." + outputextension. The name is the base name,
/// or with `longname` that of CreateAutoName for the first track and the base name; nothing where there is no
/// base name, or where `longname` finds no first mark. The pointer is null where there is no track.
std::optional<std::string> reportPath(const tavelinUtils::TConvMea& task,
                                      const tavelinUtils::TrackVtorichka* first,
                                      const std::optional<std::string>& baseName);
