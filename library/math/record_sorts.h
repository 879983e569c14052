// Sorts of plain lists and of records.
//
// A sort of records collects one key of each, sorts the keys with QuickSort, and puts the records in the
// order of its index; so ties keep the order that this sort gives them. Empty lists stay empty.

#pragma once

#include "../export.h"
#include "../records/blob.h"
#include "../records/disk_records.h"
#include "../records/photo_blob.h"
#include "quick_sort.h"

#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Sort a list in place, ascending or ("Down") descending.
void SortDouble(std::vector<double>& values);
void SortDoubleDown(std::vector<double>& values);
void SortInt(std::vector<int>& values);
void SortSizeT(std::vector<unsigned long>& values);
void SortSizeTDown(std::vector<unsigned long>& values);

/// The order of the residuals of a fit by magnitude, the smallest first: element k is the index of the k-th.
std::vector<unsigned long> SortByResMNK(std::vector<double> residuals);

/// Sort pixels by X, ascending.
void SortPixByX(std::vector<pixel>& pixels);
void SortPixByX(std::vector<pixelD>& pixels);

/// Sort pixels by their brightness C, ascending. The A of the name means amplitude, not the field A.
void SortPixByA(std::vector<pixel>& pixels);
void SortPixByA(std::vector<pixelD>& pixels);

/// Sorts pixels by their distance from a point, the nearest first.
void SortPixByR(double x0, double y0, std::vector<pixel>& pixels);

/// Sorts the area of each object by brightness, ascending.
void pSortPixByA(std::vector<TObjKontur>& objects);

/// Sort stars by magnitude, the brightest first.
void pSortBlobsBy_m(std::vector<TRecCatLight>& stars);
void pSortBlobsBy_m(std::vector<TRecCat2>& stars);

/// Sorts comparison stars by amplitude, ascending.
void pSortBlobsBy_A(std::vector<TComparStar>& stars);

/// Sorts the marks of a frame by A, the largest first; the head stays.
void pSortBlobsBy_A(THeadBlobs& frame);

/// Sorts marks, the brightest first: by A, Asegm or Astrob (types 2, 3, 4), the largest first, or by m (8),
/// the smallest first. Any other type has keys of zero: the list gets the order that the sort gives to those,
/// reversed.
void pSortBlobsBy_A(TTypeSort_Record type, std::vector<TRecLabelPervichka_File>& marks);

/// Sorts heads of frames by time.
void pSortHead(std::vector<TFitHead>& heads);

/// Sorts fitted objects by the number of pixels of the objects that they refer to, ascending. One that refers
/// to none counts as having no pixels.
void pSortObjects(std::vector<TFittObject>& fitted, std::vector<TObjKontur>& objects);

/// Sorts stars by Tag1 of their marks, ascending.
void pSortVSX(std::vector<TLocPhotoBlob>& stars);

/// Sorts marks by the distance of their position before fitting from the centre of a frame of the given size,
/// the nearest first.
void SortROtmetka(int width, int height, std::vector<TRecLabelPervichka_File>& marks);

/// Sorts representatives by the distance between measured and fitted position of their first entry, the
/// greatest first: mark and fitted object are those at the entry's blob index. A representative without
/// entries, or with an index outside a list, counts as having distance 0.
void SortICByResXY(std::vector<TRepresent>& representatives,
                   const std::vector<TRecLabelPervichka_File>& marks, const std::vector<TFittObject>& fitted);

} // namespace tavelinUtils
