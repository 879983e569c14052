// Series on disk for the tests of reports, and a bench that runs a report on them.

#pragma once

#include "multi_report.h"

#include "support/tasks.h"
#include "support/temporary_folder.h"
#include "support/watched_works.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace report_series {

using Names = std::set<std::string>;
using Tracks = std::vector<tavelinUtils::TrackVtorichka>;

/// A mark of a table: its time on 25 February 2023 and its magnitude.
struct TableMark
{
    std::string time;
    std::string m;
};

/// The lines of a track in a table, with the line that ends it. Every mark is at 1h and half a degree south.
inline std::string track(const std::string& name, const std::string& checker, const std::string& norad,
                         const std::vector<TableMark>& marks)
{
    std::string text;
    for (const TableMark& mark : marks) {
        text += name + "\t" + checker + "\t" + norad + "\t2023-02-25\t" + mark.time + "\t15.0\t-0.5\t" +
                mark.m + "\n";
    }
    return text + "---\n";
}

/// A track of one name that nobody has identified, with a mark at noon.
inline std::string nameless(const std::string& name)
{
    return track(name, "", "", {{"12:00:00", "9.5"}});
}

/// A whole table of the tracks.
inline std::string table(const std::string& tracks)
{
    return "v2\nQRVName:Text\tMPCChecker:Text\tNORAD:Text\tdate:Date\ttime:Time\tRA:Float:deg\tDE:Float:"
           "deg\tm:"
           "Float:mag\n" +
           tracks;
}

/// A configuration of the service, with further elements.
inline std::string configuration(const std::string& service, const std::string& inner = "")
{
    return "<root><Service>" + service + "</Service>" + inner + "</root>\n";
}

/// The element of a configuration that holds the observatory code.
inline std::string withCode(const std::string& code)
{
    return "<ReportSettings><MPCReport><MPCcode>" + code + "</MPCcode></MPCReport></ReportSettings>";
}

/// A line of an MPC report: the name in its twelve columns, day with five decimals, magnitude, code.
inline std::string line(const std::string& name, const std::string& day, const std::string& m,
                        const std::string& code = "500")
{
    return name + "  C2023 02 " + day + " 01 00 00.00 -00 30 00.0          " + m + " R      " + code + "\n";
}

/// Where the table of a series is, below its folder.
inline const std::string tableInSeries = "/tavelin/dataVO/obj.txt";

/// A report task on series folders of its own; its output goes below out/.
class Bench
{
public:
    tavelinUtils::TConvMea task;

    Bench()
    {
        std::filesystem::create_directory(folder / "out");
        task.inputformat = "vomar";
        task.outputformat = "mpc";
        task.outputextension = "txt";
        task.out_dir = folder / "out/";
        task.longname = false;
        task.toSeparateFile = "allobjects";
    }

    /// Adds a series of that table and, unless it is empty, that configuration.
    tavelinUtils::TSeria2& add(const std::string& name, const std::string& tracks,
                               const std::string& conf = "")
    {
        const std::string series = folder / name;
        std::filesystem::create_directories(series + "/tavelin/dataVO");
        makeFile(series + tableInSeries, table(tracks));
        if (!conf.empty()) {
            makeFile(series + "/" + name + ".conf", conf);
        }
        return addPath(series + tableInSeries);
    }

    /// Adds a series of a table at the path, whether there is one or not.
    tavelinUtils::TSeria2& addPath(const std::string& path)
    {
        tavelinUtils::TSeria2 seria;
        seria.path = path;
        seria.filter = "R";
        seria.telescope = "T1";
        task.paths.push_back(seria);
        return task.paths.back();
    }

    /// Runs the report; expects code 0 and those file names, in this order.
    void expectWell(const std::vector<std::string>& names)
    {
        expect(0, names);
    }

    /// Runs the report; expects code -1 and the file names that were tried nevertheless.
    void expectLeftOut(const std::vector<std::string>& names)
    {
        expect(-1, names);
    }

    /// Runs the report; the tracks as they were handed to the writers.
    std::vector<Tracks> tracks() const
    {
        std::vector<Tracks> files;
        EXPECT_EQ(CreateMultiReport(task, watchedWorks(files)).Code, 0);
        return files;
    }

    /// Runs the report; the names of the tracks of all files.
    std::vector<std::string> trackNames() const
    {
        std::vector<std::string> names;
        for (const Tracks& list : tracks()) {
            for (const tavelinUtils::TrackVtorichka& one : list) {
                names.push_back(one.QRVName);
            }
        }
        return names;
    }

    /// The files below out/.
    Names written() const
    {
        return filesBelow(folder / "out");
    }

    /// The bytes of a file below out/.
    std::string bytes(const std::string& name) const
    {
        return bytesOf(folder / ("out/" + name));
    }

    /// A path in the folder that holds the series and out/.
    std::string operator/(const std::string& name) const
    {
        return folder / name;
    }

private:
    void expect(int code, const std::vector<std::string>& names)
    {
        const tavelinUtils::TFuncRes result = CreateMultiReport(task);
        EXPECT_EQ(result.Code, code);
        EXPECT_EQ(result.Comment, "OK");
        std::string description;
        for (const std::string& name : names) {
            description += task.out_dir + name + ";";
        }
        EXPECT_EQ(result.Description, description);
    }

    TemporaryFolder folder;
};

using Texts = std::vector<std::string>;

/// Adds two series: A is in both, its track of the first has a gap of an hour, and that of the second has one
/// mark.
inline void addTwoSeries(Bench& bench)
{
    bench.add("s1", track("A", "", "",
                          {{"12:00:00", "1"},
                           {"12:10:00", "2"},
                           {"12:20:00", "3"},
                           {"13:20:00", "4"},
                           {"13:30:00", "5"},
                           {"13:40:00", "6"}}) +
                        track("B", "", "", {{"12:00:00", "7"}, {"12:10:00", "8"}}));
    bench.add("s2", track("A", "", "", {{"12:10:00", "9"}})).telescope = "T2";
}

/// The names A and B as lines of an MPC report show them.
inline const std::string A = "           A";
inline const std::string B = "           B";

} // namespace report_series
