#include "Transport.h"

#include "TransportBar.h"

#include <QMainWindow>

namespace host {

Transport::Transport(QMainWindow* window, CTimelineManager& manager, const EditSession& session)
    : QObject(window), m_manager(manager), m_sound(MakeSoundOutput()),
      m_playback(session, m_clock, *m_sound), m_bar(new TransportBar(m_playback, window))
{
    window->addToolBar(m_bar);
    connect(&m_playback, &Playback::FrameReached, this, &Transport::Show);
    connect(&m_playback, &Playback::StateChanged, this, &Transport::StateChanged);
    connect(&m_playback, &Playback::Told, this, &Transport::Told);
}

/// The bar knows of the playback and goes first.
Transport::~Transport()
{
    delete m_bar;
}

void Transport::Show(int frame)
{
    constexpr int kToTheLeft = -1; // what follows is in view then, for as long as possible
    m_manager.SetCurrentFrame(frame);
    m_manager.ScrollToFrame(frame, kToTheLeft);
}

} // namespace host
