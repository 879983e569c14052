#include "math/record_sorts.h"

#include "base/stored_index.h"

#include <cmath>
#include <utility>

namespace tavelinUtils {
namespace {

using Index = std::vector<unsigned long>;

template <class Record, class KeyOf>
auto keysOf(const std::vector<Record>& records, KeyOf keyOf)
{
    std::vector<decltype(keyOf(records.front()))> keys;
    keys.reserve(records.size());
    for (const Record& record : records) {
        keys.push_back(keyOf(record));
    }
    return keys;
}

// The records moved into the order of an index.
template <class Record>
void arrange(std::vector<Record>& records, const Index& index)
{
    std::vector<Record> arranged;
    arranged.reserve(records.size());
    for (const unsigned long place : index) {
        arranged.push_back(std::move(records[place]));
    }
    records = std::move(arranged);
}

// The order of keys: element k is the index of the k-th.
template <class Key>
Index ascendingOrder(const std::vector<Key>& keys)
{
    Index index;
    QuickSort(keys, index);
    return index;
}

// The ascending order reversed. A descending sort would give ties another order.
Index reversedOrder(const std::vector<double>& keys)
{
    const Index index = ascendingOrder(keys);
    return {index.rbegin(), index.rend()};
}

Index descendingOrder(const std::vector<double>& keys)
{
    Index index;
    QuickSortDown(keys, index);
    return index;
}

template <class Record, class KeyOf>
void sortAscending(std::vector<Record>& records, KeyOf keyOf)
{
    arrange(records, ascendingOrder(keysOf(records, keyOf)));
}

template <class Record, class KeyOf>
void sortReversed(std::vector<Record>& records, KeyOf keyOf)
{
    arrange(records, reversedOrder(keysOf(records, keyOf)));
}

template <class Record, class KeyOf>
void sortDescending(std::vector<Record>& records, KeyOf keyOf)
{
    arrange(records, descendingOrder(keysOf(records, keyOf)));
}

double distanceBetween(double x1, double y1, double x2, double y2)
{
    const double dx = x1 - x2;
    const double dy = y1 - y2;
    return std::sqrt(dx * dx + dy * dy);
}

} // namespace

void SortDouble(std::vector<double>& values)
{
    values = QuickSort1(values);
}

void SortDoubleDown(std::vector<double>& values)
{
    Index index;
    values = QuickSortDown(values, index);
}

void SortInt(std::vector<int>& values)
{
    values = QuickSort1(values);
}

void SortSizeT(std::vector<unsigned long>& values)
{
    values = QuickSort1(values);
}

void SortSizeTDown(std::vector<unsigned long>& values)
{
    Index index;
    values = QuickSortDown(values, index);
}

std::vector<unsigned long> SortByResMNK(std::vector<double> residuals)
{
    return ascendingOrder(keysOf(residuals, [](double residual) { return std::abs(residual); }));
}

void SortPixByX(std::vector<pixel>& pixels)
{
    sortAscending(pixels, [](const pixel& point) { return static_cast<double>(point.X); });
}

void SortPixByX(std::vector<pixelD>& pixels)
{
    sortAscending(pixels, [](const pixelD& point) { return point.X; });
}

void SortPixByA(std::vector<pixel>& pixels)
{
    sortAscending(pixels, [](const pixel& point) { return point.C; });
}

void SortPixByA(std::vector<pixelD>& pixels)
{
    sortAscending(pixels, [](const pixelD& point) { return point.C; });
}

void SortPixByR(double x0, double y0, std::vector<pixel>& pixels)
{
    sortAscending(pixels, [=](const pixel& point) { return distanceBetween(point.X, point.Y, x0, y0); });
}

void pSortPixByA(std::vector<TObjKontur>& objects)
{
    for (TObjKontur& object : objects) {
        SortPixByA(object.Area);
    }
}

void pSortBlobsBy_m(std::vector<TRecCatLight>& stars)
{
    sortAscending(stars, [](const TRecCatLight& star) { return star.m; });
}

void pSortBlobsBy_m(std::vector<TRecCat2>& stars)
{
    sortAscending(stars, [](const TRecCat2& star) { return star.m; });
}

void pSortBlobsBy_A(std::vector<TComparStar>& stars)
{
    sortAscending(stars, [](const TComparStar& star) { return star.A; });
}

void pSortBlobsBy_A(THeadBlobs& frame)
{
    sortReversed(frame.Marks, [](const TRecLabelPervichka_File& mark) { return double{mark.A}; });
}

void pSortBlobsBy_A(TTypeSort_Record type, std::vector<TRecLabelPervichka_File>& marks)
{
    using Mark = TRecLabelPervichka_File;
    switch (static_cast<int>(type)) {
    case 2: return sortReversed(marks, [](const Mark& mark) { return double{mark.A}; });
    case 3: return sortReversed(marks, [](const Mark& mark) { return double{mark.Asegm}; });
    case 4: return sortReversed(marks, [](const Mark& mark) { return double{mark.Astrob}; });
    case 8: return sortAscending(marks, [](const Mark& mark) { return double{mark.m}; });
    default: return sortReversed(marks, [](const Mark&) { return 0.0; });
    }
}

void pSortHead(std::vector<TFitHead>& heads)
{
    sortAscending(heads, [](const TFitHead& head) { return head.date + head.time; });
}

void pSortObjects(std::vector<TFittObject>& fitted, std::vector<TObjKontur>& objects)
{
    sortAscending(fitted, [&objects](const TFittObject& fit) -> unsigned long {
        const TObjKontur* object = elementAt(objects, fit.Index);
        return object == nullptr ? 0 : object->Area.size();
    });
}

void pSortVSX(std::vector<TLocPhotoBlob>& stars)
{
    sortAscending(stars, [](const TLocPhotoBlob& star) { return static_cast<double>(star.Mark.Tag1); });
}

void SortROtmetka(int width, int height, std::vector<TRecLabelPervichka_File>& marks)
{
    const double x0 = width * 0.5;
    const double y0 = height * 0.5;
    sortAscending(marks, [=](const TRecLabelPervichka_File& mark) {
        return distanceBetween(mark.X_bf, mark.Y_bf, x0, y0);
    });
}

void SortICByResXY(std::vector<TRepresent>& representatives,
                   const std::vector<TRecLabelPervichka_File>& marks, const std::vector<TFittObject>& fitted)
{
    sortDescending(representatives, [&](const TRepresent& representative) {
        const int index = representative.Items.empty() ? -1 : representative.Items.front().BlobIndex;
        const TRecLabelPervichka_File* mark = elementAt(marks, index);
        const TFittObject* fit = elementAt(fitted, index);
        return mark == nullptr || fit == nullptr ? 0.0
                                                 : distanceBetween(mark->X_bf, mark->Y_bf, fit->X, fit->Y);
    });
}

} // namespace tavelinUtils
