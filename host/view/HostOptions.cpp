#include "HostOptions.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace host {

namespace {

constexpr int kLargestSide = 16384; ///< pixels; a window beyond it cannot be painted

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
};

/// An option that the toolkit takes for itself when the window is made.
struct ToolkitOption
{
    const char* name;
    const char* value; ///< what it is followed by; null for nothing
    const char* text;
};

constexpr std::array<ToolkitOption, 16> kToolkitOptions{{
    {"platform", "NAME[:OPTIONS]", "Draw through that platform plugin."},
    {"platformpluginpath", "FOLDER", "Look for platform plugins there."},
    {"platformtheme", "NAME", "Use that platform theme."},
    {"plugin", "NAME", "Load that plugin for input devices."},
    {"qwindowgeometry", "GEOMETRY", "Place the first window there."},
    {"geometry", "GEOMETRY", "The same on X11."},
    {"qwindowicon", "FILE", "Give windows that icon."},
    {"icon", "FILE", "The same on X11."},
    {"qwindowtitle", "TITLE", "Give the first window that title."},
    {"title", "TITLE", "The same on X11."},
    {"display", "NAME", "Open the window on that X11 display."},
    {"session", "ID", "Take up that session again."},
    {"style", "NAME", "Use that widget style."},
    {"stylesheet", "FILE", "Use that style sheet."},
    {"reverse", nullptr, "Lay out from right to left."},
    {"widgetcount", nullptr, "Tell at the end how many widgets are left."},
}};

/// The toolkit's option that the argument is, written with one dash or two; null when it is none.
const ToolkitOption* ToolkitOptionOf(const QString& argument)
{
    if (!argument.startsWith(u'-'))
        return nullptr;
    QString name = argument.mid(argument.startsWith(QLatin1String("--")) ? 2 : 1);
    if (name.startsWith(QLatin1String("style"))) // the only ones that may have their value so
        name = name.section(u'=', 0, 0);
    const auto found = std::find_if(
        kToolkitOptions.begin(), kToolkitOptions.end(),
        [&name](const ToolkitOption& option) { return name == QLatin1String(option.name); });
    return found == kToolkitOptions.end() ? nullptr : &*found;
}

/// The arguments that are this program's own.
QStringList OwnArguments(const QStringList& arguments)
{
    QStringList own;
    for (int i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == QLatin1String("--"))
            return own + arguments.mid(i);
        const ToolkitOption* const option = ToolkitOptionOf(arguments[i]);
        if (!option)
            own += arguments[i];
        else if (option->value && !arguments[i].contains(u'='))
            ++i; // its value
    }
    return own;
}

QString ToolkitHelp()
{
    constexpr int kColumn = 34; // as wide as the names need
    QString text = QStringLiteral("\nOptions of the toolkit:\n");
    for (const ToolkitOption& option : kToolkitOptions) {
        QString name = QStringLiteral("  -") + QLatin1String(option.name);
        if (option.value)
            name += QStringLiteral(" <%1>").arg(QLatin1String(option.value));
        text += name.leftJustified(kColumn) + QLatin1String(option.text) + u'\n';
    }
    return text;
}

bool ParseSize(const QString& text, QSize& size)
{
    static const QRegularExpression pattern(QStringLiteral("^([0-9]{1,5})x([0-9]{1,5})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    size = {match.captured(1).toInt(), match.captured(2).toInt()};
    return match.hasMatch() && !size.isEmpty() && size.width() <= kLargestSide &&
           size.height() <= kLargestSide;
}

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
    parser.addOptions({known.skin, known.size, known.frame, known.screenshot, known.screenGrab});
    parser.addPositionalArgument(QStringLiteral("FILES"),
                                 QStringLiteral("A document (.ktl), or a motion capture (.bvh), "
                                                "mouth cues (.json, .tsv) and sounds (.wav); "
                                                "none: the sample scene."),
                                 QStringLiteral("[FILES...]"));
    if (!parser.parse(OwnArguments(arguments))) {
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
    options.isSizeGiven = parser.isSet(known.size);
    if (options.isSizeGiven && !ParseSize(parser.value(known.size), options.size)) {
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
