// Files of each output word, written out for tracks whose marks are all the same: noon of 25 February 2023,
// 1 h, -30', 9.5 mag.

#pragma once

#include "records/track.h"

#include <cstddef>
#include <string>
#include <vector>

namespace expectedFiles {

/// The output words.
extern const std::vector<std::string> words;

/// A track: its name, and how many of the marks it has.
struct Outline
{
    std::string name;
    std::size_t marks;
};
using Outlines = std::vector<Outline>;

/// What the head of a file takes from the first track, and each block from its own.
struct Stamps
{
    std::string originator = "observatory";
    std::string telescope = "T9";
    std::string frame = "ICRF";
    std::string observerCode = "aavso";
};

/// The bytes of a file of the word. The tracks must not be none.
std::string fileOf(const std::string& word, const Outlines& tracks, const Stamps& stamps = {});

/// The bytes of a file of the word that holds no tracks, for a word that writes one: "tdm.xml" and "mag".
std::string fileOfNoTracks(const std::string& word);

/// Whether a file of the word is made where there are no tracks.
bool isMadeOfNoTracks(const std::string& word);

/// The tracks with their marks and stamps, as a writer takes them.
std::vector<tavelinUtils::TrackVtorichka> tracksOf(const Outlines& tracks, const Stamps& stamps = {});

/// The bytes of an input of the word, one that can be read. A MEA file cannot hold a track without marks.
std::string inputOf(const std::string& word, const Outlines& tracks);

/// The input words.
extern const std::vector<std::string> inputWords;

} // namespace expectedFiles
