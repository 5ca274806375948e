#include "ScriptPictures.h"

#include "preview/FaceView.h"
#include "preview/FigureView.h"
#include "preview/PreviewPane.h"
#include "view/MainWindow.h"
#include "view/TimelinePane.h"

#include <array>

namespace host {

namespace {

template <class Part>
QWidget* Find(const MainWindow& window)
{
    return window.findChild<Part*>();
}

struct NamedPart
{
    const char* name;
    QWidget* (*find)(const MainWindow& window);
};

constexpr std::array<NamedPart, 4> kParts{{{"timeline", Find<TimelinePane>},
                                           {"preview", Find<PreviewPane>},
                                           {"face", Find<FaceView>},
                                           {"figure", Find<FigureView>}}};

} // namespace

QWidget* PartOfWindow(MainWindow& window, const QString& name)
{
    for (const NamedPart& part : kParts) {
        QWidget* const found = name == QLatin1String(part.name) ? part.find(window) : nullptr;
        if (found)
            return found;
    }
    return &window;
}

} // namespace host
