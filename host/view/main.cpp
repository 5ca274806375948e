#include "DarkTheme.h"
#include "DataFiles.h"
#include "HostOptions.h"
#include "MainWindow.h"
#include "WindowPicture.h"
#include "import/SceneFiles.h"

#include <QApplication>
#include <QFileInfo>

#include <cstdio>

namespace {

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

int Run(QApplication& application)
{
    QString usageError;
    const auto options = host::ParseOptions(QApplication::arguments(), usageError);
    if (!options)
        return Fail(QStringLiteral("kestova-host: ") + usageError);

    host::ImportError importError;
    const auto scene = host::LoadScene(
        options->files.isEmpty() ? host::SampleScene() : options->files, importError);
    if (!scene)
        return Fail(importError.Message());

    host::ApplyDarkTheme(application);
    const QString skin = options->skin.isEmpty() ? host::DefaultSkin() : options->skin;
    if (!QFileInfo(skin).isFile())
        return Fail(skin + QStringLiteral(": expected a skin file"));
    host::MainWindow window;
    window.resize(options->size);
    if (!window.CreateTimeline(skin) || !window.SetScene(*scene))
        return Fail(skin + QStringLiteral(": expected a skin with every section and key"));
    window.show();
    window.GotoFrame(options->frame);

    if (!options->screenshot.isEmpty() || !options->screenGrab.isEmpty())
        return WritePicture(window, *options);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kestova-host"));
    QApplication::setApplicationVersion(QStringLiteral(KESTOVA_HOST_VERSION));
    return Run(application);
}
