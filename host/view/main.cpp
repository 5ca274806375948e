#include "DataFiles.h"
#include "HostOptions.h"
#include "MainWindow.h"
#include "Theme.h"
#include "WindowLayout.h"
#include "WindowPicture.h"
#include "files/DocumentActions.h"
#include "files/DocumentDialogs.h"
#include "files/StartOffers.h"
#include "import/NewScene.h"
#include "import/SceneFiles.h"
#include "script/ScriptReader.h"
#include "script/ScriptedRun.h"
#include "storage/DataFolder.h"
#include "storage/DocumentFile.h"

#include <QApplication>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <optional>

namespace {

const QString kNoWindow =
    QStringLiteral("kestova-host: expected the window to come up on the screen");

/// What the program needs to open its window.
struct Start
{
    host::HostOptions options;
    QString path; ///< of the document; empty when the scene was imported
    host::FileStamp stamp;
    host::SceneDocument document;
    bool isLeft = false; ///< an earlier run has left work on the document: the window asks about it
    QString skin;
    std::optional<host::Script> script;
};

/// Whether the program only writes a picture.
bool IsForPicture(const host::HostOptions& options)
{
    return !options.screenshot.isEmpty() || !options.screenGrab.isEmpty();
}

/// Whether nobody is there to be asked anything. Such a run does not depend on what was left
/// behind.
bool IsUnattended(const host::HostOptions& options)
{
    return IsForPicture(options) || !options.script.isEmpty();
}

int Fail(const QString& message)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    return EXIT_FAILURE;
}

/// Writes the picture that the options ask for.
int WritePicture(host::MainWindow& window, const host::HostOptions& options)
{
    if (!host::WaitUntilExposed(window))
        return Fail(kNoWindow);
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

/// What the files hold: a document, or what a scene is made of.
std::optional<host::SceneDocument> ReadFiles(const QStringList& files, QString& error)
{
    const auto document = std::find_if(files.begin(), files.end(), host::IsDocument);
    if (document != files.end() && files.size() == 1)
        return host::ReadDocument(*document, error);
    if (document != files.end()) {
        error = *document + QStringLiteral(": a document is opened alone, without other files");
        return std::nullopt;
    }
    host::ImportError importError;
    const auto scene = host::LoadScene(files.isEmpty() ? host::SampleScene() : files, importError);
    if (!scene) {
        error = importError.Message();
        return std::nullopt;
    }
    return host::SceneDocument{*scene, {}, {}};
}

/// The skin that was asked for, else the one chosen last while it is there.
QString SkinOf(const host::HostOptions& options)
{
    if (!options.skin.isEmpty())
        return options.skin;
    const QString remembered = IsUnattended(options) ? QString() : host::RememberedSkin();
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
    Start start;
    start.options = *options;
    if (options->files.size() == 1 && host::IsDocument(options->files.first()))
        start.path = options->files.first();
    start.stamp = host::StampOf(start.path);
    start.isLeft = !start.path.isEmpty() && !IsUnattended(*options) &&
                   !host::FindLeftoversOf(start.path).leftovers.isEmpty();
    const auto document = start.isLeft ? host::SceneDocument{host::NewScene(), {}, {}}
                                       : ReadFiles(options->files, error);
    if (!document)
        return std::nullopt;
    start.document = *document;
    start.skin = SkinOf(*options);
    if (!QFileInfo(start.skin).isFile()) {
        error = start.skin + QStringLiteral(": expected a skin file");
        return std::nullopt;
    }
    if (options->script.isEmpty())
        return start;
    start.script = host::ReadScript(options->script, error);
    return start.script ? std::optional<Start>(start) : std::nullopt;
}

/// Draws the window in the skin. False, and @p error says why, when it does not do for the scene.
bool DrawIn(host::MainWindow& window, const QString& skin, const Start& start, QString& error)
{
    const bool isDrawn = window.CreateTimeline(skin);
    if (isDrawn && window.CanShow(start.document.scene))
        return true;
    // What was imported asks for no more than every skin has.
    error = isDrawn && !start.path.isEmpty()
                ? start.path + QStringLiteral(": expected a scene that the skin has styles for")
                : skin + QStringLiteral(": expected a skin with every section and key");
    return false;
}

/// Draws the window in the skin of the start. One that was only remembered may have been damaged
/// since: the usual one then stands in, and @p remark says so.
bool DrawIn(host::MainWindow& window, const Start& start, QString& remark, QString& error)
{
    if (DrawIn(window, start.skin, start, error))
        return true;
    if (!start.options.skin.isEmpty() || start.skin == host::DefaultSkin())
        return false;
    host::ApplyTheme(*qApp, host::ThemeOfSkin(host::DefaultSkin()));
    remark = error + QStringLiteral("; the usual skin stands in");
    if (!DrawIn(window, host::DefaultSkin(), start, error))
        return false;
    std::fprintf(stderr, "%s\n", qUtf8Printable(remark));
    return true;
}

int Open(const Start& start)
{
    host::ApplyTheme(*qApp, host::ThemeOfSkin(start.skin));
    host::MainWindow window;
    window.resize(start.options.size);
    QString remark;
    QString error;
    if (!DrawIn(window, start, remark, error))
        return Fail(error);
    host::DocumentDialogs dialogs(&window);
    host::ScriptPrompts prompts(dialogs);
    host::DocumentActions documents(window, prompts);
    if (!IsUnattended(start.options))
        new host::WindowLayout(window, start.options.isSizeGiven); // the window's
    window.show();
    documents.Current().Show(start.isLeft ? QString() : start.path, start.document, start.stamp);
    if (start.path.isEmpty() || start.options.frame)
        window.GotoFrame(start.options.frame.value_or(0));
    if (IsForPicture(start.options))
        return WritePicture(window, start.options);
    if (!start.script)
        host::OfferAtStart(window, documents, {start.path, !start.isLeft, start.options.frame});
    else if (!host::WaitUntilExposed(window))
        return Fail(kNoWindow);
    else
        host::RunScript(window, prompts, *start.script);
    if (!remark.isEmpty())
        window.Tell(remark);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    host::UseSettingsFile();
    QCoreApplication::setOrganizationName(QStringLiteral("Kestova"));
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
    const QApplication application(argc, argv);
    return Open(*start);
}
