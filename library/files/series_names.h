// Names of the folders and files of a series, which every tool of the pipeline agrees on.

#pragma once

#include "../export.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// Folders of a series. The last three are those of the multi-series tool; "logs" is there twice on purpose.
struct TSubfolders
{
    std::string tavelinFolder = "tavelin";
    std::string cosmFolder = "cosm";
    std::string dataPOFolder = "dataPO";
    std::string dataVOFolder = "dataVO";
    std::string dataFolder = "data";
    std::string mfitsFolder = "mfits";
    std::string logsFolder = "logs";
    std::string lightcurvesFolder = "lightcurves";
    std::string lctasksFolder = "lctasks";
    std::string tmpFolder = "tmp";
    std::string reportsFolder = "reports";
    std::string tempUnpackFolder = "temp-unpack";
    std::string packFolder = "pack";
    std::string stackTmpFolder = "stack_tmp";
    std::string stackedFolder = "stacked";
    std::string vomarFolder = "vomar";
    std::string vomarLogsFolder = "logs";
    std::string vomarConfFolder = "conf";
};

/// Files that the pipeline leaves in a series.
struct TOutput
{
    std::string processLog = "process.log";
    std::string objLightcurveQrv = "obj-lightcurve-qrv.txt";
    std::string objAavsoVsp = "obj-aavso-vsp.txt";
    std::string objVarstarsVsx = "obj-varstars-vsx.txt";
    std::string objAsteroidsQrv = "obj-asteroids-qrv.txt";
    std::string objAsteroidsMpc = "obj-asteroids-mpc.txt";
    std::string objSatellitesQrv = "obj-satellites-qrv.txt";
    std::string objSatellitesCat = "obj-satellites-cat.txt";
    std::string rptAsteroidsMpcAuto = "rpt-asteroids-mpc-auto.txt";
    std::string representative = "representative.bin";
    std::string vkInd = "VKInd.txt";
};

/// Prefixes of a frame's name and extensions of the files of a frame.
struct TExtension
{
    std::string stepPrefix = "STEP-";
    std::string fqrvPrefix = "FQRV-";
    std::string stepSuperPrefix = "STEP-SUPER-";
    std::string pixobjExt = ".pixobj";
    std::string fittingblobExt = ".fittingblob";
    std::string binExt = ".bin";
    std::string tableblobExt = ".tableblob";
    std::string hotExt = ".hot";
    std::string coldExt = ".cold";
    std::string resultExt = ".result";
    std::string wcsxmlExt = ".wcsxml";
};

} // namespace tavelinUtils
