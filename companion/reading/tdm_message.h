// TDM message: the rules of the CCSDS Tracking Data Message for its lines or elements, whichever form it has.
//
//   message.openMetadata(place);
//   message.value("TIME_SYSTEM", "UTC", place);
//   message.openData(place);
//   message.record("MAG", "2016-06-11T08:20:14.4", "21.1", place);

#pragma once

#include "reading/line_checker.h"
#include "receivers/tdm_keys.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace companion {

/// A place of a message: a line and a stretch of it.
struct TdmPlace
{
    std::size_t line = 0;
    std::string_view text{}; ///< of the line
    Stretch stretch{};
};

/// Takes a message part by part and gives findings of what the standard does not allow.
class TdmMessage
{
public:
    /// Of the text form, or of a document, of which its schemas speak too.
    TdmMessage(LintOutput& output, bool ofDocument) : out(output), isDocument(ofDocument)
    {
    }

    /// The version that the message states.
    void version(std::string_view text, const TdmPlace& place);
    /// The header begins.
    void openHeader();
    /// A segment begins, with its metadata.
    void openMetadata(const TdmPlace& place);
    /// The metadata of the segment are complete.
    void closeMetadata(const TdmPlace& place);
    /// The data of the segment begin.
    void openData(const TdmPlace& place);
    /// The segment is complete.
    void closeData(const TdmPlace& place);
    /// The message is complete.
    void close(const TdmPlace& place);

    /// A key of the header or of metadata.
    void value(std::string_view key, std::string_view text, const TdmPlace& place);
    /// A key of data.
    void record(std::string_view key, std::string_view epoch, std::string_view number, const TdmPlace& place);
    /// A comment.
    void comment(const TdmPlace& place);
    /// A word that is no key, or one that is not where it may be.
    void otherKey(std::string_view key, const TdmPlace& place);

    /// Gives the finding of a key.
    void tell(std::string_view key, const std::string& why, const TdmPlace& place);

private:
    enum class Part
    {
        front,
        header,
        metadata,
        betweenParts,
        data,
        betweenSegments
    };

    // What was last said of a key of data in the segment.
    struct LastRecord
    {
        bool isKnown = false;
        TdmMoment moment{};
    };

    // A moment of the metadata, to be compared with the data.
    struct Bound
    {
        std::size_t line = 0;
        std::string text{};
        Stretch stretch{};
        std::string epoch{};
    };

    bool hasKey(std::string_view key) const;
    bool isIn(TdmPart wanted) const;
    const TdmKey* keyOfPart(std::string_view key, const TdmPlace& place);
    std::string valueOf(std::string_view key) const;
    void checkDemands(const TdmPlace& place);
    void checkOrder(const TdmKey& row, std::string_view key, const TdmPlace& place);
    void checkValue(const TdmKey& row, std::string_view key, std::string_view text, const TdmPlace& place);
    void checkWord(const TdmKey& row, std::string_view key, std::string_view text, const TdmPlace& place);
    void checkPath(std::string_view key, std::string_view text, const TdmPlace& place);
    void checkNumeral(const TdmKey& row, std::string_view key, std::string_view text, const TdmPlace& place);
    void checkNames(std::string_view key, std::string_view text, const TdmPlace& place);
    void checkNeeds(std::string_view key, const TdmPlace& place);
    void checkTime(std::string_view key, std::string_view epoch, const TdmPlace& place);
    void checkMoment(std::string_view key, std::string_view epoch, const TdmPlace& place);
    void checkNumber(const TdmKey& row, std::string_view key, std::string_view number, const TdmPlace& place);
    void checkRange(const TdmKey& row, std::string_view key, std::string_view number, const TdmPlace& place);
    void checkVersion(const TdmKey& row, const TdmPlace& place);
    void checkBound(const Bound& bound, const char* key, const TdmMoment& wanted, const char* is);

    LintOutput& out;
    bool isDocument;
    Part part = Part::front;
    bool isOld = false; // of a version before 2.0
    bool isToldOfVersion = false;
    bool mayComment = false;
    std::size_t segments = 0;
    std::vector<std::pair<std::string, std::string>> said{}; // keys and values of the present part
    bool isToldOfNeeds = false;
    std::map<std::string, LastRecord, std::less<>> last{};
    std::size_t records = 0; // of the segment
    TdmMoment earliest{};
    TdmMoment latest{};
    Bound start{};
    Bound stop{};
};

} // namespace companion
