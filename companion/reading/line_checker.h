// Line checker: looks at each line of a file of one format, with what became of it, and says what is wrong
// with it.
//
//   class MeaChecker final : public LineChecker
//   {
//       void line(const CheckedLine& line, LintOutput& out) override
//       {
//           if (line.fate == LineFate::passed) {
//               out.add("V150", {1, line.text.size()}, {{"words", "6 words"}});
//           }
//       }
//   };

#pragma once

#include "findings/finding.h"
#include "formats/line_watch.h"
#include "reading/line_fates.h"
#include "reading/lint.h"
#include "reading/track_times.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A line of a file and what its reader made of it.
struct CheckedLine
{
    std::size_t number = 0;   ///< from 1
    std::string_view text{};  ///< as the reader sees it: without its line end and the tabs before that
    std::string_view bytes{}; ///< all of it up to the line feed
    bool isEnded = true;      ///< by a line feed: only the last line may lack it
    tavelinUtils::LineFate fate = tavelinUtils::LineFate::blank;
    tavelinUtils::PassedReason reason = tavelinUtils::PassedReason::none;
};

/// A stretch of a line.
struct Stretch
{
    std::size_t column = 0;   ///< from 1; 0 where the finding is about the line as a whole
    std::size_t length = 0;   ///< in bytes
    std::string_view field{}; ///< the name of the field, where it is one
};

/// The stretch of a part of a line, which is a view into it.
inline Stretch stretchOf(std::string_view line, std::string_view part, std::string_view field = {})
{
    return {static_cast<std::size_t>(part.data() - line.data()) + 1, part.size(), field};
}

/// What a layer of lint looks at.
enum class LintLayer
{
    reader,  ///< what the reader does with a line
    person,  ///< what a person would read there
    receiver ///< what the receiver would refuse
};

/// The layer that a finding belongs to.
LintLayer layerOf(FindingCode code);

/// Takes the findings of a file's checkers and hands out those that are wanted.
class LintOutput
{
public:
    LintOutput(std::string file, const LintSettings& lintSettings, const LineFates& lineFates,
               const TrackTimes& trackTimes, std::function<void(Finding)> use);

    /// A finding at a stretch of the present line.
    void add(FindingCode code, const Stretch& stretch, FindingValues values = {});

    /// A finding at an earlier line, whose bytes are given. To be called between `hold` and the end.
    void addAt(const CheckedLine& line, FindingCode code, const Stretch& stretch, FindingValues values = {});

    /// A finding of the file as a whole, without a line.
    void addOfFile(FindingCode code, FindingValues values = {});

    /// The finding of an account whose sums do not agree (V490), whatever layers are wanted.
    void mustAgree(const FileAccount& account);

    /// So many marks that the file has are in no track. A finding is to tell of them.
    void lose(std::size_t marks)
    {
        lostMarks += marks;
    }

    /// How many marks are lost.
    std::size_t lost() const
    {
        return lostMarks;
    }

    /// From now on findings wait for the end of the file and are put in the order of lines there: for what
    /// only the end of the file tells.
    void hold();

    /// Whether findings of a layer are wanted: for checkers to leave work out.
    bool wants(LintLayer layer) const;

    /// The path of the file.
    const std::string& file() const
    {
        return path;
    }

    const LintSettings& settings() const
    {
        return wanted;
    }

    /// The fates of all lines, also of those that follow.
    const LineFates& fates() const
    {
        return fatesOfLines;
    }

    /// What the times of the marks of its tracks are like.
    const TrackTimes& times() const
    {
        return timesOfTracks;
    }

    /// What the reader threw for the file as a whole; empty where it did not.
    std::string thrown{};

    /// The next line of the file.
    void begin(const CheckedLine& line);
    /// The end of the file.
    void finish();

private:
    bool isWanted(FindingCode code) const;
    void give(Finding found);

    std::string path;
    const LintSettings& wanted;
    const LineFates& fatesOfLines;
    const TrackTimes& timesOfTracks;
    std::function<void(Finding)> found;
    CheckedLine present{};
    std::size_t lostMarks = 0;
    bool isHolding = false;
    std::vector<Finding> held{};
};

/// Checks the lines of a file.
class LineChecker
{
public:
    virtual ~LineChecker() = default;

    /// Looks at the next line.
    virtual void line(const CheckedLine& line, LintOutput& out) = 0;

    /// Called after the last line.
    virtual void end(LintOutput& /*out*/)
    {
    }
};

/// The bytes of lines, in any format: byte order marks, encodings, control bytes, line ends. `stopsLines` is
/// set where nothing more can be said of the lines.
class EncodingChecker final : public LineChecker
{
public:
    /// Blanks between the fields of a line are no tabs in some formats.
    explicit EncodingChecker(std::string_view format);

    void line(const CheckedLine& line, LintOutput& out) override;
    void end(LintOutput& out) override;

    /// Whether lines of the format cannot be told apart, or not be read.
    bool stopsLines() const
    {
        return stopped;
    }

private:
    void lookAtFront(const CheckedLine& line, LintOutput& out);
    void lookAtEnd(const CheckedLine& line, LintOutput& out);
    void lookAtOddBytes(const CheckedLine& line, LintOutput& out);

    bool tabsAreOdd;
    bool stopped = false;
    bool firstHasReturn = false;
    bool toldMixedEnds = false;
};

/// The checkers of the formats, for the reader and the person. Each has a source of its own and a row in
/// reading/lint.cpp.
std::unique_ptr<LineChecker> meaLines();
std::unique_ptr<LineChecker> telegramLines();
std::unique_ptr<LineChecker> tableLines();
std::unique_ptr<LineChecker> tdmLines();
std::unique_ptr<LineChecker> ssmasLines();
std::unique_ptr<LineChecker> mpcLines();

/// The checkers of what receivers refuse, by their formats.
std::unique_ptr<LineChecker> mpcReceiverLines();
std::unique_ptr<LineChecker> tdmReceiverLines();
std::unique_ptr<LineChecker> tdmXmlReceiverLines();
std::unique_ptr<LineChecker> aavsoReceiverLines();
std::unique_ptr<LineChecker> adesTextLines();
std::unique_ptr<LineChecker> adesXmlLines();

} // namespace companion
