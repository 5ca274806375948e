#pragma once

#include <QProcess>
#include <QSize>
#include <QString>
#include <QStringList>

/// An X server without a screen to look at. It ends with the object, or when the last of the
/// programs that it shows has gone.
class VirtualScreen
{
public:
    /// Starts the server, which chooses a free display.
    explicit VirtualScreen(QSize size)
    {
        m_server.start(
            QStringLiteral("Xvfb"),
            {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
             QStringLiteral("0"), QStringLiteral("%1x%2x24").arg(size.width()).arg(size.height()),
             QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-terminate")});
        while (m_server.waitForReadyRead(kPatience)) {
            const QByteArray line = m_server.readLine().trimmed();
            if (!line.isEmpty()) {
                m_display = QStringLiteral(":") + QString::fromLatin1(line);
                return;
            }
        }
    }

    ~VirtualScreen()
    {
        m_server.terminate();
        m_server.waitForFinished(kPatience);
    }

    /// What programs find it by; empty when there is none.
    QString Display() const { return m_display; }

private:
    static constexpr int kPatience = 20000; ///< milliseconds

    QProcess m_server;
    QString m_display;
};
