#include "DataFiles.h"
#include "HostOptions.h"
#include "MainWindow.h"
#include "Theme.h"
#include "WindowLayout.h"
#include "WindowPicture.h"
#include "import/SceneFiles.h"

#include <QApplication>
#include <QFileInfo>
#include <QSettings>

#include <cstdio>
#include <optional>

namespace {

/// What the program needs to open its window.
struct Start
{
    host::HostOptions options;
    host::Scene scene;
    QString skin;
};

int Fail(const QString& message)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    return EXIT_FAILURE;
}

/// Writes the picture that the options ask for.
int WritePicture(host::MainWindow& window, const host::HostOptions& options)
{
    if (!host::WaitUntilExposed(window))
        return Fail(QStringLiteral("kestova-host: expected the window to come up on the screen"));
    const bool fromScreen = !options.screenGrab.isEmpty();
    const QString path = fromScreen ? options.screenGrab : options.screenshot;
    const QImage picture =
        fromScreen ? host::PictureOnScreen(window) : host::PaintedPicture(window);
    if (picture.isNull())
        return Fail(QStringLiteral("kestova-host: expected a screen that can be looked at"));
    if (!picture.save(path, "PNG"))
        return Fail(path + QStringLiteral(": expected a file that can be written"));
    return EXIT_SUCCESS;
}

/// Whether the user is to work in the window: pictures do not depend on what one left behind.
bool IsInteractive(const host::HostOptions& options)
{
    return options.screenshot.isEmpty() && options.screenGrab.isEmpty();
}

/// The skin that was asked for, else the one chosen last while it is there.
QString SkinOf(const host::HostOptions& options)
{
    if (!options.skin.isEmpty())
        return options.skin;
    const QString remembered = IsInteractive(options) ? host::RememberedSkin() : QString();
    return QFileInfo(remembered).isFile() ? remembered : host::DefaultSkin();
}

/// All that can be found wrong without a screen is found before one is asked for.
std::optional<Start> Prepare(QString& error)
{
    const auto options = host::ParseOptions(QCoreApplication::arguments(), error);
    if (!options) {
        error.prepend(QStringLiteral("kestova-host: "));
        return std::nullopt;
    }
    host::ImportError importError;
    const auto scene = host::LoadScene(
        options->files.isEmpty() ? host::SampleScene() : options->files, importError);
    if (!scene) {
        error = importError.Message();
        return std::nullopt;
    }
    const QString skin = SkinOf(*options);
    if (!QFileInfo(skin).isFile()) {
        error = skin + QStringLiteral(": expected a skin file");
        return std::nullopt;
    }
    return Start{*options, *scene, skin};
}

int Open(const Start& start)
{
    host::MainWindow window;
    window.resize(start.options.size);
    if (!window.CreateTimeline(start.skin) || !window.SetScene(start.scene))
        return Fail(start.skin + QStringLiteral(": expected a skin with every section and key"));
    const bool isInteractive = IsInteractive(start.options);
    if (isInteractive)
        new host::WindowLayout(window, start.options.isSizeGiven); // the window's
    window.show();
    window.GotoFrame(start.options.frame);
    if (!isInteractive)
        return WritePicture(window, start.options);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QCoreApplication::setOrganizationName(QStringLiteral("kestova"));
    QCoreApplication::setApplicationName(QStringLiteral("kestova-host"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KESTOVA_HOST_VERSION));
    std::optional<Start> start;
    QString error;
    {
        const QCoreApplication withoutScreen(argc, argv);
        start = Prepare(error);
    }
    if (!start)
        return Fail(error);
    QApplication application(argc, argv);
    host::ApplyTheme(application, host::ThemeOfSkin(start->skin));
    return Open(*start);
}
