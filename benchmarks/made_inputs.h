// Made inputs of whole runs: measurement files of any number of marks and objects.

#pragma once

#include <string>

/// Makes a measurement file in the format of the word ("mea", "telegram", "tdm" or "ssmas"): so many marks
/// over nights of some hundred marks, object by object, or mixed: each line is of another object than the one
/// before it.
void makeInput(const std::string& path, const std::string& word, long marks, long objects,
               bool mixed = false);

/// Makes the track table of a series: so many tracks, of marks of one night, with the standard 62 columns and
/// with names out of so many. A pause in the middle of each track divides it. `number` is different for each
/// series.
void makeTrackTable(const std::string& path, long number, long tracks, long marksOfATrack, long names);
