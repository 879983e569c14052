// A track: the head of one object and its marks. What readers return and writers take.

#pragma once

#include "enumerations.h"
#include "mark.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tavelinUtils {

/// The texts of an MPC report's header lines, in the order of the lines.
struct TMPCReportHeader
{
    std::string COD = "500"; ///< observatory code
    std::string CON{};       ///< contact
    std::string OBS{};       ///< observers
    std::string MEA{};       ///< measurers
    std::string COM{};       ///< comment
    std::string TEL{};       ///< telescope
    std::string ACK{};       ///< acknowledgement
    std::string AC2{};       ///< its address
    std::string NET{};       ///< star catalogue
    bool HeaderOn = true;    ///< carried, as is the next
    bool HeaderFlag2 = false;
};

/// Residuals of a track; carried.
struct TTrackResid
{
    double Value1 = 0;
    double Value2 = 0;
    double Value3 = 0;
    double Value4 = 0;
    std::vector<double> List1{};
    std::vector<double> List2{};
    std::vector<double> List3{};
    std::vector<double> List4{};
};

/// What an inter-frame measurement adds to a mark.
struct TInterBlob
{
    double m_MPC = 0;
    double Value2 = -1.0; ///< where an ephemeris is joined: its right ascension, degrees
    double Value3 = -1.0; ///< and its declination, degrees
};

/// A position out of the column `Cast`.
struct TCasts
{
    double RA = 0;
    double DE = 0;
    double JD = 0;
};

/// The head of a track. Speeds V_ra, V_de and V are in arcseconds per minute, X0, Y0 in pixels, Vx, Vy in
/// pixels per frame, PA in degrees. The fields Head* are only carried.
struct THeadTrVtor
{
    std::string QRVName{};    ///< name of the object
    std::string NORAD{};      ///< second designation; a copy of the name where a format has none
    std::string MPCChecker{}; ///< answer of the MPC checker
    std::string HeadText1{};
    std::string HeadText2{}; ///< the two object numbers of SSMAS
    std::string HeadText3{};
    std::string telescope = "telescope";
    std::string originator = "observatory";
    std::string REFERENCE_FRAME = "ICRF";
    std::string Series{}; ///< label of the series; the last part of an automatic name
    double HeadValue1 = 0;
    double HeadValue2 = 0;
    double HeadValue3 = 0;
    double X0 = 0;
    double Y0 = 0;
    double Vx = 0;
    double Vy = 0;
    double HeadValue4 = 0;
    double HeadValue5 = 0;
    TTrackResid ResidFirst{};
    double HeadValue6 = 0;
    double HeadValue7 = 0;
    double HeadValue8 = 0;
    double V_ra = 0;
    double V_de = 0;
    double V = 0;
    double HeadValue9 = 0;
    TTrackResid ResidSecond{};
    double DispX = 0;
    double DispY = 0;
    double DispXY = 0;
    double HeadValue10 = 0;
    double HeadValue11 = 0;
    double LymX = 0;
    double LymY = 0;
    double LymXY = 0;
    double m_m = 0;   ///< mean magnitude
    double m_rms = 0; ///< and its rms
    double PA = 0;    ///< position angle of the motion
    double HeadValue12 = 0;
    double Angle_rms = 0;
    double Length_rms = 0;
    double HeadValue13 = 0;
    double HeadValue14 = 0;
    double HeadValue15 = 0;
    double HeadValue16 = 0;
    double HeadValue17 = 0;
    double HeadValue18 = 0;
    double HeadValue19 = 0;
    double HeadValue20 = 0;
    double HeadValue21 = 0;
    double HeadValue22 = 0;
    double HeadValue23 = 0;
    double HeadValue24 = 0;
    double FindOrb = 999.0; ///< residual of the orbit fit, arcseconds; 999.0 means not computed
    int N = 0;              ///< number of the track in its list
    int NMarks = 0;         ///< number of marks, as a track table says
    THowMakeTr TrMade = THowMakeTr::STROB;
    int HeadInt = 0;
    TMPCReportHeader MPCHeader{};
    std::string ObsCode = "aavso"; ///< observer code of the AAVSO report
    std::string SourceFile{};      ///< the track table that the track came from
    std::string ResidFile{};       ///< the source of the residuals
};

/// The track of one object. InterBlobs, Candidates and Cast have one entry for each mark only where a
/// track table filled them: look at their sizes before you index them by mark.
struct TrackVtorichka : THeadTrVtor
{
    std::vector<TRecLabelPervichka_File> Marks{};
    std::vector<TInterBlob> InterBlobs{};
    std::vector<std::string> Candidates{};
    std::vector<std::string> Cast{};
};

/// Clears the computed part of a head: DispX to Length_rms, HeadValue1, HeadValue2, N and HeadInt become 0,
/// and the track counts as made by hand (MANUA). Everything else stays.
void SetNilHeadTrack(TrackVtorichka& track);

/// The order of tracks by the bytes of MPCChecker.
bool SortTrackByName(const TrackVtorichka& a, const TrackVtorichka& b);

/// How many marks the tracks have together.
std::size_t countMarks(const std::vector<TrackVtorichka>& tracks);

} // namespace tavelinUtils
