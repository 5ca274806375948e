// One whole repaint of a timeline of 1920 x 1080 pixels, 40 rows and about 2,000 keys in view, for
// 2,000 to 1,000,000 keys in all; and, for the scale, of a widget of the same size that only draws
// one ready picture.

#include "BenchTimeline.h"

#include "container/CTimelineContainer.h"

#include <QApplication>
#include <QPainter>

#include <benchmark/benchmark.h>

namespace {

class BlitWidget : public QWidget
{
public:
    explicit BlitWidget(const QPixmap& picture) : m_picture(picture)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.drawPixmap(0, 0, m_picture);
    }

private:
    QPixmap m_picture;
};

void PaintBlit(benchmark::State& state)
{
    QPixmap picture(BenchTimeline::kWidth, BenchTimeline::kHeight);
    picture.fill(QColor(40, 42, 46));
    BlitWidget widget(picture);
    widget.resize(picture.size());
    widget.show();
    QApplication::processEvents();
    for (auto _ : state)
        widget.repaint();
}

void PaintRows(benchmark::State& state)
{
    BenchTimeline timeline(static_cast<int>(state.range(0)));
    CTimelineContainer* const container = timeline.Container();
    state.counters["keys_in_view"] = timeline.CountKeysInView();
    state.counters["height"] = container->height();
    for (auto _ : state)
        container->repaint();
}

} // namespace

BENCHMARK(PaintBlit)->Unit(benchmark::kMicrosecond);
BENCHMARK(PaintRows)->Arg(2'000)->Arg(20'000)->Arg(200'000)->Arg(1'000'000)->Unit(
    benchmark::kMicrosecond);

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
