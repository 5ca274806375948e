#pragma once

#include "FigurePoser.h"

#include <QSplitter>

namespace host {

class EditSession;
class FaceView;
class FigureView;

/// The preview: the speaking face beside the moving figure, as the scene that is edited has them at
/// the current frame. Follows every edit by itself; the current frame is given.
class PreviewPane : public QSplitter
{
    Q_OBJECT
public:
    /// @param session is kept and outlives this object.
    explicit PreviewPane(const EditSession& session, QWidget* parent = nullptr);

    /// Shows the scene at this frame from now on.
    void ShowFrame(int frame);

private:
    void FollowScene();
    void Show();

    const EditSession& m_session;
    FaceView* m_face;
    FigureView* m_figure;
    FigurePoser m_poser; ///< of the scene as it is now
    int m_frame = 0;
};

} // namespace host
