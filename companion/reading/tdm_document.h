// TDM document: a tracking data message as its parts, whether it is text or XML and however it is laid out.

#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A key of the header or of metadata with its value; a COMMENT has its text.
struct TdmEntry
{
    std::string key;
    std::string value;
    std::size_t line = 0;
};

/// Which value of a mark a record gives.
enum class TdmQuantity : unsigned char
{
    angle1,
    angle2,
    magnitude
};

/// The key of a quantity: ANGLE_1, ANGLE_2 or MAG.
std::string_view keyOf(TdmQuantity quantity);

/// A record of an angle or a magnitude. Its texts are views into the document.
struct TdmDatum
{
    TdmQuantity quantity;
    std::size_t line;
    std::string_view epoch;
    std::string_view value;
};

/// A segment.
struct TdmSegment
{
    std::size_t line = 0;
    std::vector<TdmEntry> metadata{};
    std::vector<std::string> comments{}; ///< of its data
    std::vector<TdmDatum> data{};

    /// The value of a key of the metadata, the last where it is given several times; nothing where it is not.
    std::optional<std::string> valueOf(std::string_view key) const;
};

/// A message.
struct TdmDocument
{
    std::vector<TdmEntry> header{}; ///< CCSDS_TDM_VERS is the first where the message states it
    std::vector<TdmSegment> segments{};
    std::map<std::string, std::size_t> others{}; ///< records of other quantities, by their keys
    std::shared_ptr<const void> kept{};          ///< what the texts of records are views into
};

/// A message as text, which is to stay as long as the document.
TdmDocument tdmOfText(std::string_view text);

/// A message as XML; nothing where it is not well-formed.
std::optional<TdmDocument> tdmOfXml(std::string_view text);

} // namespace companion
