#pragma once

#include "skin/ImageTables.h"

/// The three tables of compiled-in images.
enum class ImageTable
{
    Pictures,
    Brushes,
    Glyphs
};

/// A run of consecutive images appended to one group.
struct ImageRun
{
    ImageTable table;
    int group;
    int first;
    int last;
};

/// In the order of loading, which the state after a failed load shows.
constexpr ImageRun kImageRuns[] = {
    {ImageTable::Pictures, kCaptionPictures, 0, 7},
    {ImageTable::Pictures, kPushButtonPictures, 8, 13},
    {ImageTable::Pictures, kToggleButtonPictures, 14, 21},
    {ImageTable::Pictures, kUnusedPictures, 22, 23},
    {ImageTable::Pictures, kSwitchButtonPictures, 24, 31},
    {ImageTable::Pictures, kScrollArrowPictures, 32, 39},
    {ImageTable::Pictures, kRangeMarkerPictures, 40, 41},
    {ImageTable::Brushes, kGridBrushes, 42, 48},
    {ImageTable::Brushes, kBandedBrushes, 49, 57},
    {ImageTable::Brushes, kRulerBrushes, 58, 71},
    {ImageTable::Glyphs, 0, 72, 73},
    {ImageTable::Glyphs, 1, 74, 75},
    {ImageTable::Glyphs, 2, 76, 77},
    {ImageTable::Glyphs, 3, 78, 85},
    {ImageTable::Glyphs, 4, 86, 89},
    {ImageTable::Glyphs, 4, 148, 149},
    {ImageTable::Glyphs, 5, 90, 93},
    {ImageTable::Glyphs, 6, 94, 127},
    {ImageTable::Glyphs, 7, 128, 129},
    {ImageTable::Pictures, kCaptionPictures, 150, 150},
};

/// How many images a group of a table has once everything is loaded.
constexpr int ImageCount(ImageTable table, int group)
{
    int count = 0;
    for (const ImageRun& run : kImageRuns)
        count += run.table == table && run.group == group ? run.last - run.first + 1 : 0;
    return count;
}
