#include "HostOptions.h"

#include "ToolkitOptions.h"
#include "script/WindowSize.h"

#include <QCommandLineParser>

#include <cstdio>
#include <cstdlib>

namespace host {

namespace {

struct Options
{
    QCommandLineOption skin{QStringLiteral("skin"), QStringLiteral("Draw in the skin FILE."),
                            QStringLiteral("FILE")};
    QCommandLineOption size{QStringLiteral("size"), QStringLiteral("Open the window in this size."),
                            QStringLiteral("WxH")};
    QCommandLineOption frame{QStringLiteral("frame"), QStringLiteral("Start at frame N."),
                             QStringLiteral("N")};
    QCommandLineOption screenshot{QStringLiteral("screenshot"),
                                  QStringLiteral("Write a picture of the window and leave."),
                                  QStringLiteral("PNG")};
    QCommandLineOption screenGrab{
        QStringLiteral("grab-screen"),
        QStringLiteral("Write what the screen shows of the window and leave."),
        QStringLiteral("PNG")};
    QCommandLineOption script{QStringLiteral("script"),
                              QStringLiteral("Run the commands in FILE, a line each."),
                              QStringLiteral("FILE")};
};

bool ParseFrame(const QString& text, int& frame)
{
    bool isNumber = false;
    frame = text.toInt(&isNumber);
    return isNumber && frame >= 0;
}

} // namespace

std::optional<HostOptions> ParseOptions(const QStringList& arguments, QString& error)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A small lip-sync editor: shows a captured motion and a spoken line."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const Options known;
    parser.addOptions(
        {known.skin, known.size, known.frame, known.screenshot, known.screenGrab, known.script});
    parser.addPositionalArgument(QStringLiteral("FILES"),
                                 QStringLiteral("A document (.ktl), or a motion capture (.bvh), "
                                                "mouth cues (.json, .tsv) and sounds (.wav); "
                                                "none: the sample scene."),
                                 QStringLiteral("[FILES...]"));
    if (!parser.parse(WithoutToolkitOptions(arguments))) {
        error = parser.errorText();
        return std::nullopt;
    }
    if (parser.isSet(QStringLiteral("help-all"))) {
        std::fputs(qUtf8Printable(parser.helpText() + ToolkitHelp()), stdout);
        std::exit(EXIT_SUCCESS);
    }
    if (parser.isSet(help))
        parser.showHelp();
    if (parser.isSet(version))
        parser.showVersion();

    HostOptions options;
    options.files = parser.positionalArguments();
    options.skin = parser.value(known.skin);
    options.screenshot = parser.value(known.screenshot);
    options.screenGrab = parser.value(known.screenGrab);
    if (parser.isSet(known.screenshot) && parser.isSet(known.screenGrab)) {
        error = QStringLiteral("--grab-screen: expected no --screenshot with it");
        return std::nullopt;
    }
    options.script = parser.value(known.script);
    if (parser.isSet(known.script) &&
        (parser.isSet(known.screenshot) || parser.isSet(known.screenGrab))) {
        error = QStringLiteral("--script: takes its pictures itself, by the command screenshot");
        return std::nullopt;
    }
    options.isSizeGiven = parser.isSet(known.size);
    const auto size = ReadWindowSize(parser.value(known.size));
    options.size = size.value_or(options.size);
    if (options.isSizeGiven && !size) {
        error = QStringLiteral("--size: expected WIDTHxHEIGHT in pixels, such as 1280x720");
        return std::nullopt;
    }
    if (parser.isSet(known.frame) &&
        !ParseFrame(parser.value(known.frame), options.frame.emplace())) {
        error = QStringLiteral("--frame: expected a frame number, 0 or more");
        return std::nullopt;
    }
    return options;
}

} // namespace host
