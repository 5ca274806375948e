#include "ToolkitOptions.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

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

} // namespace

QStringList WithoutToolkitOptions(const QStringList& arguments)
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

} // namespace host
