// Files dragged over the rows and dropped on them.

#include "container/CTimelineContainer.h"

#include "container/CTimelineContainerInterface.h"
#include "library/CallOut.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"

#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QUrl>

namespace {

/// The path of the first file that is dragged; empty when it is none of this machine.
QString PathOfFirstFile(const QDropEvent& event)
{
    const QList<QUrl> urls = event.mimeData() ? event.mimeData()->urls() : QList<QUrl>();
    return urls.isEmpty() ? QString() : urls.first().toLocalFile();
}

} // namespace

bool CTimelineContainer::OnTrackDrop(QDropEvent* event, CTimelineTrackBase*)
{
    const QString path = PathOfFirstFile(*event);
    if (path.isEmpty() || !m_owner)
        return false;
    const TLDropFileType type = m_dropRules.Classify(path);
    if (type == TL_DROP_NONE)
        return false;
    const CallOut callOut;
    const InHostsHands inHostsHands(*this);
    return m_owner->OnContainerDrop(type, path);
}

bool CTimelineContainer::OnTrackDragCheck(QDropEvent* event, CTimelineTrackBase* track, int frame)
{
    const QString path = PathOfFirstFile(*event);
    if (path.isEmpty())
        return false;
    if (track && frame > TimelineLibrary::Instance().axis.frameCount)
        return false;
    if (!MayBeDropped(path, track, frame))
        return false;
    event->setDropAction(event->proposedAction());
    event->accept();
    return true;
}

/// Asks the host, which may set the filters for just this track and frame, before it reads them.
bool CTimelineContainer::MayBeDropped(const QString& path, CTimelineTrackBase* track, int frame)
{
    if (!DropFileRules::IsKnownWhileDragging(path))
        return false;
    const QPointer<CTimelineContainer> self(this);
    SendToHost(kHostDragCheck, track, nullptr, QVariant(0), QVariant(path), QVariant(frame));
    return self && m_dropRules.IsAnyFilterOn();
}
