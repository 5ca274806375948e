#pragma once

#include "EditorPlaces.h"
#include "Home.h"

#include <QImage>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <functional>

/// Milliseconds that anything may take; the sanitized program on a busy machine is slow.
constexpr int kPatience = 30000;

/// Looks until it holds, for as long as patience lasts; whether it does.
bool Sees(const std::function<bool()>& holds);

/// Leaves a picture of the running test in the build folder, for who looks why it failed.
void KeepPicture(const QImage& picture, const QString& what);

/// The program as its user has it: started like any other, seen as pictures of the screen and
/// titles of windows, worked with by hand. Places are pixels of its window.
class Editor
{
public:
    /// Starts the program with these words of the command line; its window is put there.
    explicit Editor(const Home& home, const QStringList& words = {}, QPoint place = {});
    /// Ends the program, if it still runs, without any more ado. When the test has failed, a
    /// picture of the screen is kept.
    ~Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    /// Waits until the window is up and stands still; whether it does.
    bool Opens();
    /// The same, when the current frame cannot be told by the colours of the default skin.
    bool OpensInAnySkin();
    /// As Opens(), while a dialog of that title is in front.
    bool OpensBehind(const QString& dialog);
    bool IsRunning() const;
    /// Ends the program as a crash would.
    void Kill();
    /// Quits and waits for the end; gives the exit code, -1 when the program does not end by
    /// itself.
    int Quit();
    /// Waits for the end of a program that is closing.
    int ExitCode();

    QString Title() const;
    /// Whether the title becomes this one.
    bool Becomes(const QString& title) const;
    /// How many windows of the program are seen, counting dialogs and menus.
    int CountOfWindows() const;
    /// Waits for the dialog of that title, strikes the keys in it, and waits until it has gone.
    bool Answer(const QString& dialog, const QStringList& keys);
    /// Answers a dialog that asks for a file.
    bool AnswerFile(const QString& dialog, const QString& path);
    /// Whether a dialog of that title comes up in front.
    bool Asks(const QString& dialog) const;

    /// Strikes the keys in this window.
    void Strike(const QStringList& keys);
    void Strike(const QString& keys) { Strike(QStringList{keys}); }
    void Click(QPoint place, int button = 1);
    void Drag(QPoint from, QPoint to);
    void PressAndMove(const QVector<QPoint>& way);
    void Turn(QPoint place, int notches, const QString& modifier = {});

    /// Clicks in the row's cell, drags from frame to frame in it, and so on.
    void ClickKey(const QString& row, int frame, int button = 1);
    void DragKey(const QString& row, int from, int to);
    void ClickButton(const QString& row, Places::CaptionButton button);

    /// What is seen in that part of the window.
    QImage Picture(const QRect& part = Places::kAllButStatus) const;
    /// The same, when nothing has moved for a while and the pointer is away.
    QImage StillPicture(const QRect& part = Places::kAllButStatus) const;
    int CurrentFrame() const { return Places::CurrentFrame(Picture()); }

    /// Saves by the keyboard under that path, which the dialog is told; whether it was done.
    bool SaveAs(const QString& path);
    /// Saves a document that has a path already.
    bool Save();

private:
    QPoint OnScreen(QPoint place) const { return place + m_place; }
    bool FindWindow();
    bool HasFocus() const;
    bool TakeFocus();

    const QPoint m_place;
    QString m_window; ///< what the screen calls it
    QProcess m_program;
};
