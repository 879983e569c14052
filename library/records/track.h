// A track: the head of one object and its marks. What readers return and writers take.

#pragma once

#include "../export.h"
#include "enumerations.h"
#include "mark.h"

#include <cstddef>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The texts of an MPC report's header lines, in the order of the lines.
struct TMPCReportHeader
{
    std::string COD = "500";  ///< observatory code
    std::string CON{};        ///< contact
    std::string OBS{};        ///< observers
    std::string MEA{};        ///< measurers
    std::string COM{};        ///< comment
    std::string TEL{};        ///< telescope
    std::string ACK{};        ///< acknowledgement
    std::string AC2{};        ///< address of the acknowledgement
    std::string NET{};        ///< star catalogue
    bool HeaderOn = true;     ///< carried
    bool HeaderFlag2 = false; ///< carried
};

/// Residuals of a track; carried, so without units.
struct TTrackResid
{
    double Value1 = 0;           ///< carried
    double Value2 = 0;           ///< carried
    double Value3 = 0;           ///< carried
    double Value4 = 0;           ///< carried
    std::vector<double> List1{}; ///< carried
    std::vector<double> List2{}; ///< carried
    std::vector<double> List3{}; ///< carried
    std::vector<double> List4{}; ///< carried
};

/// What an inter-frame measurement adds to a mark.
struct TInterBlob
{
    double m_MPC = 0;     ///< magnitude of the column m_MPC
    double Value2 = -1.0; ///< right ascension of an ephemeris, degrees, where one is joined; else carried
    double Value3 = -1.0; ///< declination of an ephemeris, degrees, where one is joined; else carried
};

/// A position from the column `Cast`.
struct TCasts
{
    double RA = 0; ///< right ascension, degrees
    double DE = 0; ///< declination, degrees
    double JD = 0; ///< Julian date, days
};

/// The head of a track. A carried field is copied with the head; no format gives it a meaning of its own.
struct THeadTrVtor
{
    std::string QRVName{};                  ///< name of the object
    std::string NORAD{};                    ///< second designation; the name again where a format has none
    std::string MPCChecker{};               ///< answer of the MPC checker
    std::string HeadText1{};                ///< carried
    std::string HeadText2{};                ///< first object number of SSMAS
    std::string HeadText3{};                ///< second object number of SSMAS
    std::string telescope = "telescope";    ///< identifier of the telescope
    std::string originator = "observatory"; ///< identifier of the observatory
    std::string REFERENCE_FRAME = "ICRF";   ///< word of the reference frame
    std::string Series{};                   ///< label of the series; the last part of an automatic name
    double HeadValue1 = 0;                  ///< carried
    double HeadValue2 = 0;                  ///< carried
    double HeadValue3 = 0;                  ///< carried
    double X0 = 0;                          ///< start of the linear model, X, pixels
    double Y0 = 0;                          ///< start of the linear model, Y, pixels
    double Vx = 0;                          ///< speed of the linear model, X, pixels per frame
    double Vy = 0;                          ///< speed of the linear model, Y, pixels per frame
    double HeadValue4 = 0;                  ///< carried
    double HeadValue5 = 0;                  ///< carried
    TTrackResid ResidFirst{};               ///< residuals against the first reference; carried
    double HeadValue6 = 0;                  ///< carried
    double HeadValue7 = 0;                  ///< carried
    double HeadValue8 = 0;                  ///< carried
    double V_ra = 0;                        ///< speed in right ascension, arc seconds per minute
    double V_de = 0;                        ///< speed in declination, arc seconds per minute
    double V = 0;                           ///< total speed, arc seconds per minute
    double HeadValue9 = 0;                  ///< carried
    TTrackResid ResidSecond{};              ///< residuals against the second reference; carried
    double DispX = 0;       ///< dispersion in X, pixels; mean residual in RA for the residual report
    double DispY = 0;       ///< dispersion in Y, pixels; mean residual in DE for the residual report
    double DispXY = 0;      ///< dispersion of both, pixels
    double HeadValue10 = 0; ///< carried
    double HeadValue11 = 0; ///< carried
    double LymX = 0;        ///< quality of the track in X; rms residual in RA for the residual report
    double LymY = 0;        ///< quality of the track in Y; rms residual in DE for the residual report
    double LymXY = 0;       ///< quality of the track in both
    double m_m = 0;         ///< mean magnitude
    double m_rms = 0;       ///< rms of the magnitude, magnitudes
    double PA = 0;          ///< position angle of the motion, degrees
    double HeadValue12 = 0; ///< carried
    double Angle_rms = 0;   ///< rms of Angle over the marks, in its unit
    double Length_rms = 0;  ///< rms of Length over the marks, in its unit
    double HeadValue13 = 0; ///< carried
    double HeadValue14 = 0; ///< carried
    double HeadValue15 = 0; ///< carried
    double HeadValue16 = 0; ///< carried
    double HeadValue17 = 0; ///< carried
    double HeadValue18 = 0; ///< carried
    double HeadValue19 = 0; ///< carried
    double HeadValue20 = 0; ///< carried
    double HeadValue21 = 0; ///< carried
    double HeadValue22 = 0; ///< carried
    double HeadValue23 = 0; ///< carried
    double HeadValue24 = 0; ///< carried
    double FindOrb = 999.0; ///< residual of the orbit fit, arc seconds; 999.0 means not computed
    int N = 0;              ///< number of the track in its list
    int NMarks = 0;         ///< number of marks, set by the reader of track tables
    THowMakeTr TrMade = THowMakeTr::STROB; ///< how the track was made
    int HeadInt = 0;                       ///< carried
    TMPCReportHeader MPCHeader{};          ///< header of the MPC report
    std::string ObsCode = "aavso";         ///< observer code of the AAVSO report
    std::string SourceFile{};              ///< path of the track table that the track came from
    std::string ResidFile{};               ///< path of the source of the residuals
};

/// The track of one object. InterBlobs, Candidates and Cast have one entry for each mark only where a
/// track table filled them: check their sizes before you index them by mark.
struct TrackVtorichka : THeadTrVtor
{
    std::vector<TRecLabelPervichka_File> Marks{}; ///< the marks in the order of the file
    std::vector<TInterBlob> InterBlobs{};         ///< one for each mark
    std::vector<std::string> Candidates{};        ///< the column Candidates, one text for each mark
    std::vector<std::string> Cast{};              ///< the column Cast, one text for each mark; see StrToCast
};

/// Clears the computed part of a head: DispX to Length_rms, HeadValue1, HeadValue2, N and HeadInt become 0,
/// and the track counts as made by hand (MANUA). Everything else stays.
void SetNilHeadTrack(TrackVtorichka& track);

/// The order of tracks by the bytes of MPCChecker.
bool SortTrackByName(const TrackVtorichka& a, const TrackVtorichka& b);

/// How many marks the tracks have together.
std::size_t countMarks(const std::vector<TrackVtorichka>& tracks);

} // namespace tavelinUtils
