#include "PreviewPane.h"

#include "Blink.h"
#include "FaceView.h"
#include "FigureView.h"
#include "document/EditSession.h"

namespace host {

PreviewPane::PreviewPane(const EditSession& session, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent), m_session(session), m_face(new FaceView),
      m_figure(new FigureView)
{
    constexpr int kFaceShare = 2; // of the width, against the figure
    constexpr int kFigureShare = 3;
    addWidget(m_face);
    addWidget(m_figure);
    setStretchFactor(indexOf(m_face), kFaceShare);
    setStretchFactor(indexOf(m_figure), kFigureShare);
    setChildrenCollapsible(true);
    connect(&session, &EditSession::Changed, this, &PreviewPane::FollowScene);
    FollowScene();
}

void PreviewPane::ShowFrame(int frame)
{
    if (frame == m_frame)
        return;
    m_frame = frame;
    Show();
}

void PreviewPane::FollowScene()
{
    m_poser = FigurePoser(m_session.Current());
    Show();
}

void PreviewPane::Show()
{
    const Scene& scene = m_session.Current();
    m_face->Show({MouthAt(scene, m_frame), LidsAt(m_frame, scene.frameRate)});
    m_figure->Show(scene.motion, m_poser.At(m_frame));
}

} // namespace host
