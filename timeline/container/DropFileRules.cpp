#include "container/DropFileRules.h"

#include "CTimelineKeyArray.h"
#include "model/TimelineKeyValues.h"

#include <algorithm>

namespace {

struct DropType
{
    const char* extension;
    TLDropFileType type;
};

constexpr DropType kDropTypes[] = {
    {"kxanim", TL_DROP_ANIMATION},
    {"kxmotion", TL_DROP_MOTION},
    {"kx3dmotion", TL_DROP_MOTION_3D},
    {"kxperform", TL_DROP_PERFORM},
    {"kx7idle", TL_DROP_IDLE},
    {"kxs2idle", TL_DROP_IDLE},
    {"kxfcs", TL_DROP_FACIAL},
    {"kxs", TL_DROP_SCRIPT},
    {"clp", TL_DROP_CLIP},
    {"kx7automotion", TL_DROP_AUTO_MOTION},
};

constexpr const char* kKnownWhileDragging[] = {"kx7idle",   "kxmotion",   "kxanim",   "kxfcs",
                                               "kxperform", "kx3dmotion", "kxs2idle", "kxs",
                                               "clp",       "wav",        "mp3"};

constexpr const char* kSounds[] = {"wav", "mp3"};

constexpr std::size_t kFirstSoundFilter = 4;
constexpr std::size_t kSecondSoundFilter = 5;

template <std::size_t N>
bool IsListed(const char* const (&list)[N], const QString& extension)
{
    return std::any_of(std::begin(list), std::end(list),
                       [&extension](const char* each) { return extension == QLatin1String(each); });
}

} // namespace

bool DropFileRules::IsAnyFilterOn() const
{
    return std::any_of(m_filters.begin(), m_filters.end(), [](bool filter) { return filter; });
}

QString DropFileRules::ExtensionOf(const QString& path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('.')) + 1).toLower();
}

TLDropFileType DropFileRules::Classify(const QString& path) const
{
    const QString extension = ExtensionOf(path);
    if (IsListed(kSounds, extension)) {
        if (m_filters[kFirstSoundFilter])
            return TL_DROP_SOUND_FIRST;
        return m_filters[kSecondSoundFilter] ? TL_DROP_SOUND_SECOND : TL_DROP_NONE;
    }
    const auto found = std::find_if(
        std::begin(kDropTypes), std::end(kDropTypes),
        [&extension](const DropType& each) { return extension == QLatin1String(each.extension); });
    return found == std::end(kDropTypes) ? TL_DROP_NONE : found->type;
}

bool DropFileRules::IsKnownWhileDragging(const QString& path)
{
    return IsListed(kKnownWhileDragging, ExtensionOf(path));
}

bool DropFileRules::CoversFrame(const CTimelineKeyArray& keys, int frame, bool lockedOnly)
{
    return std::any_of(
        keys.Keys().begin(), keys.Keys().end(), [frame, lockedOnly](const auto& key) {
            const long long end = static_cast<long long>(key->frame) + key->displayLength;
            return key->frame <= frame && frame <= end &&
                   (!lockedOnly || key->lockState == TL_KEY_LOCKED);
        });
}
