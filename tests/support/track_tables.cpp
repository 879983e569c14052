#include "support/track_tables.h"

#include "formats/track_table.h"

#include "support/places.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace tavelinUtils;

const std::string headerOf62Columns =
    "N:Int\tNBl:Int\tQRVName:Text\tdate:Date\ttime:Time\tmjd:Float:day\tRA:Float:deg\tDE:Float:deg\t"
    "m:Float:mag\tm_m:Float:mag\tm_rms:Float:mag\tmInstr:Float:mag\tmInstr1000:Float:mag\tm_MPC:Float:mag\t"
    "MPCChecker:Text\tNORAD:Text\tX_bf:Float:pix\tY_bf:Float:pix\tX_f:Float:pix\tY_f:Float:pix\t"
    "FindOrb:Float:arcsec\tLymX:Float\tLymY:Float\tLymXY:Float\tDispX:Float:pix\tDispY:Float:pix\t"
    "DispXY:Float:pix\tX0:Float:pix\tY0:Float:pix\tVx:Float:pix/fr\tVy:Float:pix/fr\tV:Float:arcsec/min\t"
    "PA:Float:deg\tV_ra:Float:arcsec/min\tV_de:Float:arcsec/min\tSNcorrnotnorm:Float\tcorrnorm:Float\t"
    "A:Float\tAsegm:Float\tAstrob:Float\tSNRafit:Float\tSNRasegm:Float\tSNRpeak:Float\tFWHM:Float:pix\t"
    "Radius:Float\tSigFit:Float:pix\tRMSFit:Float:ADU\tAngle:Float\tAngle_rms:Float\tExc:Float\t"
    "Length:Float\tLength_rms:Float\tWidth:Float\tiF:Int\tiB:Int\tQRVID:Text\tTrMade:Text\tNEORatio:Float\t"
    "AccurRaDe:Float:arcsec\tMPC_RMS:Float\tHA:Float\tDraw:Bool";

TrackVtorichka readTrack(const std::string& header, std::vector<std::string> lines)
{
    lines.insert(lines.begin(), {"v2", header});
    lines.push_back("---");
    const std::vector<TrackVtorichka> tracks = lListTrack(lines);
    EXPECT_EQ(tracks.size(), 1U);
    return tracks.empty() ? TrackVtorichka() : tracks[0];
}

TRecLabelPervichka_File readMark(const std::string& header, const std::string& line)
{
    const TrackVtorichka track = readTrack(header, {line});
    EXPECT_EQ(track.Marks.size(), 1U);
    return track.Marks.empty() ? TRecLabelPervichka_File() : track.Marks[0];
}

std::vector<TrackVtorichka> readTable(const std::string& bytes)
{
    return readBy([](const std::string& path) { return lListTrack(path); }, bytes);
}

std::vector<int> iBsOf(const TrackVtorichka& track)
{
    std::vector<int> values;
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        values.push_back(mark.iB);
    }
    return values;
}

std::vector<std::vector<int>> iBsOf(const std::vector<TrackVtorichka>& tracks)
{
    std::vector<std::vector<int>> values;
    for (const TrackVtorichka& track : tracks) {
        values.push_back(iBsOf(track));
    }
    return values;
}

std::string writtenLines(const TrackVtorichka& track, const std::string& header)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "");
    sTrack(folder / "a.txt", "/data/night25/t.txt", "", "", 5, false, track, "given", header, false);
    return bytesOf(folder / "a.txt");
}

std::string writtenTable(const std::vector<TrackVtorichka>& tracks, const std::string& header)
{
    return writtenBy([&](const std::string& path) {
        sListTrack(path, "/data/night25/t.txt", "", tracks, "", false, true, header);
    });
}

std::string satelliteTable()
{
    return fixture("series/sat_seesat_20031120/tavelin/dataVO/obj-satellites-cat.txt");
}
