// TDM XML, tracking data as an XML document in the spirit of the CCSDS Tracking Data Message.
//
//   <?xml version="1.0" encoding="UTF-8" ?>
//   <tdm id="CCSDS_TDM_VERS" version="2.0">
//       <header>
//           <CREATION_DATE>0-00-00T00:00:00</CREATION_DATE>
//           <ORIGINATOR>observatory</ORIGINATOR>
//       </header>
//       <body>
//           <segment>
//               <metadata> ... </metadata>
//               <data>
//                   <observation>
//                       <EPOCH>2023-02-25T12:00:00.00000</EPOCH>
//                       <ANGLE_1>15.0000000</ANGLE_1>
//                   </observation>
//                   ...
//
// Published as CCSDS 503.0-B, Tracking Data Message, and CCSDS 505.0-B, its XML form.

#pragma once

#include "../export.h"
#include "../records/track.h"

#include <memory>
#include <string>
#include <vector>

#include <tinyxml.h>

namespace TAVELIN_API tavelinUtils {

/// Writes tracks as sTDMPOLxml does, one after the other (records/track_stream.h). `save` gives what
/// sTDMPOLxml gives.
class TdmXmlSink
{
public:
    /// Opens and removes nothing yet.
    explicit TdmXmlSink(std::string path);

    /// Takes over what the other has to write.
    TdmXmlSink(TdmXmlSink&& other) noexcept;
    ~TdmXmlSink();

    /// Writes a track.
    void add(const TrackVtorichka& track);

    /// Ends the document, once; false where the file cannot be written.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// The same as sTDMxml.
class TdmMarkXmlSink
{
public:
    /// Opens and removes nothing yet.
    explicit TdmMarkXmlSink(std::string path);

    /// Takes over what the other has to write.
    TdmMarkXmlSink(TdmMarkXmlSink&& other) noexcept;
    ~TdmMarkXmlSink();

    /// Writes a track.
    void add(const TrackVtorichka& track);

    /// Ends the document, once; false where the file cannot be written.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// Replaces the file by the document, three observations for each mark: epoch with right ascension, with
/// declination, with magnitude. The originator is that of the first track, "" for an empty list; a track
/// without marks has no segment. False where the file cannot be written.
bool sTDMPOLxml(std::string path, const std::vector<TrackVtorichka>& tracks);

/// Replaces the file by a document of another shape: one observation for each mark, each of whose three
/// values follows its epoch; with the magnitudes' type, and without encoding and version. The reader below is
/// not made for it.
bool sTDMxml(std::string path, const std::vector<TrackVtorichka>& tracks);

/// Appends one track: the first segment of the document. Its second participant goes into NORAD; every
/// other field of the head keeps its default. False, with the list as it was, for a file that cannot be
/// loaded.
bool lTDMxml(std::string path, std::vector<TrackVtorichka>& tracks);

/// Appends the marks of an element's children of that name. A value that an observation lacks is that of
/// those before it; a mark is complete when its magnitude is above -1000.0. A null pointer has no children.
void GetTDMObservations(TiXmlElement* element, std::string tagName,
                        std::vector<TRecLabelPervichka_File>& marks);

} // namespace tavelinUtils
