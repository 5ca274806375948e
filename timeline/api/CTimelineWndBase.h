#pragma once

#include "KestovaExport.h"

#include <QRect>

class CTimelineContainer;
class QWheelEvent;
class QWidget;

/// The host's timeline window: a host derives from it to give the timeline its frame, toolbar and
/// size rules, and makes it in its CTimelineWndFactoryBase. The base makes the timeline widget at
/// construction and destroys it with itself; the manager puts the widget under the window's own.
/// GUI thread only. The order of the virtual operations is part of the binary interface.
class KESTOVA_EXPORT CTimelineWndBase
{
public:
    CTimelineWndBase();
    /// Windows are not meant to be copied; a copy shares the timeline widget.
    CTimelineWndBase(const CTimelineWndBase&) = default;
    /// As the copy.
    CTimelineWndBase& operator=(const CTimelineWndBase&) = default;
    virtual ~CTimelineWndBase();

    /// Makes what the window is made of; called once, before the timeline widget is placed. False
    /// gives the window back to the factory.
    virtual bool CreateWnd() = 0;
    /// The widget that goes into the dock and that the timeline widget is placed in; the host owns
    /// it.
    virtual QWidget* GetWidget() = 0;
    /// The host asked for an update through the manager.
    virtual void UpdateWnd() = 0;
    /// Where in the window's widget the timeline is placed first, in pixels. @p rect arrives empty.
    virtual void GetInitialGeometry(QRect& rect) = 0;
    /// Enables or disables the window. What is answered here, as with the next two, is what the
    /// manager's operation of that purpose answers.
    virtual bool EnableWnd(bool enable) = 0;
    /// Shows or hides the window.
    virtual bool ShowWnd(bool show) = 0;
    /// Whether the window is visible.
    virtual bool IsWndVisible() = 0;
    /// The current frame is now @p frame.
    virtual void OnCurrentFrameChanged(int frame) = 0;
    /// The timeline was invalidated; repaint what the window draws itself.
    virtual void RepaintWnd() = 0;
    /// The timeline widget stands in the window.
    virtual void OnAfterCreate() = 0;
    /// Tracks were shown, hidden or moved; the height that the rows need may have changed.
    virtual void OnTrackListChanged() = 0;
    /// The timeline changed in what it shows.
    virtual void OnTimelineRefreshed() = 0;
    /// @name Room for the host's own design
    /// Never called by the library.
    /// @{
    virtual void OnHostCommand13() = 0; ///< the host's
    virtual void OnHostCommand14() = 0; ///< the host's
    virtual void OnHostCommand15() = 0; ///< the host's
    virtual void OnHostCommand16() = 0; ///< the host's
    /// @}

    /// The timeline widget, or null when it could not be made.
    CTimelineContainer* GetContainer() const { return m_container; }

protected:
    /// @name Commands and queries for the window's own buttons and menus
    /// Without a timeline widget they do nothing and answer false or 0. A zoom that cannot be done
    /// changes nothing.
    /// @{
    bool CanDoZoomIn();        ///< whether fewer frames can be in view
    bool CanDoZoomOut();       ///< whether more frames can be in view
    bool CanDoZoomAll();       ///< whether not every frame is in view
    bool CanDoUnZoom();        ///< whether the view is not at its closest
    void DoZoomIn();           ///< half as many frames, around the current frame
    void DoZoomOut();          ///< twice as many frames, around the current frame
    void DoZoomAll();          ///< shows the whole frame range; the current frame is not followed
    void DoUnZoom();           ///< zooms in as far as it goes
    bool CanDoSelectNextKey(); ///< whether the active child track has a key to go to
    bool CanDoSelectPreviousKey(); ///< the same
    /// Selects the key after the current frame, or the first one, and makes its frame current.
    void DoSelectNextKey();
    /// Selects the key before the selected one, or the last one, and makes its frame current.
    void DoSelectPreviousKey();
    /// Makes @p frame current (clamped to the valid frames), brings it into view and tells the
    /// host.
    void GotoFrame(int frame);
    /// @}

    /// @name Heights, in pixels
    /// @{

    /// Of a plain row.
    int GetTrackHeight() const;
    /// Of the ruler and the scroll bar alone.
    int GetWndMinRestraint() const;
    /// Of those and the visible root switch rows; also sets the timeline widget's minimum height to
    /// it.
    int GetWndMinHeight();
    /// Of all rows. With @p withWave, wave rows count three times their caption picture, and may
    /// grow that high from then on; a host with a wave row asks so before its first resize, or the
    /// row stays without height.
    int GetWndMaxHeight(bool withWave);
    /// Of all rows as they stand.
    int GetWndNeedHeight();
    /// The timeline widget's size in pixels; 0 and 0 without one.
    void GetWndCurrSize(int& width, int& height);
    /// Tells the timeline the height that it has; the width is not used. More than 42 pixels give
    /// wave rows what the other rows leave, at least 54 pixels and at most their maximum. False for
    /// a negative size (nothing changes); true without a timeline widget.
    bool WndSizeChanged(int width, int height);
    bool IsWndVScrollable();                         ///< always false: the host scrolls vertically
    bool ProcessScrollEventBase(QWheelEvent* event); ///< always false: no wheel event is taken
    /// Which edit an end-edge drag performs where a track allows both: false loop, true speed.
    void SetLoopSpeedState(bool speed);
    /// @}

private:
    friend class CTimelineContainer; // clears the pointer when the widget dies first

    CTimelineContainer* m_container;
};
