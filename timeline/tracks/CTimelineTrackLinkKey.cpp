#include "tracks/CTimelineTrackLinkKey.h"

#include "tracks/LinkPainter.h"
#include "tracks/LinkWindow.h"

CTimelineTrackLinkKey::CTimelineTrackLinkKey()
{
    setAccessibleName(QStringLiteral("CTimelineTrackLinkKey"));
}

bool CTimelineTrackLinkKey::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_LINK_KEY, 10);
}

void CTimelineTrackLinkKey::DrawKeys(QPainter* painter, QRect rect)
{
    ResizeTo(rect.size());
    const auto* style = StyleAs<LineKeyTrackStyle>();
    if (!style)
        return;
    const RowView view(*painter, rect, Axis());
    if (view.IsEmpty())
        return;
    LinkPainter(*painter, view, *style)
        .Draw(CollectLinkWindow(Keys(), Facts(), Scope(), view, *style));
    DrawOwnKeyBars(*painter, view);
}
