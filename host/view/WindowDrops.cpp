#include "WindowDrops.h"

#include "import/Material.h"
#include "storage/DocumentFile.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <algorithm>

namespace host {

namespace {

bool IsIn(const QWidget& part, const QWidget& whole)
{
    return &part == &whole || whole.isAncestorOf(&part);
}

bool IsSound(const QString& path)
{
    return path.endsWith(QLatin1String(".wav"), Qt::CaseInsensitive);
}

} // namespace

WindowDrops::WindowDrops(QWidget* window, QWidget* timeline)
    : QObject(window), m_window(window), m_timeline(timeline)
{
    m_window->setAcceptDrops(true);
    // Rows take every drag that enters them and answer for it alone, so it is caught before them.
    qApp->installEventFilter(this);
}

bool WindowDrops::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return false;
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (!widget || !IsIn(*widget, *m_window))
        return false;
    auto* const drop = static_cast<QDropEvent*>(event); // the base of all three
    const QStringList files = FilesFor(*widget, *drop);
    if (files.isEmpty())
        return false;
    drop->setDropAction(Qt::CopyAction); // the files stay where they are
    drop->accept();
    if (type == QEvent::Drop)
        Tell(files);
    return true;
}

void WindowDrops::Tell(const QStringList& files)
{
    if (IsDocument(files.first()))
        emit DocumentDropped(files.first());
    else
        emit FilesDropped(files);
}

QStringList WindowDrops::FilesFor(const QWidget& widget, const QDropEvent& event) const
{
    QStringList files;
    for (const QUrl& url : event.mimeData()->urls())
        files.append(url.toLocalFile());
    if (files.size() == 1 && IsDocument(files.first()))
        return files;
    const bool isKnown = std::all_of(files.cbegin(), files.cend(), IsMaterial);
    // A row takes one file only.
    const bool isForRow = IsIn(widget, *m_timeline) && files.size() == 1 && IsSound(files.first());
    return isKnown && !isForRow ? files : QStringList();
}

} // namespace host
