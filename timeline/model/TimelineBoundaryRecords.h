#pragma once

#include <QString>

#include <vector>

class CTimelineTrackBase;

/// One button of a switch track.
struct _tmpTLSwitchBtnData
{
    QString text;  ///< label
    int state = 0; ///< 0 off, 1 off with hover, 2 on, 3 on with hover
};

/// One row of the track relation table, which is one for the whole process.
struct _tmpTLRelatedMap
{
    /// 0: the targets show the source's time range; 1: key selection follows across the listed
    /// tracks; 3: the targets show the source's clips as bars. Other kinds are kept and have no
    /// effect.
    int kind = 0;
    /// The first track is the relation's source, the others its targets. Not owned.
    std::vector<CTimelineTrackBase*> tracks;
};

/// One entry of the right-click menu that the host fills. The host owns the entries it adds and
/// keeps them until the menu has closed.
struct _tmpTLMenuMapData
{
    int command = 0;          ///< reported back when chosen; negative makes the entry a separator
    QString text;             ///< label
    bool checked = false;     ///< check mark
    bool enabled = true;      ///< can be chosen
    void* reserved = nullptr; ///< not read by the library
    std::vector<_tmpTLMenuMapData*>
        children; ///< entries of a submenu; two levels below the top are shown
};
