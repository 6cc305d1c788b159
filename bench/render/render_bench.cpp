// The cost of painting: single shapes, one more sample of a stroke, whole canvases, undo, the spotlight.
// Benchmarks of a sample or a step paint only its damage, as a surface does.

#include "core/app_delegate.h"
#include "drawing/render_shape.h"
#include "pen_path.h"
#include "platform/paint_damage.h"
#include "recording/recording_desktop.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace zeigewerk {

namespace {

using platform::Damage;

constexpr QSize kScreen(3840, 2160);

QPointF penPoint(int sample)
{
    return bench::penPosition(kScreen, sample);
}

Shape stroke(Tool tool, int points)
{
    Shape shape{
        .tool = tool, .points = {}, .start = {}, .end = {}, .color = kOrange, .width = 5.0, .text = {}};
    for (int i = 0; i < points; ++i)
        shape.points.push_back(penPoint(i));
    return shape;
}

Shape exampleOf(Tool tool)
{
    Shape shape = stroke(tool, tool == Tool::pen || tool == Tool::highlighter ? 200 : 0);
    shape.start = {300, 300};
    shape.end = {900, 700};
    if (tool == Tool::text)
        shape.text = QStringLiteral("Zwölf Boxkämpfer");
    return shape;
}

QImage blankScreen()
{
    QImage image(kScreen, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

/// A surface that shows a single shape.
class OneShape : public platform::SurfaceContent
{
public:
    explicit OneShape(const Shape &shape)
        : m_shape(shape)
    {
    }

    void draw(platform::PaintTarget &target) override { renderShape(target, m_shape, 1.0); }

private:
    const Shape &m_shape;
};

void renderOneShape(benchmark::State &state)
{
    const Tool tool = Tool::allCases.at(static_cast<std::size_t>(state.range(0)));
    const Shape shape = exampleOf(tool);
    QImage image = blankScreen();
    OneShape content(shape);
    while (state.KeepRunning())
        platform::paintDamage(image, 1.0, paintedArea(shape), content);
    state.SetLabel(tool.symbol().toStdString());
}
BENCHMARK(renderOneShape)->DenseRange(0, 6)->Unit(benchmark::kMicrosecond);

void paintedAreaOfShape(benchmark::State &state)
{
    const Tool tool = Tool::allCases.at(static_cast<std::size_t>(state.range(0)));
    const Shape shape = exampleOf(tool);
    while (state.KeepRunning())
        benchmark::DoNotOptimize(paintedArea(shape));
    state.SetLabel(tool.symbol().toStdString());
}
BENCHMARK(paintedAreaOfShape)->DenseRange(0, 6)->Unit(benchmark::kMicrosecond);

/// The program on a desktop in memory, with one screen of 3840 x 2160.
class Program
{
public:
    Program()
        : m_desktop({{.name = QStringLiteral("A"), .nativeFrame = QRect(QPoint(0, 0), kScreen), .frame = {}}})
        , m_defaults(m_home.filePath(QStringLiteral("settings.ini")))
        , app(m_desktop, m_defaults)
    {
        app.applicationDidFinishLaunching();
    }

    DrawingView &view() { return app.overlays().front()->view(); }
    platform::RecordingSurface &surface()
    {
        return *m_desktop.surfaces(platform::SurfaceRole::Overlay).front();
    }

    void draw(Tool tool, QPointF from, QPointF to)
    {
        app.setTool(tool);
        view().mouseDown({from, {}});
        view().mouseDragged({to, {}});
        view().mouseUp({to, {}});
    }

private:
    QTemporaryDir m_home;
    platform::RecordingDesktop m_desktop;
    UserDefaults m_defaults;

public:
    AppDelegate app;
};

/// A few shapes of every tool that is dragged, all over the screen.
void drawShapes(Program &program, int count)
{
    for (int i = 0; i < count; ++i) {
        const QPointF from = penPoint(97 * i);
        program.draw(Tool::allCases.at(static_cast<std::size_t>(i % 6)), from, from + QPointF(300, 200));
    }
}

/// Adds samples to a stroke of `points` points above `others` other shapes.
void samplePen(benchmark::State &state, Tool tool, int points, int others)
{
    Program program;
    program.app.toggleDraw();
    int sample = 0;
    const auto begin = [&] {
        program.view().discardShapes();
        drawShapes(program, others);
        program.app.setTool(tool);
        program.view().mouseDown({penPoint(0), {}});
        for (sample = 1; sample < points; ++sample)
            program.view().mouseDragged({penPoint(sample), {}});
        program.surface().display();
    };
    begin();
    while (state.KeepRunning()) {
        program.view().mouseDragged({penPoint(sample++), {}});
        program.surface().display();
        // More samples would make the stroke longer than stated.
        if (sample == points + 100) {
            state.PauseTiming();
            program.view().mouseUp({penPoint(sample), {}});
            begin();
            state.ResumeTiming();
        }
    }
}

void onePenSample(benchmark::State &state)
{
    samplePen(state, static_cast<Tool::Value>(state.range(0)), static_cast<int>(state.range(1)), 0);
}
BENCHMARK(onePenSample)
    ->ArgNames({"tool", "points"})
    ->ArgsProduct({{Tool::pen, Tool::highlighter}, {100, 1'000, 20'000}})
    ->Unit(benchmark::kMicrosecond);

void onePenSampleAboveOtherShapes(benchmark::State &state)
{
    samplePen(state, Tool::pen, 100, static_cast<int>(state.range(0)));
}
BENCHMARK(onePenSampleAboveOtherShapes)->Arg(10)->Arg(100)->Arg(10'000)->Unit(benchmark::kMicrosecond);

void wholeCanvas(benchmark::State &state)
{
    Program program;
    program.app.toggleDraw();
    drawShapes(program, 12);
    program.surface().display();
    QImage image = blankScreen();
    while (state.KeepRunning())
        platform::paintDamage(image, 1.0, Damage::everything(), program.view());
}
BENCHMARK(wholeCanvas)->Unit(benchmark::kMillisecond);

/// Strokes of 50 points each, scattered over the screen.
void scribble(Program &program, int count)
{
    program.app.setTool(Tool::pen);
    for (int i = 0; i < count; ++i) {
        const QPointF start = bench::scattered(kScreen, i);
        program.view().mouseDown({start, {}});
        for (int point = 1; point < 50; ++point)
            program.view().mouseDragged({start + penPoint(i + point) - penPoint(i), {}});
        program.view().mouseUp({start, {}});
    }
    program.surface().display();
}

void onePenSampleAboveScribbles(benchmark::State &state)
{
    Program program;
    program.app.toggleDraw();
    scribble(program, static_cast<int>(state.range(0)));
    program.view().mouseDown({penPoint(0), {}});
    int sample = 1;
    while (state.KeepRunning()) {
        program.view().mouseDragged({penPoint(sample++), {}});
        program.surface().display();
    }
}
BENCHMARK(onePenSampleAboveScribbles)->Arg(0)->Arg(10'000)->Unit(benchmark::kMicrosecond);

void wholeCanvasOfScribbles(benchmark::State &state)
{
    Program program;
    program.app.toggleDraw();
    scribble(program, static_cast<int>(state.range(0)));
    QImage image = blankScreen();
    while (state.KeepRunning())
        platform::paintDamage(image, 1.0, Damage::everything(), program.view());
}
BENCHMARK(wholeCanvasOfScribbles)->Arg(0)->Arg(100)->Arg(10'000)->Unit(benchmark::kMillisecond);

/// Draws one more shape among others, and undoes it.
void drawAndUndo(benchmark::State &state)
{
    Program program;
    program.app.toggleDraw();
    scribble(program, static_cast<int>(state.range(0)));
    while (state.KeepRunning()) {
        program.draw(Tool::line, {500, 500}, {700, 600});
        program.surface().display();
        program.app.undoShape();
        program.surface().display();
    }
}
BENCHMARK(drawAndUndo)->Arg(0)->Arg(10'000)->Unit(benchmark::kMicrosecond);

/// The first frame of the spotlight, in which every pixel is dimmed.
void wholeSpotlight(benchmark::State &state)
{
    Program program;
    program.app.toggleSpot();
    QImage image = blankScreen();
    program.surface().display();
    while (state.KeepRunning())
        platform::paintDamage(image, 1.0, Damage::everything(), program.view());
}
BENCHMARK(wholeSpotlight)->Unit(benchmark::kMillisecond);

void oneSpotlightStep(benchmark::State &state)
{
    Program program;
    program.app.toggleSpot();
    program.surface().display();
    int step = 0;
    while (state.KeepRunning()) {
        program.view().setCursorPoint(penPoint(5 * step++));
        program.surface().display();
    }
}
BENCHMARK(oneSpotlightStep)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace zeigewerk

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
