#include "TransportBar.h"

#include "Playback.h"
#include "TransportIcons.h"

#include <QAction>
#include <QMenu>

namespace host {

/// One button. The timeline has the plain Home, End, "." and Tab for itself.
struct TransportBar::Entry
{
    TransportSymbol symbol;
    const char* text;
    const char* shortcut; ///< portable
    void (*run)(Playback& playback);
};

const TransportBar::Entry TransportBar::kEntries[] = {
    {TransportSymbol::Start, QT_TR_NOOP("Go to &Start"), "Ctrl+Home",
     [](Playback& playback) { playback.GotoStart(); }},
    {TransportSymbol::StepBack, QT_TR_NOOP("Step &Backwards"), "Left",
     [](Playback& playback) { playback.Step(-1); }},
    {TransportSymbol::Play, QT_TR_NOOP("&Play"), "Space",
     [](Playback& playback) { playback.Toggle(); }},
    {TransportSymbol::Stop, QT_TR_NOOP("St&op"), "Shift+Space",
     [](Playback& playback) { playback.Stop(); }},
    {TransportSymbol::StepForward, QT_TR_NOOP("Step &Forwards"), "Right",
     [](Playback& playback) { playback.Step(1); }},
    {TransportSymbol::End, QT_TR_NOOP("Go to &End"), "Ctrl+End",
     [](Playback& playback) { playback.GotoEnd(); }},
    {TransportSymbol::Loop, QT_TR_NOOP("&Loop the Time Mark"), "Ctrl+Shift+L", nullptr},
};

namespace {

/// "Play (Space)".
void ShowShortcut(QAction& action)
{
    action.setToolTip(QStringLiteral("%1 (%2)").arg(
        action.text().remove(u'&'), action.shortcut().toString(QKeySequence::NativeText)));
}

} // namespace

TransportBar::TransportBar(Playback& playback, QWidget* parent)
    : QToolBar(tr("Playback"), parent), m_playback(playback)
{
    constexpr int kIconSide = 18; // pixels
    setObjectName(QStringLiteral("TransportBar"));
    setIconSize({kIconSide, kIconSide});
    for (const Entry& entry : kEntries) {
        QAction* const action = addAction(TransportIcon(entry.symbol), tr(entry.text));
        action->setShortcut(QKeySequence::fromString(QLatin1String(entry.shortcut)));
        action->setShortcutContext(Qt::WindowShortcut);
        ShowShortcut(*action);
        if (const auto run = entry.run)
            connect(action, &QAction::triggered, this, [this, run] { run(m_playback); });
        if (entry.symbol == TransportSymbol::Play) {
            m_play = action;
            action->setAutoRepeat(false); // a key held down would start and halt all the time
        } else if (entry.symbol == TransportSymbol::Loop) {
            m_loop = action;
            action->setAutoRepeat(false);
        }
    }
    m_loop->setCheckable(true);
    connect(m_loop, &QAction::toggled, &m_playback, &Playback::SetLooping);
    connect(&m_playback, &Playback::LoopingChanged, m_loop, &QAction::setChecked);
    connect(&m_playback, &Playback::StateChanged, this, &TransportBar::ShowState);
    ShowState();
}

void TransportBar::FillMenu(QMenu& menu) const
{
    menu.addActions(actions());
}

void TransportBar::ShowState()
{
    const bool isPlaying = m_playback.IsPlaying();
    m_play->setIcon(TransportIcon(isPlaying ? TransportSymbol::Pause : TransportSymbol::Play));
    m_play->setText(isPlaying ? tr("&Pause") : tr("&Play"));
    ShowShortcut(*m_play);
}

} // namespace host
