// Small results of the astrometric stage as plain text, and results written by other programs.
//
// A reader gives an empty result for a missing file; text that is no number is 0. Every writer replaces the
// file and throws TavelinException with code 7 and the path if it cannot be written. Numbers have six
// significant digits unless noted otherwise.

#pragma once

#include "../export.h"
#include "../records/blob.h"
#include "../records/element_set.h"
#include "../records/pixel.h"
#include "../results/result.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// A table of the F distribution.
struct TFisherTable
{
    int Column = 0;                ///< the last column that is not 0.0
    std::vector<double> Columns{}; ///< the degrees of freedom of the columns
    std::vector<int> Rows{};       ///< the degrees of freedom of the rows
    std::vector<std::vector<double>> Values{};
};

/// The differences between two coordinate systems for a satellite.
struct TCoordSat
{
    double Values[24] = {};
};

/// The fields of the first line.
std::vector<std::string> lBand(std::string path);

/// Appends the numbers after the first three lines, one per line.
void LoadResult61(std::string path, std::vector<double>& values);

/// Writes an array of width times height values that is stored row by row. A tab follows each value, the last
/// of a row too. Folder and name are simply joined: the folder ends in its separator. A height below 1 leaves
/// an empty file.
void arrayToTxt(std::string folder, std::string name, double* values, long width, long height);

/// Writes X, Y and C of each pixel in a row of its own, in the same way.
void arrayToTxt(std::string folder, std::string name, const std::vector<pixelD>& pixels);

/// Writes a plate: the length of its lists, its first two values, and the lists side by side. A value that
/// the second list lacks is 0.
void sAstroPlate(std::string path, TPlateRec plate);

/// Reads a plate; its other fields stay at their defaults. The lists have the length that the file states,
/// and missing values are 0. A length that a file of that size cannot hold gives a plate of defaults.
TPlateRec lAstroPlate(std::string path);

/// Writes the parameters of a reduction in two lines: the first six with 2 decimals, the last two with 6.
void SaveAstroParam(std::string path, double RA0, double DE0, double Mx, double My, double PoleRA,
                    double PoleDE, double Focus, double Gamma);

/// Writes the parameters of a fit with a plate model: its number, the path of the output, and the lists side
/// by side. A value that a list lacks against the first is 0.
void sParamAstroQRV_61(std::string path, std::vector<double> xc, std::vector<double> xf,
                       std::vector<double> xw, int model, std::string outPath);

/// Writes the entries of all representatives, one per line, both numbered from 0. Positions have 2 decimals
/// and values 3. A representative without entries gets no line.
void SaveIndIC(std::string path, const std::vector<TRepresent>& representatives);

/// Reads the solution file of a plate solver into centre and matrix of a frame: 1, or 0 where its first line
/// does not say that the plate was solved; the head then stays as it was. Lines count by position and not by
/// key; a missing one is 0.
int lIniASTAP(std::string path, TFitHead& head);

/// Reads a table. Returns 0, 4 for a missing file and 2 for one of fewer than three lines; on a failure the
/// table stays as it was. The number is ignored: Column gets the index of the last column that is not 0.0,
/// and stays if there is none.
int lFisherTable(std::string path, double value, TFisherTable& table);

/// The differences with 9 decimals, a tab between two.
std::string DiffSysCoordSatToStr(TCoordSat differences);

/// The plate of a frame: its first two values are the centre, the rest is empty.
TPlateRec FitHeadToPlate(const TFitHead& head);

/// The result that another module left in the last line of its log, as in "2024-03-09 04:05:06.000789
/// Code=7//Error//in/night.mea". The text after the first "//", up to a blank or to the next "//", becomes
/// the description; the comment is "OK" whatever the code. A missing code is 0, a missing text empty. A
/// missing file is code -1 with "errNoFileResult" in both texts.
TFuncRes LoadResultExe(std::string path);

} // namespace tavelinUtils
