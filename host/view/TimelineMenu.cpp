#include "TimelineMenu.h"

#include "CaptionButtons.h"
#include "RangeCommands.h"
#include "TimelineWindow.h"
#include "document/EditNames.h"

#include <QAction>
#include <QMenu>

#include <array>

namespace host {

namespace {

struct View
{
    ViewCommand command;
    const char* text; ///< with the key that the timeline listens to itself
};

constexpr std::array<View, 4> kViews{
    {{ViewCommand::ZoomIn, QT_TRANSLATE_NOOP("TimelineMenu", "Zoom &In\t+")},
     {ViewCommand::ZoomOut, QT_TRANSLATE_NOOP("TimelineMenu", "Zoom &Out\t-")},
     {ViewCommand::ShowAll, QT_TRANSLATE_NOOP("TimelineMenu", "Show &All Frames\t*")},
     {ViewCommand::ShowClosest, QT_TRANSLATE_NOOP("TimelineMenu", "Show &Closest\t/")}}};

/// In the order of the states: the letter of "Mute Row", "Solo Row" and "Lock Row" that chooses it.
constexpr std::array<int, kRowStates.size()> kStateMnemonics{0, 1, 3};

/// In the order of the states.
constexpr std::array<const char*, kRowStates.size()> kStateShortcuts{"Ctrl+M", "Ctrl+Shift+M",
                                                                     "Ctrl+L"};

/// "&Mute Row"
QString Accelerated(RowState state)
{
    QString text = TextsOf(state).switchOn.arg(TimelineMenu::tr("Row"));
    return text.insert(kStateMnemonics.at(static_cast<std::size_t>(state)), u'&');
}

} // namespace

TimelineMenu::TimelineMenu(QMenu* view, QMenu* timeline, const Subjects& subjects)
    : QObject(timeline), m_subjects(subjects), m_commands(this)
{
    connect(&m_commands, &CommandList::Done, this, &TimelineMenu::Done);
    AddViews(view);
    AddRanges(timeline);
    timeline->addSeparator();
    AddMarks(timeline);
    timeline->addSeparator();
    AddRowStates(timeline);
    timeline->addSeparator();
    AddClipEnds(timeline);
    Update();
}

void TimelineMenu::SetWindow(TimelineWindow* window)
{
    m_window = window;
    if (!window)
        return;
    m_clipSpeed->setChecked(window->IsClipSpeed());
    connect(window, &TimelineWindow::ClipSpeedChanged, m_clipSpeed, &QAction::setChecked);
    Update();
}

void TimelineMenu::Update()
{
    m_commands.Update();
    CTimelineTrackBase* const active = m_subjects.manager.GetActiveChildTrack();
    for (std::size_t i = 0; i < m_rowStates.size(); ++i)
        m_rowStates[i]->setChecked(m_subjects.rows.Has(active, static_cast<RowState>(i)));
}

void TimelineMenu::AddViews(QMenu* menu)
{
    for (const View& view : kViews) {
        const ViewCommand command = view.command;
        m_commands.Add(menu, {tr(view.text), QString(),
                              [this, command] { return m_window && m_window->Can(command); },
                              [this, command] { m_window->Do(command); }});
    }
}

void TimelineMenu::AddRanges(QMenu* menu)
{
    RangeCommands& ranges = m_subjects.ranges;
    const auto add = [&](const QString& text, const char* shortcut, std::function<void()> run) {
        m_commands.Add(menu, {text, QLatin1String(shortcut),
                              [&ranges] { return ranges.HasRange(); }, std::move(run)});
    };
    add(tr("&Select Range"), "Ctrl+R", [&ranges] { ranges.Select(); });
    add(tr("&Delete Range"), "Ctrl+Del", [&ranges] { ranges.Delete(); });
    add(tr("Shift Range &Earlier"), "Alt+Shift+Left", [&ranges] { ranges.Shift(-1); });
    add(tr("Shift Range &Later"), "Alt+Shift+Right", [&ranges] { ranges.Shift(1); });
    add(tr("Shift Range to Current &Frame"), "", [&ranges] { ranges.ShiftToCurrentFrame(); });
    add(tr("Mark &Range"), "", [&ranges] { ranges.Mark(); });
}

void TimelineMenu::AddMarks(QMenu* menu)
{
    const auto current = [this] { return m_subjects.manager.GetCurrentFrame(); };
    const auto mark = [this] { return m_subjects.session.Current().timeMark; };
    const auto add = [&](const QString& text, const char* shortcut, std::function<void()> run) {
        m_commands.Add(menu, {text, QLatin1String(shortcut), nullptr, std::move(run)});
    };
    add(tr("Mark S&tart Here"), "Shift+Home", [this, current, mark] {
        MarkFrames(MarkerName(true, current()), current(), std::max(current(), mark().end));
    });
    add(tr("Mark E&nd Here"), "Shift+End", [this, current, mark] {
        MarkFrames(MarkerName(false, current()), std::min(current(), mark().start), current());
    });
    add(tr("Mark &Whole Scene"), "", [this] {
        MarkFrames(tr("Mark whole scene"), 0, m_subjects.session.Current().frameCount - 1);
    });
}

void TimelineMenu::AddRowStates(QMenu* menu)
{
    CTimelineManager& manager = m_subjects.manager;
    CaptionButtons& rows = m_subjects.rows;
    for (const RowState state : kRowStates) {
        QAction* const action = m_commands.Add(
            menu,
            {Accelerated(state), QLatin1String(kStateShortcuts.at(static_cast<std::size_t>(state))),
             [&rows, &manager] { return rows.Concerns(manager.GetActiveChildTrack()); },
             [&rows, &manager, state] { rows.Toggle(manager.GetActiveChildTrack(), state); }});
        action->setCheckable(true);
        m_rowStates.push_back(action);
    }
}

void TimelineMenu::AddClipEnds(QMenu* menu)
{
    m_clipSpeed = m_commands.Add(
        menu, {tr("&Clip Ends Change Speed"), QStringLiteral("Ctrl+E"), nullptr, [this] {
                   if (m_window)
                       m_window->SetClipSpeed(m_clipSpeed->isChecked());
               }});
    m_clipSpeed->setCheckable(true);
}

void TimelineMenu::MarkFrames(const QString& name, int start, int end)
{
    Scene scene = m_subjects.session.Current();
    scene.timeMark = {start, end};
    m_subjects.manager.SetTimeMarkFrame(start, end);
    m_subjects.session.Apply(name, scene);
}

} // namespace host
