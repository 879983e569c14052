// Settings of the work between frames: asteroids, representatives, satellites, stacking.

#pragma once

#include "../export.h"
#include "../records/element_set.h"
#include "../records/enumerations.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The search for moving objects. The members from TieFrames on have no key: they are written to the
/// parameter files of the search for fast objects.
struct TVO
{
    double mpc_ident_angle = 15.0;
    double mpc_load_mag = 25.0;
    double thresh_find_orb = 1.0;
    bool use_find_orb = false;
    bool DoDetectionSlow = false;
    bool DoDetectionHough = false;
    bool DoDetectionFast = false;
    std::string MakeTracksOnFrames{};
    double DispersionThresholdsResid = 0;
    double DispersionThresholdsSumResid = 0;
    double DispersionThresholdsMagnitudeDisp = 0;
    double ThresholdFSignificance = 0;
    double ThresholdSNR3segment = 0;
    double VelocityPointThreshold2 = 0;
    double VelocityPointThreshold3 = 0;
    TSpeedLimit TypeSpeedLimit{2}; ///< 2 means no known word
    double speedlimit = 200.0;
    double confstrobe = 10.0;
    double rms_angle = 20.0;
    double corr_meaangle_traangle = 360.0;
    double snr_segment = 0;
    double snr_peak = 0;
    double dispersion_xy = 1.25;
    double dispersion_mag = 1.5;
    bool only_stroke = true;
    bool allow_plato = true;
    int TieFrames = 0;
    int RejectFrames = 0;
    double MinSpeed = 0;
    double MaxSpeed = 0;
    double Strob2Res = 0;
    double BlobLengthRMS = 0;
    double BlobLengthKoef = 0;
    double DubAngle = 0;
    double DubVelocity = 0;
    double DubPosition = 0;
};

/// The representatives of the frames' blobs (IC).
struct TInterIC
{
    double DmThreshold = 2.0;
    double RadiusOfFixidity = 2.0;
    std::string MakeICFromFrames{};
};

/// Satellites, and the element sets that they are identified with.
struct TInterSat
{
    bool DoDetectionGEO = false;
    bool DoDetectionLEO = false;
    double deltaSpeedSat = 5.0;
    double VelocityFast = 200.0;
    double maxSpeedHough = 30.0;
    double minSpeedHough = 2.0;
    double identification_radius_leo = 4.0;
    double identification_radius_geo = 6.0;
    std::vector<TTLEstr> TLEs{};
};

/// Stacking of frames. The members after snr_peak have no key: they are carried for the module that stacks.
struct TStacking
{
    bool run_stacking = true;
    bool subseries_autodetermination = true;
    bool search_objects = false;
    bool useAllFrames = true;
    double subseries_time_coefficient = 5.0;
    int userSubseries = 3;
    int rangeX = 5;
    int rangeY = 5;
    bool horizon_request = true;
    double pa = 0;
    double velocity = 0;
    double rms_x = 0.5;
    double rms_xy = 0.7;
    double rms_m = 1.0;
    double snr_peak = 3.0;
    int Int1 = 9;
    int Int2 = 20;
    int Int3 = 2;
    int Int4 = 25;
    double Value1 = 5.0;
    double Value2 = 999.0;
};

} // namespace tavelinUtils
