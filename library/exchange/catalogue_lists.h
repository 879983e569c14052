// Catalogue lists: known variable stars, comparison stars and satellite names from tab-separated texts.
//
//   N:Int  type:Text   Name:Text  AUID:Text    RA:Float:deg  DE:Float:deg  X:Float:pix  ...
//   v2
//   1      B2Vne+B3Vne phi Per    000-BBD-264  25.9152       50.6887       512.5        ...
//
// The lists come from the variable star index VSX and the star plotter VSP. A missing file gives an empty
// list, a missing column leaves its field at the default, and text that is no number is 0.

#pragma once

#include "../export.h"

#include <string>
#include <vector>

class TiXmlElement;

namespace TAVELIN_API tavelinUtils {

/// A known variable star.
struct TVSX
{
    double X = 0; ///< pixels
    double Y = 0;
    double RA = 0; ///< degrees
    double DE = 0;
    double Mag = 0; ///< in no list; LoadVSX sets -1000.0
    double ProperMotionRA = 0;
    double ProperMotionDec = 0;
    std::string type{}; ///< spectral type
    std::string Const{};
    std::string Name{};
    std::string AUID{};
    std::string VarType{};
    std::string MagRange{};
    std::string Period{};
    std::string Category{};
    std::string OID{};
};

/// A comparison star of a chart.
struct TRecVSP
{
    std::string Label{};
    std::string AUID{};
    double RA = 0; ///< degrees
    double DE = 0;
    std::string Text{};
    double Mags[11] = {}; ///< by band; 0 for none
    std::string Closing{};
};

/// A star of a requested list.
struct TAAVSOvsp
{
    double RA = 0;
    double DE = 0;
    std::string Text1{};
    std::string Text2{};
    std::string Text3{};
    double Mags[12] = {};
    std::string Closing{};
};

/// A satellite and its names.
struct TNameSat
{
    int Number = 0;
    std::string Text1{};
    std::string Text2{};
};

/// The column line of a list of variable stars, without a line feed.
std::string getHeadVSX();

/// Replaces the file with the list: column line, version mark, one line per star. Coordinates have six
/// significant digits. Throws TavelinException with code 7 and the path for a file that cannot be written.
void SaveVSX(std::string path, const std::vector<TVSX>& stars);

/// The stars of such a list: every line after the first two is one, even an empty one. All have the magnitude
/// -1000.0.
std::vector<TVSX> LoadVSX(std::string path);

/// Replaces the vector with the stars of a short list, which has one head line and begins every other line
/// with the position.
void lListVSX(std::string path, std::vector<TVSX>& stars);

/// Appends the stars of an XML answer of the index. False for a file that cannot be loaded; the vector then
/// stays as it was. An answer without stars is true.
bool LoadVSXQuerry(std::string path, std::vector<TVSX>& stars);

/// Appends the stars below the root of an answer. A null pointer means no root.
void GetVSXObjects(const TiXmlElement* root, std::vector<TVSX>& stars);

/// The comparison stars of a chart, one for every line after the first two. Exactly "Nan" means a band
/// without magnitude and leaves 0; another spelling is read as the number not-a-number.
std::vector<TRecVSP> lVSP(std::string path);

/// Replaces the vector with the stars of a requested list, one for every line. "Nan" is not-a-number here.
void lListAAVSOvsp(std::string path, std::vector<TAAVSOvsp>& stars);

/// The satellites of a list of names, one for every line.
std::vector<TNameSat> lNameSat(std::string path);

} // namespace tavelinUtils
