#pragma once

#include <QRect>

#include <vector>

class CTimelineTrackBase;
class ImageTables;
class TrackTree;

/// The sizes of rows and where they stand, all in pixels, from the skin's caption pictures: a row
/// is as high as its caption picture, wave rows as high as the window lets them be. It reads and
/// computes; it sets no widget's geometry.
class RowLayout
{
public:
    struct Row
    {
        CTimelineTrackBase* track;
        QRect rect;
        bool shown; ///< its top does not lie below the layout's bottom
    };
    struct Plan
    {
        int height = 0; ///< of the layout; the container is one pixel taller
        QRect scrollRect;
        QRect tickRect;
        QRect captionRect;
        std::vector<Row> rows;
    };

    explicit RowLayout(const ImageTables& images) : m_images(images) {}

    QSize ScrollCaptionSize() const;                          ///< picture 1
    QSize TickCaptionSize() const;                            ///< picture 3
    QSize CaptionSize(const CTimelineTrackBase& track) const; ///< the inactive row's picture
    int TrackHeight() const;                                  ///< picture 4
    int FixedHeight() const;                                  ///< ruler and scroll bar
    /// The variable height for a wave row, else that of the caption picture.
    int RowHeight(const CTimelineTrackBase& track) const;

    int VariableRowHeight() const { return m_variableRowHeight; }
    int VariableRowMaximum() const { return m_variableRowMaximum; }
    /// Fits the wave rows into a container of @p height: more than 42 pixels set their height to
    /// what the other rows leave, at least 54 and at most the maximum, which wins.
    void FitVariableRow(const TrackTree& tree, int height);

    int MinimumHeight(const TrackTree& tree) const;
    /// With @p withWave wave rows count three times their picture, which becomes their maximum.
    int MaximumHeight(const TrackTree& tree, bool withWave);
    int NeededHeight(const TrackTree& tree) const;
    int TotalHeight(const TrackTree& tree) const;

    /// Where everything stands in a container of @p size. With @p fit the layout is cut to the
    /// container's height, else it is as high as the rows need.
    Plan Compute(const TrackTree& tree, QSize size, bool fit) const;

private:
    int FixedRowsHeight(const TrackTree& tree) const;

    const ImageTables& m_images;
    int m_variableRowHeight = 0;
    int m_variableRowMaximum = 0;
};
