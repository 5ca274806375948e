#include "ScriptGrammar.h"

#include "WindowSize.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

struct Form
{
    ScriptVerb verb;
    const char* text;
};

constexpr std::array<Form, 28> kForms{{
    {ScriptVerb::Open, "open FILE"},
    {ScriptVerb::Import, "import FILE..."},
    {ScriptVerb::Drop, "drop FILE ROW FRAME"},
    {ScriptVerb::Save, "save [FILE]"},
    {ScriptVerb::Skin, "skin FILE"},
    {ScriptVerb::Size, "size WxH"},
    {ScriptVerb::Frame, "frame FRAME"},
    {ScriptVerb::Zoom, "zoom in|out|all|closest"},
    {ScriptVerb::ZoomRange, "zoom range FRAME FRAME"},
    {ScriptVerb::Select, "select ROW FRAME [FRAME] [ctrl]"},
    {ScriptVerb::Drag, "drag ROW FRAME [start|end] by STEPS [ctrl|shift]"},
    {ScriptVerb::Hover, "hover ROW FRAME"},
    {ScriptVerb::Menu, "menu ENTRY"},
    {ScriptVerb::RowMenu, "row-menu ROW [FRAME] ENTRY"},
    {ScriptVerb::Key, "key KEYS"},
    {ScriptVerb::Undo, "undo"},
    {ScriptVerb::Redo, "redo"},
    {ScriptVerb::Play, "play [MS]"},
    {ScriptVerb::Pause, "pause"},
    {ScriptVerb::Wait, "wait MS"},
    {ScriptVerb::Screenshot, "screenshot FILE [window|timeline|preview|face|figure]"},
    {ScriptVerb::ExpectFrame, "expect frame FRAME"},
    {ScriptVerb::ExpectKey, "expect key ROW FRAME"},
    {ScriptVerb::ExpectNoKey, "expect no-key ROW FRAME"},
    {ScriptVerb::ExpectSelected, "expect selected COUNT"},
    {ScriptVerb::ExpectStatus, "expect status TEXT"},
    {ScriptVerb::ExpectSaved, "expect saved|unsaved"},
    {ScriptVerb::Quit, "quit"},
}};

constexpr std::array<const char*, 3> kCounts{"FRAME", "COUNT", "MS"};

bool IsOneOf(const QString& part, const std::array<const char*, 3>& names)
{
    return std::any_of(names.begin(), names.end(),
                       [&part](const char* name) { return part == QLatin1String(name); });
}

bool TakeNumber(const QString& word, bool mayBeNegative, ScriptCommand& command)
{
    bool isNumber = false;
    const int number = word.toInt(&isNumber);
    if (!isNumber || (number < 0 && !mayBeNegative))
        return false;
    command.numbers.append(number);
    return true;
}

bool TakeSize(const QString& word, ScriptCommand& command)
{
    const std::optional<QSize> size = ReadWindowSize(word);
    if (size)
        command.numbers += {size->width(), size->height()};
    return size.has_value();
}

/// Whether @p word is what @p part of a form stands for; it is then put into @p command, unless
/// nothing else could stand there.
bool TakeWord(const QString& part, bool isOptional, const QString& word, ScriptCommand& command)
{
    if (part == QLatin1String("WxH"))
        return TakeSize(word, command);
    if (part == QLatin1String("STEPS"))
        return TakeNumber(word, true, command);
    if (IsOneOf(part, kCounts))
        return TakeNumber(word, false, command);
    if (part[0].isUpper()) {
        command.texts.append(word);
        return !word.isEmpty();
    }
    const QStringList choices = part.split(u'|');
    if ((isOptional || choices.size() > 1) && choices.contains(word))
        command.words.append(word);
    return choices.contains(word);
}

/// Reads the words by one form. Returns how many fit, and says in @p isWhole whether these are all.
int Fit(const QString& form, const QStringList& words, ScriptCommand& command, bool& isWhole)
{
    int taken = 0;
    isWhole = false;
    for (QString part : form.split(u' ')) {
        const bool isOptional = part.startsWith(u'[');
        if (isOptional)
            part = part.mid(1, part.size() - 2);
        const bool isRepeated = part.endsWith(QLatin1String("..."));
        if (isRepeated)
            part.chop(3);
        const bool isThere =
            taken < words.size() && TakeWord(part, isOptional, words[taken], command);
        if (!isThere && !isOptional)
            return taken;
        taken += isThere ? 1 : 0;
        while (isRepeated && taken < words.size() &&
               TakeWord(part, isOptional, words[taken], command))
            ++taken;
    }
    isWhole = taken == words.size();
    return taken;
}

QString Expected(const QStringList& forms, const QStringList& words, int taken)
{
    const QString found =
        taken < words.size() ? u'"' + words[taken] + u'"' : QStringLiteral("the end of the line");
    return QStringLiteral("expected %1, found %2").arg(forms.join(QLatin1String(" or ")), found);
}

} // namespace

QStringList ScriptForms()
{
    QStringList forms;
    for (const Form& form : kForms)
        forms.append(QLatin1String(form.text));
    return forms;
}

std::optional<ScriptCommand> ReadCommand(const QStringList& words, QString& error)
{
    QStringList nearest; // the forms that fit the words farthest
    int farthest = 0;
    for (const Form& form : kForms) {
        ScriptCommand command;
        command.verb = form.verb;
        bool isWhole = false;
        const int taken = Fit(QLatin1String(form.text), words, command, isWhole);
        if (isWhole)
            return command;
        if (taken == 0 || taken < farthest)
            continue;
        if (taken > farthest)
            nearest.clear();
        farthest = taken;
        nearest.append(QLatin1String(form.text));
    }
    error = nearest.isEmpty()
                ? QStringLiteral("expected a command, found \"%1\"").arg(words.first())
                : Expected(nearest, words, farthest);
    return std::nullopt;
}

} // namespace host
