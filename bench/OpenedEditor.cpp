#include "OpenedEditor.h"

#include "script/MenuPath.h"
#include "storage/DocumentFile.h"
#include "view/WindowPicture.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr QSize kWindow(1920, 1080);

} // namespace

OpenedEditor::OpenedEditor(const QString& path) : m_document(m_window), m_hand(&m_window)
{
    m_window.resize(kWindow);
    if (!m_window.CreateTimeline(QStringLiteral(KESTOVA_SOURCE_DIR "/skins/default.ini")))
        qFatal("the skin cannot be read");
    m_window.show();
    QString error;
    const auto document = host::ReadDocument(path, error);
    if (!document)
        qFatal("%s", qPrintable(error));
    if (!m_document.Show(path, *document, host::StampOf(path)))
        qFatal("the skin lacks styles");
    Settle();
}

void OpenedEditor::Settle()
{
    constexpr int kRounds = 3; // what is handled may ask for more
    for (int round = 0; round < kRounds; ++round)
        QApplication::processEvents();
}

void OpenedEditor::Look(View view)
{
    constexpr float kMiddle = 0.5F;
    constexpr float kFewSeconds = 170.0F / LongScene::kFrames;
    const int frame = LongScene::kFrames / 2;
    if (view == View::Everything)
        m_window.SetView({0, 1, frame});
    else
        m_window.SetView({kMiddle - kFewSeconds / 2, kMiddle + kFewSeconds / 2, frame});
    Settle();
}

QWidget* OpenedEditor::Timeline()
{
    return m_window.findChild<QScrollArea*>()->widget();
}

QWidget* OpenedEditor::Ruler()
{
    m_window.findChild<QScrollArea*>()->verticalScrollBar()->setValue(0);
    return Timeline()->childAt(Timeline()->width() - 1, 1);
}

QWidget* OpenedEditor::Row(const QString& name)
{
    const void* const track = m_window.Tracks().TrackOf(IdOf(name));
    for (QWidget* const widget : Timeline()->findChildren<QWidget*>()) {
        if (widget != track)
            continue;
        constexpr int kMargin = 100; // pixels above and below it
        const QPoint place = widget->mapTo(Timeline(), widget->rect().center());
        m_window.findChild<QScrollArea*>()->ensureVisible(0, place.y(), 0, kMargin);
        Settle();
        return widget;
    }
    qFatal("no row %s", qPrintable(name));
}

host::TrackId OpenedEditor::IdOf(const QString& name) const
{
    for (const host::SceneTrack& track : Scene().tracks) {
        if (track.name == name)
            return track.id;
    }
    qFatal("no row %s", qPrintable(name));
}

void OpenedEditor::HaveKeyAt(const QString& row, int x)
{
    m_hand.Click(Ruler(), QPoint(x, 1)); // a click in the row would leave a range there
    m_window.Timeline().SetActiveChildTrack(m_window.Tracks().TrackOf(IdOf(row)));
    Row(row);
    Choose(QStringLiteral("Insert Key"));
}

void OpenedEditor::SelectAll(const QString& row)
{
    Row(row);
    m_window.Timeline().SetActiveChildTrack(m_window.Tracks().TrackOf(IdOf(row)));
    Choose(QStringLiteral("Select All"));
}

void OpenedEditor::Choose(const QString& command)
{
    for (const QMenu* const menu : m_window.menuBar()->findChildren<QMenu*>()) {
        for (QAction* const action : menu->actions()) {
            if (host::PlainText(*action) != command)
                continue;
            action->trigger();
            Settle();
            return;
        }
    }
    qFatal("no command %s", qPrintable(command));
}

void OpenedEditor::Undo()
{
    m_window.History().Undo();
    Settle();
}

void OpenedEditor::Redo()
{
    m_window.History().Redo();
    Settle();
}
