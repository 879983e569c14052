// The words of the formats: one table of word, source, sink, and what the sink looks at.

#pragma once

#include "records/track.h"
#include "results/result.h"
#include "works.h"

#include <string>
#include <vector>

/// A row of the table. A format that is only written has no source.
struct FormatWord
{
    const char* word;
    NextTrack (*read)(const std::string& path, const std::string& originator); ///< may be a null pointer
    TrackSink (*write)(const std::string& path);
    const char*
        columns; ///< the columns of a track table that its lines are made of, with a blank between them
};

/// What formatOpticMea_to_int gives for a word that is in no row.
inline constexpr int formatUnknown = -1;

/// The row of a format's number; a null pointer for a number outside the table.
const FormatWord* formatWord(int number);

/// The number of a format's word: "mea" 0, "telegram" 1, "tdm" 2, "ssmas" 3, "mpc" 4, "tdm.xml" 5, "mag" 6,
/// "aavso" 7, and formatUnknown for any other text. Only the first four can be read, all can be written.
int formatOpticMea_to_int(std::string word);

/// Writes the tracks to the path in the format. Code -2, "unknown output format", for an unknown word;
/// otherwise code 0. Exceptions of a writer are passed on.
tavelinUtils::TFuncRes SelectFormatAndSave(std::string path, std::string format,
                                           std::vector<tavelinUtils::TrackVtorichka>& tracks);
