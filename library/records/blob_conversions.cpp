#include "records/blob_conversions.h"

#include "base/numbers.h"

#include <algorithm>
#include <cstddef>

namespace tavelinUtils {
namespace {

using Marks = std::vector<TRecLabelPervichka_File>;

// A list of the conversions of each record of a list.
template <class Record, class Convert>
auto converted(const std::vector<Record>& records, Convert convert)
{
    std::vector<decltype(convert(records.front()))> made;
    made.reserve(records.size());
    for (const Record& record : records) {
        made.push_back(convert(record));
    }
    return made;
}

// Marks are large, so they are built in place and then filled one by one.
template <class Record, class Fill>
Marks filledMarks(const std::vector<Record>& records, Fill fill)
{
    Marks marks(records.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
        fill(marks[i], records[i]);
    }
    return marks;
}

template <class From, class To>
void copyShape(const From& from, To& to)
{
    to.Exc = from.Exc;
    to.Angle = from.Angle;
    to.Length = from.Length;
    to.Width = from.Width;
    to.Radius = from.Radius;
}

// Amplitudes, noise and the measures of the fit that have one meaning in all records.
template <class From, class To>
void copySignal(const From& from, To& to)
{
    to.SNRafit = from.SNRafit;
    to.SNRasegm = from.SNRasegm;
    to.SNRpeak = from.SNRpeak;
    to.FWHM = from.FWHM;
    to.SigFit = from.SigFit;
    to.SNcorrnotnorm = from.SNcorrnotnorm;
    to.corrnorm = from.corrnorm;
    to.A = from.A;
    to.Asegm = from.Asegm;
}

template <class From, class To>
void copyRefValues(const From& from, To& to)
{
    to.RefValue1 = from.RefValue1;
    to.RefValue2 = from.RefValue2;
    to.RefValue3 = from.RefValue3;
    to.RefValue4 = from.RefValue4;
    to.RefValue5 = from.RefValue5;
    to.RefValue6 = from.RefValue6;
    to.RefValue7 = from.RefValue7;
    to.RefValue8 = from.RefValue8;
    to.RefValue9 = from.RefValue9;
}

// The numbers that a mark and a row of a blob table only carry.
template <class From, class To>
void copyCarriedNumbers(const From& from, To& to)
{
    to.AuxInt1 = from.AuxInt1;
    to.AuxInt2 = from.AuxInt2;
    to.AuxInt3 = from.AuxInt3;
    to.LinkIndex = from.LinkIndex;
    to.AuxValue = from.AuxValue;
    to.Tag1 = from.Tag1;
    to.Tag2 = from.Tag2;
    to.Tag3 = from.Tag3;
    to.Tag4 = from.Tag4;
}

// The fields that a row of a blob table shares with the mark; only code and kind have rules of their own.
template <class From, class To>
void copyTableFields(const From& from, To& to)
{
    to.X_bf = from.X_bf;
    to.Y_bf = from.Y_bf;
    to.X_f = from.X_f;
    to.Y_f = from.Y_f;
    to.RMSFit = from.RMSFit;
    to.Astrob = from.Astrob;
    to.RA = from.RA;
    to.DE = from.DE;
    to.m = from.m;
    copyShape(from, to);
    copySignal(from, to);
    copyRefValues(from, to);
    copyCarriedNumbers(from, to);
}

void fillFromTable(TRecLabelPervichka_File& mark, const TBlobTable& row, int date, double time)
{
    // The codes of whole strokes and stars, 6 to 9, do not come back from a table.
    const bool comesBack = row.Code >= BlobCode::pltEr && row.Code <= BlobCode::partStroke;
    mark.BlobCode = comesBack ? row.Code : BlobCode::ok;
    mark.TypeBlob = IntToTypeBlob(row.TypeBlob);
    copyTableFields(row, mark);
    mark.iFRaw = -1;
    mark.AuxInt4 = -1;
    mark.date = date;
    mark.time = time;
}

template <class Record>
void fillFittedPosition(TRecLabelPervichka_File& mark, const Record& record)
{
    mark.X_bf = record.X;
    mark.Y_bf = record.Y;
    mark.X_f = record.X;
    mark.Y_f = record.Y;
}

void fillObjectPosition(TRecLabelPervichka_File& mark, const TObjKontur& object)
{
    mark.X_bf = object.X;
    mark.Y_bf = object.Y;
}

// A fitted blob in full; its code and kind are plain numbers in one record and words in the other.
template <class Record>
void fillFromFitted(TRecLabelPervichka_File& mark, const Record& record, int date, double time)
{
    fillFittedPosition(mark, record);
    copyShape(record, mark);
    copySignal(record, mark);
    mark.BlobCode = static_cast<BlobCode>(record.BlobCode);
    mark.TypeBlob = IntToTypeBlob(static_cast<int>(record.TypeBlob));
    mark.AuxInt1 = record.Aux1;
    mark.AuxInt2 = record.Aux2;
    mark.AuxInt3 = record.Aux3;
    mark.LinkIndex = record.LinkIndex;
    mark.RMSFit = record.A * record.RMSratio;
    mark.Astrob = record.AstrobCount;
    mark.date = date;
    mark.time = time;
}

// The fields that both forms of a fitted blob only carry.
template <class From, class To>
void copyCarriedOfFitted(const From& from, To& to)
{
    to.Aux1 = from.Aux1;
    to.Aux2 = from.Aux2;
    to.Aux3 = from.Aux3;
    to.Ref1 = from.Ref1;
    to.Ref2 = from.Ref2;
    to.Tail1 = from.Tail1;
    to.Tail2 = from.Tail2;
    to.Tail3 = from.Tail3;
    to.Tail4 = from.Tail4;
    to.Tail5 = from.Tail5;
    to.Tail6 = from.Tail6;
}

// The fields that both forms of a fitted blob share.
template <class From, class To>
void copyFittedFields(const From& from, To& to)
{
    to.X = from.X;
    to.Y = from.Y;
    to.BackMean = from.BackMean;
    to.BackSKO = from.BackSKO;
    to.RMSratio = from.RMSratio;
    to.LinkIndex = from.LinkIndex;
    copyShape(from, to);
    copySignal(from, to);
    copyCarriedOfFitted(from, to);
}

TVOBlobFile compactForm(const TRecLabelPervichka_File& mark)
{
    TVOBlobFile blob;
    blob.X_bf = static_cast<float>(mark.X_bf);
    blob.Y_bf = static_cast<float>(mark.Y_bf);
    blob.RA = static_cast<float>(mark.RA);
    blob.DE = static_cast<float>(mark.DE);
    blob.Length = static_cast<float>(mark.Length);
    blob.Width = static_cast<float>(mark.Width);
    blob.Angle = static_cast<float>(mark.Angle);
    blob.Exc = static_cast<float>(mark.Exc);
    blob.SNRasegm = static_cast<float>(mark.SNRasegm);
    blob.m = static_cast<float>(mark.m);
    blob.date = mark.date;
    blob.time = mark.time;
    return blob;
}

DTSegment segmentOf(const TObjKontur& object)
{
    DTSegment segment{object.X, object.Y, object.Value, {}};
    segment.Points.reserve(object.Area.size());
    for (const pixel& point : object.Area) {
        segment.Points.push_back({point.X, point.Y, point.C});
    }
    return segment;
}

TObjKontur objectOf(const DTSegment& segment)
{
    TObjKontur object;
    object.X = segment.X;
    object.Y = segment.Y;
    object.Value = segment.Value;
    object.Area.reserve(segment.Points.size());
    for (const TSegmentPoint& point : segment.Points) {
        object.Area.push_back({point.X, point.Y, point.Value, 0});
    }
    return object;
}

} // namespace

TBlobTable TRecLabelPervichka_FileToTBlobTable(const TRecLabelPervichka_File& mark)
{
    TBlobTable row;
    row.Code = mark.BlobCode;
    row.TypeBlob = TypeBlobToInt(mark.TypeBlob);
    copyTableFields(mark, row);
    return row;
}

std::vector<TBlobTable> TRecLabelPervichka_FileToTBlobTable(const Marks& marks)
{
    return converted(marks, [](const auto& mark) { return TRecLabelPervichka_FileToTBlobTable(mark); });
}

TRecLabelPervichka_File TBlobTableToTRecLabelPervichka_File(const TBlobTable& row, int date, double time)
{
    TRecLabelPervichka_File mark;
    fillFromTable(mark, row, date, time);
    return mark;
}

Marks TBlobTableToTRecLabelPervichka_File(const std::vector<TBlobTable>& rows, int date, double time)
{
    return filledMarks(rows, [=](auto& mark, const auto& row) { fillFromTable(mark, row, date, time); });
}

TRecLabelPervichka_File TTObjKontur_to_BlobFromQRV(const TObjKontur& object)
{
    TRecLabelPervichka_File mark;
    fillObjectPosition(mark, object);
    return mark;
}

Marks TObjKonturToBlobFromQRV(const std::vector<TObjKontur>& objects)
{
    return filledMarks(objects, fillObjectPosition);
}

TRecLabelPervichka_File VihodFullBranch_file_to_BlobFromQRV(const VihodFullBranch_file& record)
{
    TRecLabelPervichka_File mark;
    fillFittedPosition(mark, record);
    return mark;
}

TRecLabelPervichka_File TVihodExt_to_BlobFromQRV(const VihodExt& record)
{
    TRecLabelPervichka_File mark;
    fillFittedPosition(mark, record);
    return mark;
}

Marks Res_SavoBlobFromQRV(const std::vector<VihodFullBranch_file>& records)
{
    return filledMarks(records, fillFittedPosition<VihodFullBranch_file>);
}

Marks Res_SavoBlobFromQRV(const std::vector<VihodExt>& records)
{
    return filledMarks(records, fillFittedPosition<VihodExt>);
}

Marks TRecTRIoBlobFromQRV(const std::vector<TRecTRI>& points)
{
    return filledMarks(points, [](auto& mark, const auto& point) {
        mark.X_bf = point.X;
        mark.Y_bf = point.Y;
    });
}

Marks BlobFullFIT_To_RecLabelPervichka(std::vector<VihodFullBranch_file> records, int date, double time)
{
    return filledMarks(records,
                       [=](auto& mark, const auto& record) { fillFromFitted(mark, record, date, time); });
}

Marks BlobFullFIT_To_RecLabelPervichka(const std::vector<VihodExt>& records, int date, double time)
{
    return filledMarks(records,
                       [=](auto& mark, const auto& record) { fillFromFitted(mark, record, date, time); });
}

Marks TRecCatLightToTRecLabelPervichka_File(const std::vector<TRecCatLight>& stars)
{
    return filledMarks(stars, [](auto& mark, const auto& star) {
        mark.X_bf = star.X;
        mark.Y_bf = star.Y;
        mark.RA = star.RA;
        mark.DE = star.DE;
        mark.m = star.m;
    });
}

std::vector<TVOBlobFile> TRecLabelPervichkaToTVOBlob(const Marks& marks)
{
    return converted(marks, compactForm);
}

std::vector<std::vector<TVOBlobFile>>
TRecLabelPervichka_FileToTVOBlobFile(const std::vector<THeadBlobs>& frames)
{
    return converted(frames, [](const auto& frame) { return TRecLabelPervichkaToTVOBlob(frame.Marks); });
}

std::vector<std::vector<TVOBlobFile>> TRecLabelPervichka_FileToTVOBlobFile(const std::vector<Marks>& frames)
{
    return converted(frames, TRecLabelPervichkaToTVOBlob);
}

VihodExt VihodFullBranch_To_VihodExt(const VihodFullBranch_file& record, int number)
{
    VihodExt blob;
    copyFittedFields(record, blob);
    blob.AstrobCount = record.AstrobCount;
    blob.PeakType = IntToPeakType(record.PeakType);
    blob.TypeBlob = IntToTypeBlob(record.TypeBlob);
    blob.BlobCode = IntToBlobErrorCode(record.BlobCode);
    blob.BlobNumber = number;
    blob.Peak1.BlobNumber = number;
    return blob;
}

std::vector<VihodExt> VihodFullBranch_To_Res_Sav(std::vector<VihodFullBranch_file> records)
{
    int number = 0;
    return converted(records,
                     [&number](const auto& record) { return VihodFullBranch_To_VihodExt(record, number++); });
}

VihodFullBranch_file VihodExt_To_VihodFullBranch(const VihodExt& record)
{
    VihodFullBranch_file image;
    copyFittedFields(record, image);
    image.AstrobCount = cutToInt(record.AstrobCount);
    image.PeakType = PeakTypeToInt(record.PeakType);
    image.TypeBlob = TypeBlobToInt(record.TypeBlob);
    image.BlobCode = BlobErrorCodeToInt(record.BlobCode);
    return image;
}

std::vector<VihodFullBranch_file> Res_SavTOVihodFullBranch_file(const std::vector<VihodExt>& records)
{
    return converted(records, VihodExt_To_VihodFullBranch);
}

std::vector<DTSegment> TObjKonturToDTSegment(const std::vector<TObjKontur>& objects)
{
    return converted(objects, segmentOf);
}

std::vector<TObjKontur> TObjKonturToDTSegment(const std::vector<DTSegment>& segments)
{
    return converted(segments, objectOf);
}

std::vector<pixel> PixelAperListToPixel(std::vector<pixelAper> pixels)
{
    return converted(pixels, [](const pixelAper& source) { return pixel{source.X, source.Y, 0, 0}; });
}

} // namespace tavelinUtils
