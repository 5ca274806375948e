#include "Editor.h"

#include "Hand.h"
#include "Tool.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QtTest>

namespace {

constexpr int kStillTime = 150; ///< milliseconds without a change that count as standing still

QString FocusedTitle()
{
    bool isDone = false;
    const QString title =
        RunTool({QStringLiteral("getwindowfocus"), QStringLiteral("getwindowname")}, &isDone);
    return isDone ? title : QString(); // the screen itself has no title
}

QString TitleOf(const QString& path)
{
    return QFileInfo(path).fileName() + QStringLiteral(" - Kestova Host");
}

} // namespace

bool Sees(const std::function<bool()>& holds)
{
    return QTest::qWaitFor(holds, kPatience);
}

void KeepPicture(const QImage& picture, const QString& what)
{
    const QString folder = QStringLiteral(KESTOVA_BINARY_DIR "/pictures/e2e");
    QDir().mkpath(folder);
    const QString path = QStringLiteral("%1/%2.%3.png")
                             .arg(folder, QLatin1String(QTest::currentTestFunction()), what);
    if (picture.save(path))
        qInfo("See %s", qPrintable(path));
}

Editor::Editor(const Home& home, const QStringList& words, QPoint place) : m_place(place)
{
    Hand::MoveAway();
    m_program.setProcessEnvironment(home.Environment());
    m_program.setWorkingDirectory(home.Path());
    m_program.setProcessChannelMode(QProcess::ForwardedChannels);
    const QString size =
        QStringLiteral("%1x%2").arg(Places::kWindowSize.width()).arg(Places::kWindowSize.height());
    const bool isSized = words.contains(QStringLiteral("--size"));
    m_program.start(QStringLiteral(KESTOVA_HOST_PROGRAM),
                    isSized ? words : QStringList{QStringLiteral("--size"), size} + words);
    m_program.waitForStarted(kPatience);
}

Editor::~Editor()
{
    if (QTest::currentTestFailed() && IsRunning())
        KeepPicture(QGuiApplication::primaryScreen()->grabWindow(0).toImage(),
                    QStringLiteral("screen"));
    if (IsRunning())
        Kill();
}

bool Editor::Opens()
{
    if (!OpensInAnySkin() || !Sees([this] { return CurrentFrame() >= 0; }))
        return false;
    StillPicture();
    return true;
}

bool Editor::OpensInAnySkin()
{
    return FindWindow() && TakeFocus();
}

bool Editor::OpensBehind(const QString& dialog)
{
    return FindWindow() && Asks(dialog);
}

bool Editor::IsRunning() const
{
    return m_program.state() == QProcess::Running;
}

void Editor::Kill()
{
    m_program.kill();
    m_program.waitForFinished(kPatience);
}

int Editor::Quit()
{
    Strike(QStringLiteral("ctrl+q"));
    return ExitCode();
}

int Editor::ExitCode()
{
    if (IsRunning() && !m_program.waitForFinished(kPatience))
        return -1;
    return m_program.exitStatus() == QProcess::NormalExit ? m_program.exitCode() : -1;
}

QString Editor::Title() const
{
    bool isDone = false;
    return RunTool({QStringLiteral("getwindowname"), m_window}, &isDone);
}

bool Editor::Becomes(const QString& title) const
{
    return Sees([&] { return Title() == title; });
}

int Editor::CountOfWindows() const
{
    bool isDone = false;
    const QString found = RunTool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                   QStringLiteral("--pid"), QString::number(m_program.processId())},
                                  &isDone);
    return found.split(u'\n', Qt::SkipEmptyParts).size();
}

bool Editor::Asks(const QString& dialog) const
{
    return Sees([&] { return FocusedTitle() == dialog; });
}

bool Editor::Answer(const QString& dialog, const QStringList& keys)
{
    if (!Asks(dialog))
        return false;
    Hand::Strike(keys);
    return Sees([&] { return FocusedTitle() != dialog; });
}

bool Editor::AnswerFile(const QString& dialog, const QString& path)
{
    if (!Asks(dialog))
        return false;
    Hand::Type(path);
    return Answer(dialog, {QStringLiteral("Return")});
}

void Editor::Strike(const QStringList& keys)
{
    // Giving it back to the window of a dialog that has gone is otherwise a window manager's work.
    if (!HasFocus())
        TakeFocus();
    Hand::Strike(keys);
}

void Editor::Click(QPoint place, int button)
{
    Hand::Click(OnScreen(place), button);
}

void Editor::Drag(QPoint from, QPoint to)
{
    Hand::Drag(OnScreen(from), OnScreen(to));
}

void Editor::PressAndMove(const QVector<QPoint>& way)
{
    QVector<QPoint> onScreen;
    for (const QPoint& place : way)
        onScreen.append(OnScreen(place));
    Hand::PressAndMove(onScreen);
}

void Editor::Turn(QPoint place, int notches, const QString& modifier)
{
    Hand::Turn(OnScreen(place), notches, modifier);
}

void Editor::ClickKey(const QString& row, int frame, int button)
{
    Click(Places::Cell(Picture(), row, frame), button);
}

void Editor::DragKey(const QString& row, int from, int to)
{
    const QImage window = Picture();
    Drag(Places::Cell(window, row, from), Places::Cell(window, row, to));
}

void Editor::ClickButton(const QString& row, Places::CaptionButton button)
{
    Click(Places::Button(Picture(), row, button));
}

QImage Editor::Picture(const QRect& part) const
{
    const QRect seen = part.translated(m_place);
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, seen.x(), seen.y(), seen.width(), seen.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

QImage Editor::StillPicture(const QRect& part) const
{
    Hand::MoveAway();
    QImage picture = Picture(part);
    Sees([&] {
        QTest::qWait(kStillTime);
        const QImage next = Picture(part);
        const bool isStill = next == picture;
        picture = next;
        return isStill;
    });
    return picture;
}

bool Editor::SaveAs(const QString& path)
{
    Strike(QStringLiteral("ctrl+shift+s"));
    return AnswerFile(QStringLiteral("Save As"), path) && Becomes(TitleOf(path));
}

bool Editor::Save()
{
    const QString title = Title().remove(u'*');
    Strike(QStringLiteral("ctrl+s"));
    return Becomes(title);
}

/// The first window that is seen: the others stand in front of it.
bool Editor::FindWindow()
{
    const auto find = [this] {
        bool isDone = false;
        const QString found = RunTool(
            {QStringLiteral("search"), QStringLiteral("--all"), QStringLiteral("--onlyvisible"),
             QStringLiteral("--pid"), QString::number(m_program.processId()),
             QStringLiteral("--name"), QStringLiteral(" - Kestova Host$")},
            &isDone);
        m_window = found.section(u'\n', 0, 0);
        return isDone && !m_window.isEmpty();
    };
    if (!Sees([&] { return find() || !IsRunning(); }) || !IsRunning())
        return false;
    if (!m_place.isNull())
        RunTool({QStringLiteral("windowmove"), m_window, QString::number(m_place.x()),
                 QString::number(m_place.y())});
    return true;
}

bool Editor::HasFocus() const
{
    bool isDone = false;
    return RunTool({QStringLiteral("getwindowfocus")}, &isDone) == m_window;
}

bool Editor::TakeFocus()
{
    RunTool({QStringLiteral("windowfocus"), m_window});
    return Sees([this] { return HasFocus(); });
}
