// Conversions between the blob records of the stages and the mark that is common to all.
//
// Nothing is reported, and empty lists give empty lists. Codes and kinds that pass through integers lose
// values on the way, different ones in each conversion: the pipeline depends on the outcome.

#pragma once

#include "../export.h"
#include "blob.h"
#include "disk_records.h"

#include <vector>

namespace TAVELIN_API tavelinUtils {

/// A mark as a row of a blob table. A kind of blob other than 0, 1, 2 and 6 becomes -1; the code stays.
TBlobTable TRecLabelPervichka_FileToTBlobTable(const TRecLabelPervichka_File& mark);
std::vector<TBlobTable>
TRecLabelPervichka_FileToTBlobTable(const std::vector<TRecLabelPervichka_File>& marks);

/// A row of a blob table as a mark of the given time (MJD: whole day and fraction). The kind as above; a code
/// other than 1 to 5 becomes 0; iFRaw and AuxInt4 are -1.
TRecLabelPervichka_File TBlobTableToTRecLabelPervichka_File(const TBlobTable& row, int date, double time);
std::vector<TRecLabelPervichka_File> TBlobTableToTRecLabelPervichka_File(const std::vector<TBlobTable>& rows,
                                                                         int date, double time);

/// A default mark at the position of an object, before fitting; X_f and Y_f stay 0.
TRecLabelPervichka_File TTObjKontur_to_BlobFromQRV(const TObjKontur& object);
std::vector<TRecLabelPervichka_File> TObjKonturToBlobFromQRV(const std::vector<TObjKontur>& objects);

/// A default mark at the position of a fitted blob, before and after fitting.
TRecLabelPervichka_File VihodFullBranch_file_to_BlobFromQRV(const VihodFullBranch_file& record);
TRecLabelPervichka_File TVihodExt_to_BlobFromQRV(const VihodExt& record);
std::vector<TRecLabelPervichka_File> Res_SavoBlobFromQRV(const std::vector<VihodFullBranch_file>& records);
std::vector<TRecLabelPervichka_File> Res_SavoBlobFromQRV(const std::vector<VihodExt>& records);

/// Default marks at the positions of points, before fitting; X_f and Y_f stay 0.
std::vector<TRecLabelPervichka_File> TRecTRIoBlobFromQRV(const std::vector<TRecTRI>& points);

/// Fitted blobs as marks of one frame, all with its time (MJD: whole day and fraction). RMSFit is A times
/// RMSratio, Astrob the count of strobes; the kind of blob passes as in a blob table, the code as it is.
std::vector<TRecLabelPervichka_File>
BlobFullFIT_To_RecLabelPervichka(std::vector<VihodFullBranch_file> records, int date, double time);
std::vector<TRecLabelPervichka_File> BlobFullFIT_To_RecLabelPervichka(const std::vector<VihodExt>& records,
                                                                      int date, double time);

/// Stars of the light catalogue as default marks with position before fitting, coordinates and magnitude.
std::vector<TRecLabelPervichka_File>
TRecCatLightToTRecLabelPervichka_File(const std::vector<TRecCatLight>& stars);

/// Marks in the compact form: all but the time is narrowed to float precision.
std::vector<TVOBlobFile> TRecLabelPervichkaToTVOBlob(const std::vector<TRecLabelPervichka_File>& marks);

/// The same, frame by frame.
std::vector<std::vector<TVOBlobFile>>
TRecLabelPervichka_FileToTVOBlobFile(const std::vector<THeadBlobs>& frames);
std::vector<std::vector<TVOBlobFile>>
TRecLabelPervichka_FileToTVOBlobFile(const std::vector<std::vector<TRecLabelPervichka_File>>& frames);

/// A fitted blob from its form on disk. The number becomes that of the blob and of its first peak. A code
/// other than 1 to 8 becomes 0, so a bad part comes back as ok; a kind other than 0, 1, 2 and 6 becomes -1.
VihodExt VihodFullBranch_To_VihodExt(const VihodFullBranch_file& record, int number);

/// The same for a list, numbered from 0.
std::vector<VihodExt> VihodFullBranch_To_Res_Sav(std::vector<VihodFullBranch_file> records);

/// A fitted blob in its form on disk; the count of strobes is cut to an integer, and gaps are zero.
VihodFullBranch_file VihodExt_To_VihodFullBranch(const VihodExt& record);
std::vector<VihodFullBranch_file> Res_SavTOVihodFullBranch_file(const std::vector<VihodExt>& records);

/// Objects as segments: each pixel of the area is a point.
std::vector<DTSegment> TObjKonturToDTSegment(const std::vector<TObjKontur>& objects);

/// The other way, in spite of the name: segments as objects, each point a pixel of the area.
std::vector<TObjKontur> TObjKonturToDTSegment(const std::vector<DTSegment>& segments);

/// The positions of the pixels of an aperture; values are 0.
std::vector<pixel> PixelAperListToPixel(std::vector<pixelAper> pixels);

} // namespace tavelinUtils
