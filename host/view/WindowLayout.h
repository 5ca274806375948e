#pragma once

#include <QObject>

namespace host {

class MainWindow;

/// The skin that was chosen last, or an empty text. What is remembered lies in the program's
/// QSettings.
QString RememberedSkin();

/// Remembers where the window stands, how it and the preview are divided, what of it is shown, its
/// skin, whether playback loops and what the ends of clips change from one run to the next.
class WindowLayout : public QObject
{
    Q_OBJECT
public:
    /// Puts the window back as it was left; @p keepSize leaves its size and place alone. The window
    /// owns this object, which writes everything down when it is closed.
    WindowLayout(MainWindow& window, bool keepSize);

    /// Writes it down now.
    void Save() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    MainWindow& m_window;
};

} // namespace host
