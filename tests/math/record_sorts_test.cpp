#include "math/record_sorts.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Doubles = std::vector<double>;
using Integers = std::vector<int>;
using Counts = std::vector<unsigned long>;
using Index = std::vector<unsigned long>;
using Marks = std::vector<TRecLabelPervichka_File>;

constexpr int highest = std::numeric_limits<int>::max();
constexpr int lowest = std::numeric_limits<int>::min();

// Records carry a number of their own, from 0 in the order in which they were made, in a field that no sort
// looks at. Their numbers after a sort show where each went.
template <class Record>
std::vector<Record> numbered(std::vector<Record> records, int Record::*number)
{
    for (std::size_t place = 0; place < records.size(); ++place) {
        records[place].*number = static_cast<int>(place);
    }
    return records;
}

template <class Record>
std::vector<Record> numbered(std::vector<Record> records, double Record::*number)
{
    for (std::size_t place = 0; place < records.size(); ++place) {
        records[place].*number = static_cast<double>(place);
    }
    return records;
}

template <class Record, class Number>
Integers numbersOf(const std::vector<Record>& records, Number Record::*number)
{
    Integers numbers;
    for (const Record& record : records) {
        numbers.push_back(static_cast<int>(record.*number));
    }
    return numbers;
}

// Marks with a number in the field LinkIndex; set() puts a key where a sort looks for it.
template <class Set>
Marks marksOf(const Doubles& keys, Set set)
{
    Marks marks;
    for (const double key : keys) {
        TRecLabelPervichka_File mark;
        mark.LinkIndex = static_cast<int>(marks.size());
        mark.SpareText = std::to_string(marks.size());
        set(mark, key);
        marks.push_back(mark);
    }
    return marks;
}

// The packed fields of a mark are read by value.
Integers numbersOfMarks(const Marks& marks)
{
    Integers numbers;
    for (const TRecLabelPervichka_File& mark : marks) {
        const int number = mark.LinkIndex;
        EXPECT_EQ(std::to_string(number), std::string(mark.SpareText));
        numbers.push_back(number);
    }
    return numbers;
}

TRecLabelPervichka_File markAt(double x, double y)
{
    TRecLabelPervichka_File mark;
    mark.X_bf = x;
    mark.Y_bf = y;
    return mark;
}

Marks marksAt(const std::vector<std::pair<double, double>>& places)
{
    Marks marks;
    for (const auto& [x, y] : places) {
        TRecLabelPervichka_File mark = markAt(x, y);
        mark.LinkIndex = static_cast<int>(marks.size());
        mark.SpareText = std::to_string(marks.size());
        mark.X_f = -x; // after fitting; no sort by place looks there
        mark.Y_f = 1000.0 - y;
        marks.push_back(mark);
    }
    return marks;
}

// Objects with areas of the given numbers of pixels. Their own Index is no place in the list.
std::vector<TObjKontur> objectsWithAreas(const std::vector<std::size_t>& areas)
{
    std::vector<TObjKontur> objects;
    for (const std::size_t area : areas) {
        TObjKontur object;
        object.Index = 0;
        object.Area.resize(area);
        object.Contour.resize(100 - area);
        objects.push_back(object);
    }
    return objects;
}

TFitHead headAt(int date, double time, int number)
{
    TFitHead head;
    head.date = date;
    head.time = time;
    head.FrameNumber = number;
    head.PathFit = "frame" + std::to_string(number);
    return head;
}

TRepresent representing(int number, const std::vector<TIndVK>& items)
{
    TRepresent representative;
    representative.Index = number;
    representative.Value = -number;
    representative.Items = items;
    return representative;
}

} // namespace

static_assert(std::is_same_v<decltype(&SortByResMNK), Index (*)(Doubles)>);
static_assert(std::is_same_v<decltype(&SortROtmetka), void (*)(int, int, Marks&)>);
static_assert(std::is_same_v<decltype(&SortPixByR), void (*)(double, double, std::vector<pixel>&)>);

TEST(RecordSorts, PlainLists)
{
    Doubles doubles{3.5, -1.0, 2.0, 2.0};
    SortDouble(doubles);
    EXPECT_EQ(doubles, (Doubles{-1.0, 2.0, 2.0, 3.5}));
    SortDoubleDown(doubles);
    EXPECT_EQ(doubles, (Doubles{3.5, 2.0, 2.0, -1.0}));

    Integers integers{5, lowest, highest, -5, 0};
    SortInt(integers);
    EXPECT_EQ(integers, (Integers{lowest, -5, 0, 5, highest}));

    Counts counts{5, 18446744073709551615UL, 0, 4294967296};
    SortSizeT(counts);
    EXPECT_EQ(counts, (Counts{0, 5, 4294967296, 18446744073709551615UL}));
    SortSizeTDown(counts);
    EXPECT_EQ(counts, (Counts{18446744073709551615UL, 4294967296, 5, 0}));
}

TEST(RecordSorts, PlainListsOfOneAndOfNone)
{
    Doubles doubles;
    SortDouble(doubles);
    SortDoubleDown(doubles);
    EXPECT_TRUE(doubles.empty());
    doubles = {4.0};
    SortDouble(doubles);
    SortDoubleDown(doubles);
    EXPECT_EQ(doubles, Doubles{4.0});

    Integers integers;
    SortInt(integers);
    EXPECT_TRUE(integers.empty());
    integers = {4};
    SortInt(integers);
    EXPECT_EQ(integers, Integers{4});

    Counts counts;
    SortSizeT(counts);
    SortSizeTDown(counts);
    EXPECT_TRUE(counts.empty());
    counts = {4};
    SortSizeT(counts);
    SortSizeTDown(counts);
    EXPECT_EQ(counts, Counts{4});
}

TEST(RecordSorts, OrderOfResidualsIsThatOfTheirMagnitudes)
{
    EXPECT_EQ(SortByResMNK(Doubles{3.0, -1.0, 2.0}), (Index{1, 2, 0}));
    EXPECT_EQ(SortByResMNK(Doubles{-3.0, 0.5, -0.25, 4.0}), (Index{2, 1, 0, 3}));
    EXPECT_EQ(SortByResMNK(Doubles{-1.0, 1.0}), (Index{1, 0}));
    EXPECT_EQ(SortByResMNK(Doubles{2.0, -2.0, 2.0, -2.0}), (Index{2, 3, 0, 1}));
    EXPECT_EQ(SortByResMNK(Doubles{-9.0}), Index{0});
    EXPECT_EQ(SortByResMNK(Doubles{}), Index{});
}

TEST(RecordSorts, PixelsByColumn)
{
    std::vector<pixel> pixels = numbered<pixel>({{.X = 3, .C = 1.0, .A = 1.0},
                                                 {.X = -1, .C = 2.0, .A = 2.0},
                                                 {.X = highest, .C = 0.0, .A = 0.0},
                                                 {.X = lowest, .C = 5.0, .A = 5.0},
                                                 {.X = highest - 1, .C = 3.0, .A = 3.0}},
                                                &pixel::Y);
    SortPixByX(pixels);
    EXPECT_EQ(numbersOf(pixels, &pixel::Y), (Integers{3, 1, 0, 4, 2}));
    EXPECT_EQ(pixels[0].X, lowest);
    EXPECT_EQ(pixels[0].C, 5.0);
    EXPECT_EQ(pixels[0].A, 5.0);

    std::vector<pixelD> places =
        numbered<pixelD>({{.X = 1.5, .C = 0.0}, {.X = 1.25, .C = 9.0}, {.X = -0.5}}, &pixelD::Y);
    SortPixByX(places);
    EXPECT_EQ(numbersOf(places, &pixelD::Y), (Integers{2, 1, 0}));
    EXPECT_EQ(places[1].C, 9.0);
}

// The A of the name is the amplitude, which is C.
TEST(RecordSorts, PixelsByBrightness)
{
    std::vector<pixel> pixels = numbered<pixel>(
        {{.X = 1, .C = 2.5, .A = 1.0}, {.X = 2, .C = -2.5, .A = 2.0}, {.X = 3, .C = 0.5, .A = 3.0}},
        &pixel::Y);
    SortPixByA(pixels);
    EXPECT_EQ(numbersOf(pixels, &pixel::Y), (Integers{1, 2, 0}));
    EXPECT_EQ(pixels[0].X, 2);

    std::vector<pixelD> places = numbered<pixelD>(
        {{.X = 1, .C = 2.5, .A = 1.0}, {.X = 2, .C = -2.5, .A = 2.0}, {.X = 3, .C = 0.5, .A = 3.0}},
        &pixelD::Y);
    SortPixByA(places);
    EXPECT_EQ(numbersOf(places, &pixelD::Y), (Integers{1, 2, 0}));
}

TEST(RecordSorts, TiesChangePlacesAsInTheSortOfTheirKeys)
{
    std::vector<pixel> four = numbered<pixel>(std::vector<pixel>(4), &pixel::Y);
    SortPixByX(four);
    EXPECT_EQ(numbersOf(four, &pixel::Y), (Integers{2, 3, 0, 1}));
    four = numbered<pixel>(four, &pixel::Y);
    SortPixByA(four);
    EXPECT_EQ(numbersOf(four, &pixel::Y), (Integers{2, 3, 0, 1}));

    std::vector<pixelD> two = numbered<pixelD>(std::vector<pixelD>(2), &pixelD::Y);
    SortPixByX(two);
    EXPECT_EQ(numbersOf(two, &pixelD::Y), (Integers{1, 0}));
    two = numbered<pixelD>(two, &pixelD::Y);
    SortPixByA(two);
    EXPECT_EQ(numbersOf(two, &pixelD::Y), (Integers{1, 0}));

    std::vector<TRecCatLight> stars = numbered<TRecCatLight>(std::vector<TRecCatLight>(3), &TRecCatLight::X);
    pSortBlobsBy_m(stars);
    EXPECT_EQ(numbersOf(stars, &TRecCatLight::X), (Integers{2, 1, 0}));
}

TEST(RecordSorts, PixelsByDistanceFromAPoint)
{
    // Distances from 10, 20: 5, 0, 1, 13.
    const std::vector<pixel> scattered = numbered<pixel>({{.X = 13, .Y = 24, .C = 1.0},
                                                          {.X = 10, .Y = 20, .C = 9.0},
                                                          {.X = 9, .Y = 20, .C = 5.0},
                                                          {.X = 5, .Y = 8, .C = 0.0}},
                                                         &pixel::A);
    std::vector<pixel> pixels = scattered;
    SortPixByR(10.0, 20.0, pixels);
    EXPECT_EQ(numbersOf(pixels, &pixel::A), (Integers{1, 2, 0, 3}));
    EXPECT_EQ(pixels[3].X, 5);

    // From -1000, 20 the columns alone decide nearly all.
    pixels = scattered;
    SortPixByR(-1000.0, 20.0, pixels);
    EXPECT_EQ(numbersOf(pixels, &pixel::A), (Integers{3, 2, 1, 0}));
}

// 0, 0 lies 0.4 from the point and 1, 0 lies 0.6.
TEST(RecordSorts, PointBetweenPixelsIsNotRounded)
{
    std::vector<pixel> pixels = numbered<pixel>({{.X = 1}, {.X = 0}, {.X = -1}, {.X = 2}}, &pixel::A);
    SortPixByR(0.4, 0.0, pixels);
    EXPECT_EQ(numbersOf(pixels, &pixel::A), (Integers{1, 0, 2, 3}));
}

TEST(RecordSorts, DistancesOfPixelsAtTheEndsOfTheirRange)
{
    std::vector<pixel> pixels = numbered<pixel>(
        {{.X = lowest, .Y = lowest}, {.X = highest, .Y = highest}, {.X = 0, .Y = 0}}, &pixel::A);
    SortPixByR(-5.0, -5.0, pixels);
    EXPECT_EQ(numbersOf(pixels, &pixel::A), (Integers{2, 0, 1}));
}

TEST(RecordSorts, AreasOfObjectsByBrightnessEach)
{
    std::vector<TObjKontur> objects(3);
    objects[0].Kind = 7;
    objects[0].Area = {{.X = 1, .C = 3.0}, {.X = 2, .C = 1.0}, {.X = 3, .C = 2.0}};
    objects[0].Contour = {{.X = 8, .C = 9.0}, {.X = 9, .C = 8.0}};
    objects[2].Area = {{.X = 4, .C = 0.5}, {.X = 5, .C = -0.5}};
    pSortPixByA(objects);
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_EQ(objects[0].Kind, 7);
    EXPECT_EQ(numbersOf(objects[0].Area, &pixel::X), (Integers{2, 3, 1}));
    EXPECT_EQ(numbersOf(objects[0].Contour, &pixel::X), (Integers{8, 9}));
    EXPECT_TRUE(objects[1].Area.empty());
    EXPECT_EQ(numbersOf(objects[2].Area, &pixel::X), (Integers{5, 4}));
}

TEST(RecordSorts, StarsByMagnitude)
{
    std::vector<TRecCatLight> light = numbered<TRecCatLight>({{.RA = 5.0, .m = 12.5, .Carried = {1, 2}},
                                                              {.RA = 1.0, .m = -1.5, .Carried = {3, 4}},
                                                              {.RA = 3.0, .m = 7.0, .Carried = {5, 6}}},
                                                             &TRecCatLight::X);
    pSortBlobsBy_m(light);
    EXPECT_EQ(numbersOf(light, &TRecCatLight::X), (Integers{1, 2, 0}));
    EXPECT_EQ(light[0].RA, 1.0);
    EXPECT_EQ(light[0].Carried[1], 4);
    EXPECT_EQ(light[2].Carried[0], 1);

    std::vector<TRecCat2> catalogue = numbered<TRecCat2>({{.DE = 1.0, .m = 12.5, .Name = "a"},
                                                          {.DE = 9.0, .m = -1.5, .Name = "b"},
                                                          {.DE = 5.0, .m = 7.0, .Name = "c"}},
                                                         &TRecCat2::RA);
    pSortBlobsBy_m(catalogue);
    EXPECT_EQ(numbersOf(catalogue, &TRecCat2::RA), (Integers{1, 2, 0}));
    EXPECT_EQ(catalogue[0].Name, "b");
    EXPECT_EQ(catalogue[1].Name, "c");
    EXPECT_EQ(catalogue[2].Name, "a");
}

TEST(RecordSorts, ComparisonStarsByAmplitudeTheFaintestFirst)
{
    std::vector<TComparStar> stars{{.A = 3.0}, {.A = 1.0}, {.A = 2.0}};
    pSortBlobsBy_A(stars);
    EXPECT_EQ(stars[0].A, 1.0);
    EXPECT_EQ(stars[1].A, 2.0);
    EXPECT_EQ(stars[2].A, 3.0);
}

TEST(RecordSorts, MarksOfAFrameByAmplitudeTheLargestFirst)
{
    THeadBlobs frame;
    frame.FrameNumber = 12;
    frame.date = 60000;
    frame.time = 0.25;
    frame.PathFit = "a.fit";
    frame.CD[3] = 4.5;
    frame.Marks = marksOf({2.0, 5.0, -1.0, 3.0}, [](TRecLabelPervichka_File& mark, double key) {
        mark.A = key;
        mark.Asegm = -key;
        mark.Astrob = -key;
        mark.m = key;
    });
    pSortBlobsBy_A(frame);
    EXPECT_EQ(numbersOfMarks(frame.Marks), (Integers{1, 3, 0, 2}));
    EXPECT_EQ(frame.FrameNumber, 12);
    EXPECT_EQ(frame.date, 60000);
    EXPECT_EQ(frame.time, 0.25);
    EXPECT_EQ(frame.PathFit, "a.fit");
    EXPECT_EQ(frame.CD[3], 4.5);
}

// The ascending order is walked from its end, which is not what a descending sort does with ties: four equal
// keys come out of the sort as 2, 3, 0, 1.
TEST(RecordSorts, TiesOfAReversedOrderAreReversedToo)
{
    THeadBlobs frame;
    frame.Marks =
        marksOf({5.0, 5.0, 5.0, 5.0}, [](TRecLabelPervichka_File& mark, double key) { mark.A = key; });
    pSortBlobsBy_A(frame);
    EXPECT_EQ(numbersOfMarks(frame.Marks), (Integers{1, 0, 3, 2}));

    frame.Marks = marksOf({5.0, 5.0}, [](TRecLabelPervichka_File& mark, double key) { mark.A = key; });
    pSortBlobsBy_A(frame);
    EXPECT_EQ(numbersOfMarks(frame.Marks), (Integers{0, 1}));

    // 2, 1, 2 ascend as 1, 2, 0 and would descend as 2, 0, 1.
    Marks marks =
        marksOf({2.0, 1.0, 2.0}, [](TRecLabelPervichka_File& mark, double key) { mark.Asegm = key; });
    pSortBlobsBy_A(TTypeSort_Record{3}, marks);
    EXPECT_EQ(numbersOfMarks(marks), (Integers{0, 2, 1}));
}

TEST(RecordSorts, TypeChoosesTheKeyOfMarks)
{
    struct
    {
        int type;
        void (*set)(TRecLabelPervichka_File& mark, double key);
        Integers order;
    } const rows[] = {
        {2, [](TRecLabelPervichka_File& mark, double key) { mark.A = key; }, {1, 3, 0, 2}},
        {3, [](TRecLabelPervichka_File& mark, double key) { mark.Asegm = key; }, {1, 3, 0, 2}},
        {4, [](TRecLabelPervichka_File& mark, double key) { mark.Astrob = key; }, {1, 3, 0, 2}},
        {8, [](TRecLabelPervichka_File& mark, double key) { mark.m = key; }, {2, 0, 3, 1}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.type);
        // The other keys have an order of their own: 0, 1, 2, 3 where the largest comes first.
        Marks marks = marksOf({2.0, 5.0, -1.0, 3.0}, [&](TRecLabelPervichka_File& mark, double key) {
            mark.A = mark.Asegm = mark.Astrob = mark.m = mark.mInstr = -mark.LinkIndex;
            row.set(mark, key);
        });
        pSortBlobsBy_A(TTypeSort_Record{row.type}, marks);
        EXPECT_EQ(numbersOfMarks(marks), row.order);
    }
}

TEST(RecordSorts, NamedTypesAreTheAmplitudesOfTheSegmentAndOfTheStrobe)
{
    Marks marks = marksOf({1.0, 2.0}, [](TRecLabelPervichka_File& mark, double key) {
        mark.Asegm = key;
        mark.Astrob = -key;
    });
    pSortBlobsBy_A(TTypeSort_Record::A2, marks);
    EXPECT_EQ(numbersOfMarks(marks), (Integers{1, 0}));
    pSortBlobsBy_A(TTypeSort_Record::A3, marks);
    EXPECT_EQ(numbersOfMarks(marks), (Integers{0, 1}));
}

// The keys are zeros then: 2, 3, 0, 1 out of the sort of four, from its end.
TEST(RecordSorts, OtherTypesReverseWhatTheSortOfZerosLeaves)
{
    for (const int type : {0, 1, 5, 6, 7, 9, -1, 100, lowest, highest}) {
        SCOPED_TRACE(type);
        const auto set = [](TRecLabelPervichka_File& mark, double key) {
            mark.A = mark.Asegm = mark.Astrob = mark.m = key;
        };
        Marks two = marksOf({9.0, 1.0}, set);
        pSortBlobsBy_A(TTypeSort_Record{type}, two);
        EXPECT_EQ(numbersOfMarks(two), (Integers{0, 1}));
        Marks three = marksOf({9.0, 1.0, 5.0}, set);
        pSortBlobsBy_A(TTypeSort_Record{type}, three);
        EXPECT_EQ(numbersOfMarks(three), (Integers{0, 1, 2}));
        Marks four = marksOf({9.0, 1.0, 5.0, 7.0}, set);
        pSortBlobsBy_A(TTypeSort_Record{type}, four);
        EXPECT_EQ(numbersOfMarks(four), (Integers{1, 0, 3, 2}));
        Marks five = marksOf({9.0, 1.0, 5.0, 7.0, 3.0}, set);
        pSortBlobsBy_A(TTypeSort_Record{type}, five);
        EXPECT_EQ(numbersOfMarks(five), (Integers{1, 0, 2, 4, 3}));
    }
}

TEST(RecordSorts, HeadsByDateAndTimeTogether)
{
    std::vector<TFitHead> heads{headAt(60001, 0.25, 0), headAt(60000, 0.75, 1), headAt(60001, 0.125, 2),
                                headAt(59999, 0.5, 3), headAt(59998, 3.5, 4)};
    pSortHead(heads);
    EXPECT_EQ(numbersOf(heads, &TFitHead::FrameNumber), (Integers{3, 1, 2, 0, 4}));
    EXPECT_EQ(heads[4].PathFit, "frame4");
    EXPECT_EQ(heads[4].date, 59998);
    EXPECT_EQ(heads[4].time, 3.5);
}

// Beside 60000 doubles are 7e-12 days apart, so that the two have one key, and ties change places.
TEST(RecordSorts, HeadsCloserThanTheSumTellsAreTies)
{
    std::vector<TFitHead> heads{headAt(60000, 0.5, 0), headAt(60000, 0.5 + 1e-13, 1)};
    pSortHead(heads);
    EXPECT_EQ(numbersOf(heads, &TFitHead::FrameNumber), (Integers{1, 0}));
    heads = {headAt(60000, 0.5, 0), headAt(60000, 0.5 + 1e-11, 1)};
    pSortHead(heads);
    EXPECT_EQ(numbersOf(heads, &TFitHead::FrameNumber), (Integers{0, 1}));
}

TEST(RecordSorts, FittedObjectsByThePixelsOfTheirObjects)
{
    std::vector<TObjKontur> objects = objectsWithAreas({30, 10, 20});
    std::vector<TFittObject> fitted{{.X = 1, .Index = 0}, {.X = 2, .Index = 2}, {.X = 3, .Index = 1}};
    pSortObjects(fitted, objects);
    EXPECT_EQ(numbersOf(fitted, &TFittObject::Index), (Integers{1, 2, 0}));
    EXPECT_EQ(fitted[0].X, 3.0);
    EXPECT_EQ(objects[0].Area.size(), 30U);
    EXPECT_EQ(objects[1].Area.size(), 10U);
    EXPECT_EQ(objects[2].Area.size(), 20U);
}

TEST(RecordSorts, FittedObjectsOfOneObjectAreTies)
{
    std::vector<TObjKontur> objects = objectsWithAreas({5, 8});
    std::vector<TFittObject> fitted =
        numbered<TFittObject>({{.Index = 1}, {.Index = 1}, {.Index = 0}}, &TFittObject::X);
    // 8, 8, 5: the pivot is 8 in the middle, and 8 changes places with 5; the middle with itself.
    pSortObjects(fitted, objects);
    EXPECT_EQ(numbersOf(fitted, &TFittObject::X), (Integers{2, 1, 0}));
}

TEST(RecordSorts, FittedObjectsOutsideTheListCountAsWithoutPixels)
{
    std::vector<TObjKontur> objects = objectsWithAreas({30, 10});
    for (const int outside : {-1, 2, lowest, highest}) {
        SCOPED_TRACE(outside);
        std::vector<TFittObject> fitted{{.Index = 0}, {.Index = 1}, {.Index = outside}};
        pSortObjects(fitted, objects);
        EXPECT_EQ(numbersOf(fitted, &TFittObject::Index), (Integers{outside, 1, 0}));
    }
    std::vector<TObjKontur> none;
    std::vector<TFittObject> fitted{{.Index = 0}, {.Index = 1}};
    pSortObjects(fitted, none);
    EXPECT_EQ(numbersOf(fitted, &TFittObject::Index), (Integers{1, 0}));
}

TEST(RecordSorts, StarsByTheFirstTagOfTheirMarks)
{
    std::vector<TLocPhotoBlob> stars(5);
    const Integers tags{7, highest, -3, lowest, highest - 1};
    for (std::size_t place = 0; place < stars.size(); ++place) {
        stars[place].Head.FrameNumber = static_cast<int>(place);
        stars[place].Mark.Tag1 = tags[place];
        stars[place].Mark.Tag2 = -static_cast<int>(place);
        stars[place].Mark.SpareText = std::to_string(place);
    }
    pSortVSX(stars);
    Integers numbers;
    for (const TLocPhotoBlob& star : stars) {
        numbers.push_back(star.Head.FrameNumber);
        EXPECT_EQ(std::string(star.Mark.SpareText), std::to_string(star.Head.FrameNumber));
    }
    EXPECT_EQ(numbers, (Integers{3, 2, 0, 4, 1}));
}

TEST(RecordSorts, MarksByTheirDistanceFromTheCentreOfTheFrame)
{
    // From 50, 20: 50, 0, 5, 13.
    Marks marks = marksAt({{100.0, 20.0}, {50.0, 20.0}, {47.0, 24.0}, {55.0, 8.0}});
    SortROtmetka(100, 40, marks);
    EXPECT_EQ(numbersOfMarks(marks), (Integers{1, 2, 3, 0}));
}

// Half of 5 is 2.5: the first mark lies 0.75 from the centre, the second 0.5.
TEST(RecordSorts, CentreOfAFrameOfAnOddSizeIsInTheMiddleOfAPixel)
{
    Marks marks = marksAt({{1.75, 0.5}, {3.0, 0.5}});
    SortROtmetka(5, 1, marks);
    EXPECT_EQ(numbersOfMarks(marks), (Integers{1, 0}));
    marks = marksAt({{0.5, 1.75}, {0.5, 3.0}});
    SortROtmetka(1, 5, marks);
    EXPECT_EQ(numbersOfMarks(marks), (Integers{1, 0}));
}

TEST(RecordSorts, RepresentativesByTheResidualOfTheirFirstEntryTheGreatestFirst)
{
    // Distances between mark and fitted position at the same place: 5, 0, 13, 1.
    const Marks marks = marksAt({{0.0, 0.0}, {10.0, 10.0}, {20.0, 5.0}, {30.0, 30.0}});
    const std::vector<TFittObject> fitted{
        {.X = 3.0, .Y = 4.0}, {.X = 10.0, .Y = 10.0}, {.X = 15.0, .Y = 17.0}, {.X = 30.0, .Y = 31.0}};
    std::vector<TRepresent> representatives{
        representing(0, {{.BlobIndex = 3}, {.BlobIndex = 2}}),
        representing(1, {{.FrameNumber = 3, .BlobIndex = 0, .Third = 1}}),
        representing(2, {{.BlobIndex = 1}}),
        representing(3, {{.BlobIndex = 2}, {.BlobIndex = 1}, {.BlobIndex = 1}}),
    };
    SortICByResXY(representatives, marks, fitted);
    EXPECT_EQ(numbersOf(representatives, &TRepresent::Index), (Integers{3, 1, 0, 2}));
    EXPECT_EQ(representatives[0].Items.size(), 3U);
    EXPECT_EQ(representatives[0].Value, -3.0);
    EXPECT_EQ(representatives[1].Items[0].FrameNumber, 3);
}

// Not the ascending order from its end: 2, 1, 2 descend as 2, 0, 1.
TEST(RecordSorts, TiesOfRepresentativesFallAsInADescendingSort)
{
    const Marks marks = marksAt({{2.0, 0.0}, {1.0, 0.0}});
    const std::vector<TFittObject> fitted(2);
    std::vector<TRepresent> representatives{representing(0, {{.BlobIndex = 0}}),
                                            representing(1, {{.BlobIndex = 1}}),
                                            representing(2, {{.BlobIndex = 0}})};
    SortICByResXY(representatives, marks, fitted);
    EXPECT_EQ(numbersOf(representatives, &TRepresent::Index), (Integers{2, 0, 1}));
}

TEST(RecordSorts, RepresentativesWithoutADistanceComeLast)
{
    const Marks marks = marksAt({{2.0, 0.0}, {3.0, 0.0}, {90.0, 0.0}});
    const std::vector<TFittObject> fitted(2);
    for (const int outside : {-1, 2, 3, lowest, highest}) {
        SCOPED_TRACE(outside);
        std::vector<TRepresent> representatives{representing(0, {{.BlobIndex = outside}}),
                                                representing(1, {{.BlobIndex = 0}}),
                                                representing(2, {{.BlobIndex = 1}})};
        SortICByResXY(representatives, marks, fitted);
        EXPECT_EQ(numbersOf(representatives, &TRepresent::Index), (Integers{2, 1, 0}));
    }
    std::vector<TRepresent> withoutEntries{representing(0, {}), representing(1, {{.BlobIndex = 1}})};
    SortICByResXY(withoutEntries, marks, fitted);
    EXPECT_EQ(numbersOf(withoutEntries, &TRepresent::Index), (Integers{1, 0}));

    // A fitted object without its mark.
    std::vector<TRepresent> beyondTheMarks{representing(0, {{.BlobIndex = 1}}),
                                           representing(1, {{.BlobIndex = 0}})};
    SortICByResXY(beyondTheMarks, marksAt({{2.0, 0.0}}), fitted);
    EXPECT_EQ(numbersOf(beyondTheMarks, &TRepresent::Index), (Integers{1, 0}));

    // Without any list all are ties.
    std::vector<TRepresent> ties{representing(0, {{}}), representing(1, {{}}), representing(2, {})};
    SortICByResXY(ties, Marks{}, std::vector<TFittObject>{});
    EXPECT_EQ(numbersOf(ties, &TRepresent::Index), (Integers{2, 1, 0}));
}

TEST(RecordSorts, EmptyListsStayEmpty)
{
    std::vector<pixel> pixels;
    SortPixByX(pixels);
    SortPixByA(pixels);
    SortPixByR(1.0, 2.0, pixels);
    EXPECT_TRUE(pixels.empty());
    std::vector<pixelD> places;
    SortPixByX(places);
    SortPixByA(places);
    EXPECT_TRUE(places.empty());
    std::vector<TObjKontur> objects;
    pSortPixByA(objects);
    EXPECT_TRUE(objects.empty());
    std::vector<TRecCatLight> light;
    pSortBlobsBy_m(light);
    EXPECT_TRUE(light.empty());
    std::vector<TRecCat2> catalogue;
    pSortBlobsBy_m(catalogue);
    EXPECT_TRUE(catalogue.empty());
    std::vector<TComparStar> comparison;
    pSortBlobsBy_A(comparison);
    EXPECT_TRUE(comparison.empty());
    THeadBlobs frame;
    pSortBlobsBy_A(frame);
    EXPECT_TRUE(frame.Marks.empty());
    Marks marks;
    for (const int type : {2, 3, 4, 8, 1}) {
        pSortBlobsBy_A(TTypeSort_Record{type}, marks);
    }
    SortROtmetka(10, 10, marks);
    EXPECT_TRUE(marks.empty());
    std::vector<TFitHead> heads;
    pSortHead(heads);
    EXPECT_TRUE(heads.empty());
    std::vector<TFittObject> fitted;
    pSortObjects(fitted, objects);
    EXPECT_TRUE(fitted.empty());
    std::vector<TLocPhotoBlob> stars;
    pSortVSX(stars);
    EXPECT_TRUE(stars.empty());
    std::vector<TRepresent> representatives;
    SortICByResXY(representatives, marksAt({{1.0, 1.0}}), std::vector<TFittObject>(1));
    EXPECT_TRUE(representatives.empty());
}

TEST(RecordSorts, ListsOfOneStay)
{
    std::vector<pixel> pixels{{.X = 4, .Y = 5, .C = 6.0, .A = 7.0}};
    SortPixByX(pixels);
    SortPixByA(pixels);
    SortPixByR(1.0, 2.0, pixels);
    ASSERT_EQ(pixels.size(), 1U);
    EXPECT_EQ(pixels[0].X, 4);
    EXPECT_EQ(pixels[0].A, 7.0);
    std::vector<pixelD> places{{.X = 4, .Y = 5, .C = 6.0, .A = 7.0}};
    SortPixByX(places);
    SortPixByA(places);
    ASSERT_EQ(places.size(), 1U);
    EXPECT_EQ(places[0].Y, 5.0);
    std::vector<TRecCatLight> light{{.RA = 4, .m = 5}};
    pSortBlobsBy_m(light);
    ASSERT_EQ(light.size(), 1U);
    EXPECT_EQ(light[0].RA, 4.0);
    std::vector<TRecCat2> catalogue{{.m = 5, .Name = "a"}};
    pSortBlobsBy_m(catalogue);
    ASSERT_EQ(catalogue.size(), 1U);
    EXPECT_EQ(catalogue[0].Name, "a");
    std::vector<TComparStar> comparison{{.A = 4}};
    pSortBlobsBy_A(comparison);
    ASSERT_EQ(comparison.size(), 1U);
    EXPECT_EQ(comparison[0].A, 4.0);
    THeadBlobs frame;
    frame.Marks = marksAt({{1.0, 2.0}});
    pSortBlobsBy_A(frame);
    EXPECT_EQ(numbersOfMarks(frame.Marks), Integers{0});
    Marks marks = marksAt({{1.0, 2.0}});
    for (const int type : {2, 3, 4, 8, 1}) {
        pSortBlobsBy_A(TTypeSort_Record{type}, marks);
    }
    SortROtmetka(10, 10, marks);
    EXPECT_EQ(numbersOfMarks(marks), Integers{0});
    std::vector<TFitHead> heads{headAt(60000, 0.5, 9)};
    pSortHead(heads);
    EXPECT_EQ(numbersOf(heads, &TFitHead::FrameNumber), Integers{9});
    std::vector<TFittObject> fitted{{.Index = 77}};
    std::vector<TObjKontur> objects;
    pSortObjects(fitted, objects);
    EXPECT_EQ(numbersOf(fitted, &TFittObject::Index), Integers{77});
    std::vector<TLocPhotoBlob> stars(1);
    stars[0].Mark.Tag1 = 3;
    pSortVSX(stars);
    ASSERT_EQ(stars.size(), 1U);
    EXPECT_EQ(int{stars[0].Mark.Tag1}, 3);
    std::vector<TRepresent> representatives{representing(5, {{.BlobIndex = 0}})};
    SortICByResXY(representatives, marks, std::vector<TFittObject>(1));
    EXPECT_EQ(numbersOf(representatives, &TRepresent::Index), Integers{5});
}
