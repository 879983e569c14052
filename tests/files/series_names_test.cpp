#include "files/series_names.h"

#include <gtest/gtest.h>

#include <string>

using namespace tavelinUtils;

// The parts of a record come in its order, and each of them is named here: one more, one less or another
// order does not compile or fails.

TEST(SeriesNames, Subfolders)
{
    const TSubfolders names;
    EXPECT_EQ(names.tavelinFolder, "tavelin");
    EXPECT_EQ(names.cosmFolder, "cosm");
    EXPECT_EQ(names.dataPOFolder, "dataPO");
    EXPECT_EQ(names.dataVOFolder, "dataVO");
    EXPECT_EQ(names.dataFolder, "data");
    EXPECT_EQ(names.mfitsFolder, "mfits");
    EXPECT_EQ(names.logsFolder, "logs");
    EXPECT_EQ(names.lightcurvesFolder, "lightcurves");
    EXPECT_EQ(names.lctasksFolder, "lctasks");
    EXPECT_EQ(names.tmpFolder, "tmp");
    EXPECT_EQ(names.reportsFolder, "reports");
    EXPECT_EQ(names.tempUnpackFolder, "temp-unpack");
    EXPECT_EQ(names.packFolder, "pack");
    EXPECT_EQ(names.stackTmpFolder, "stack_tmp");
    EXPECT_EQ(names.stackedFolder, "stacked");
    EXPECT_EQ(names.vomarFolder, "vomar");
    EXPECT_EQ(names.vomarLogsFolder, "logs");
    EXPECT_EQ(names.vomarConfFolder, "conf");
}

TEST(SeriesNames, OrderOfSubfolders)
{
    const auto [tavelin, cosm, dataPO, dataVO, data, mfits, logs, lightcurves, lctasks, tmp, reports,
                tempUnpack, pack, stackTmp, stacked, vomar, vomarLogs, vomarConf] = TSubfolders{};
    const std::string names[] = {tavelin, cosm,        dataPO,  dataVO, data,      mfits,
                                 logs,    lightcurves, lctasks, tmp,    reports,   tempUnpack,
                                 pack,    stackTmp,    stacked, vomar,  vomarLogs, vomarConf};
    const char* const expected[] = {"tavelin", "cosm",        "dataPO",  "dataVO", "data",    "mfits",
                                    "logs",    "lightcurves", "lctasks", "tmp",    "reports", "temp-unpack",
                                    "pack",    "stack_tmp",   "stacked", "vomar",  "logs",    "conf"};
    for (int i = 0; i < 18; ++i) {
        EXPECT_EQ(names[i], expected[i]) << i;
    }
}

TEST(SeriesNames, Output)
{
    const TOutput names;
    EXPECT_EQ(names.processLog, "process.log");
    EXPECT_EQ(names.objLightcurveQrv, "obj-lightcurve-qrv.txt");
    EXPECT_EQ(names.objAavsoVsp, "obj-aavso-vsp.txt");
    EXPECT_EQ(names.objVarstarsVsx, "obj-varstars-vsx.txt");
    EXPECT_EQ(names.objAsteroidsQrv, "obj-asteroids-qrv.txt");
    EXPECT_EQ(names.objAsteroidsMpc, "obj-asteroids-mpc.txt");
    EXPECT_EQ(names.objSatellitesQrv, "obj-satellites-qrv.txt");
    EXPECT_EQ(names.objSatellitesCat, "obj-satellites-cat.txt");
    EXPECT_EQ(names.rptAsteroidsMpcAuto, "rpt-asteroids-mpc-auto.txt");
    EXPECT_EQ(names.representative, "representative.bin");
    EXPECT_EQ(names.vkInd, "VKInd.txt");
}

TEST(SeriesNames, OrderOfOutput)
{
    const auto [log, lightcurve, aavso, varstars, asteroidsQrv, asteroidsMpc, satellitesQrv, satellitesCat,
                report, representative, vkInd] = TOutput{};
    EXPECT_EQ(log, "process.log");
    EXPECT_EQ(lightcurve, "obj-lightcurve-qrv.txt");
    EXPECT_EQ(aavso, "obj-aavso-vsp.txt");
    EXPECT_EQ(varstars, "obj-varstars-vsx.txt");
    EXPECT_EQ(asteroidsQrv, "obj-asteroids-qrv.txt");
    EXPECT_EQ(asteroidsMpc, "obj-asteroids-mpc.txt");
    EXPECT_EQ(satellitesQrv, "obj-satellites-qrv.txt");
    EXPECT_EQ(satellitesCat, "obj-satellites-cat.txt");
    EXPECT_EQ(report, "rpt-asteroids-mpc-auto.txt");
    EXPECT_EQ(representative, "representative.bin");
    EXPECT_EQ(vkInd, "VKInd.txt");
}

TEST(SeriesNames, Extension)
{
    const TExtension names;
    EXPECT_EQ(names.stepPrefix, "STEP-");
    EXPECT_EQ(names.fqrvPrefix, "FQRV-");
    EXPECT_EQ(names.stepSuperPrefix, "STEP-SUPER-");
    EXPECT_EQ(names.pixobjExt, ".pixobj");
    EXPECT_EQ(names.fittingblobExt, ".fittingblob");
    EXPECT_EQ(names.binExt, ".bin");
    EXPECT_EQ(names.tableblobExt, ".tableblob");
    EXPECT_EQ(names.hotExt, ".hot");
    EXPECT_EQ(names.coldExt, ".cold");
    EXPECT_EQ(names.resultExt, ".result");
    EXPECT_EQ(names.wcsxmlExt, ".wcsxml");
}

TEST(SeriesNames, OrderOfExtension)
{
    const auto [step, fqrv, stepSuper, pixobj, fittingblob, bin, tableblob, hot, cold, result, wcsxml] =
        TExtension{};
    EXPECT_EQ(step, "STEP-");
    EXPECT_EQ(fqrv, "FQRV-");
    EXPECT_EQ(stepSuper, "STEP-SUPER-");
    EXPECT_EQ(pixobj, ".pixobj");
    EXPECT_EQ(fittingblob, ".fittingblob");
    EXPECT_EQ(bin, ".bin");
    EXPECT_EQ(tableblob, ".tableblob");
    EXPECT_EQ(hot, ".hot");
    EXPECT_EQ(cold, ".cold");
    EXPECT_EQ(result, ".result");
    EXPECT_EQ(wcsxml, ".wcsxml");
}

TEST(SeriesNames, CopiesStandAlone)
{
    TSubfolders folders;
    const TSubfolders copy = folders;
    folders.tavelinFolder = "other";
    EXPECT_EQ(copy.tavelinFolder, "tavelin");
    EXPECT_EQ(TSubfolders{}.tavelinFolder, "tavelin");
}
