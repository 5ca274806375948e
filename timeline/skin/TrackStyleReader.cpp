#include "skin/TrackStyleReader.h"

#include "skin/StyleSections.h"

#include "TimelineEnums.h"

#include <memory>
#include <string>
#include <utility>

namespace {

/// Makes the record of a kind, hands it out, and fills it as far as the section goes.
template <typename Style, bool (*Read)(const SkinSection&, Style&)>
bool ReadRecord(const SkinSection& section, std::unique_ptr<StyleRecord>& record)
{
    auto style = std::make_unique<Style>();
    Style& filled = *style;
    record = std::move(style);
    return Read(section, filled);
}

struct TrackKind
{
    SkinTrackKind names;
    bool (*read)(const SkinSection&, std::unique_ptr<StyleRecord>&);
};

constexpr auto kReadKey = ReadRecord<KeyTrackStyle, ReadKeyTrack>;
constexpr auto kReadLineKey = ReadRecord<LineKeyTrackStyle, ReadLineKeyTrack>;

constexpr TrackKind kTrackKinds[] = {
    {{TL_TRACK_TICK, L"TickTrack", false}, ReadRecord<TickTrackStyle, ReadTickTrack>},
    {{TL_TRACK_SWITCH, L"SwitchTrack", true}, ReadRecord<SwitchTrackStyle, ReadSwitchTrack>},
    {{TL_TRACK_KEY, L"KeyTrack", true}, kReadKey},
    {{TL_TRACK_TRANSITION_KEY, L"TransKeyTrack", true}, kReadLineKey},
    {{TL_TRACK_LINK_KEY, L"LinkKeyTrack", true}, kReadLineKey},
    {{TL_TRACK_VISEME_KEY, L"VisemeKeyTrack", true}, kReadKey},
    {{TL_TRACK_CLIP, L"ClipTrack", true}, ReadRecord<ClipTrackStyle, ReadClipTrack>},
    {{TL_TRACK_WAVE, L"WaveTrack", true}, ReadRecord<WaveTrackStyle, ReadWaveTrack>},
};

std::wstring SectionName(const SkinTrackKind& kind, int styleNumber)
{
    return kind.numbered ? kind.section + std::to_wstring(styleNumber) : kind.section;
}

} // namespace

std::vector<SkinTrackKind> SkinTrackKinds()
{
    std::vector<SkinTrackKind> kinds;
    for (const TrackKind& kind : kTrackKinds)
        kinds.push_back(kind.names);
    return kinds;
}

bool LoadTrackStyle(const SkinSource& skin, int styleNumber, int trackType,
                    std::unique_ptr<StyleRecord>& record)
{
    record.reset();
    for (const TrackKind& kind : kTrackKinds) {
        if (kind.names.trackType == trackType)
            return kind.read(SkinSection(skin, SectionName(kind.names, styleNumber)), record);
    }
    return true;
}

bool LoadTrackStyle(const std::wstring& skinPath, int styleNumber, int trackType,
                    std::unique_ptr<StyleRecord>& record)
{
    return LoadTrackStyle(SkinFile(skinPath), styleNumber, trackType, record);
}

bool ReadContextMenuFont(const std::wstring& skinPath, QString& face, int& pointSize)
{
    return ReadContextMenuFont(SkinFile(skinPath), face, pointSize);
}

bool ReadContextMenuFont(const SkinSource& skin, QString& face, int& pointSize)
{
    const SkinSection menu(skin, L"TrackRightMenu");
    return menu.Read(L"TxtFace", face) && menu.Read(L"TxtSize", pointSize);
}
