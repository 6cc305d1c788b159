// After any sequence of events, the picture on a canvas equals a full repaint. So every pixel that changed
// was reported as damaged.

#include "pixels/canvas.h"
#include "pixels/picture.h"
#include "pixels/random_shapes.h"
#include "registered_test.h"

#include <QTest>

#include <array>

namespace zeigewerk::test {

namespace {

constexpr int kStepsPerCanvas = 60;

QString changeModes(Canvas &canvas, RandomShapes &random)
{
    switch (random.integer(0, 4)) {
    case 0:
        canvas.app().toggleDraw();
        return QStringLiteral("toggleDraw");
    case 1:
        canvas.app().toggleBoard();
        return QStringLiteral("toggleBoard");
    case 2:
        canvas.app().toggleSpot();
        return QStringLiteral("toggleSpot");
    case 3:
        canvas.app().toggleFade();
        return QStringLiteral("toggleFade");
    default:
        canvas.app().togglePin();
        return QStringLiteral("togglePin");
    }
}

QString useMouse(Canvas &canvas, RandomShapes &random)
{
    const QSizeF view = canvas.view().bounds().size();
    switch (random.integer(0, 6)) {
    case 0:
        canvas.movePointer(random.point(view));
        return QStringLiteral("pointer moved");
    case 1:
        canvas.view().scrollWheel(
            {.distance = random.real(-5.0, 5.0), .isPrecise = random.chance(0.5), .modifiers = {}});
        return QStringLiteral("wheel turned");
    case 2:
        canvas.view().mouseUp({random.point(view), {}});
        return QStringLiteral("released");
    case 3:
        canvas.view().mouseDragged(
            {random.point(view), random.chance(0.5) ? platform::Modifier::Shift : platform::Modifiers()});
        return QStringLiteral("dragged");
    case 4:
        canvas.drag(random.shape(view));
        return QStringLiteral("drag started");
    default:
        canvas.draw(random.shape(view));
        return QStringLiteral("drawn");
    }
}

QString removeShapes(Canvas &canvas, RandomShapes &random)
{
    if (random.chance(0.2)) {
        canvas.app().clearAll();
        return QStringLiteral("cleared");
    }
    canvas.app().undoShape();
    return QStringLiteral("undone");
}

/// Usually followed by a tick of the fade timer, which removes faded shapes.
QString passTime(Canvas &canvas, RandomShapes &random)
{
    // A short while, backwards, into the middle of a fade, or past its end.
    canvas.passTime(random.oneOf(std::array{random.real(0.0, 1.5), -2.0, 4.4, 5.0}));
    if (random.chance(0.3))
        return QStringLiteral("time passed");
    canvas.app().tickFade();
    return QStringLiteral("fade tick");
}

/// Does one thing that a user, a timer or another part of the program could do. Returns its description.
QString takeStep(Canvas &canvas, RandomShapes &random)
{
    switch (random.integer(0, 11)) {
    case 0:
        return removeShapes(canvas, random);
    case 1:
    case 2:
        return changeModes(canvas, random);
    case 3:
    case 4:
        return passTime(canvas, random);
    default:
        return useMouse(canvas, random);
    }
}

} // namespace

class CanvasDamageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void repaintingTheDamageEqualsAFullRepaint_data();
    void repaintingTheDamageEqualsAFullRepaint();
};

void CanvasDamageTest::repaintingTheDamageEqualsAFullRepaint_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QSize>("pixels");
    QTest::addColumn<int>("canvasCount");
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        QTest::addRow("scale %g", scale) << scale << QSize(240, 180) << 15;
        // Larger than the parts that are painted at a time.
        QTest::addRow("scale %g, large", scale) << scale << QSize(700, 600) << 3;
    }
}

void CanvasDamageTest::repaintingTheDamageEqualsAFullRepaint()
{
    QFETCH(const double, scale);
    QFETCH(const QSize, pixels);
    QFETCH(const int, canvasCount);
    RandomShapes random;
    for (int i = 0; i < canvasCount; ++i) {
        const double radius = random.oneOf(std::array{35.0, 60.5, 90.0, 400.0, 1e9, qInf()});
        Canvas canvas(pixels, scale, {.autoFade = random.chance(0.5), .spotRadius = radius});
        QStringList steps;
        for (int step = 0; step < kStepsPerCanvas; ++step) {
            steps.append(takeStep(canvas, random));
            if (!canvas.surface().isVisible() || random.chance(0.3))
                continue;
            canvas.display();
            const QString difference = firstDifference(canvas.image(), canvas.wholePicture());
            QVERIFY2(difference.isEmpty(),
                     qPrintable(QStringLiteral("seed %1, canvas %2, after %3: %4")
                                    .arg(random.seed())
                                    .arg(i)
                                    .arg(steps.join(QStringLiteral(", ")), difference)));
        }
    }
}

REGISTER_TEST(CanvasDamageTest)

} // namespace zeigewerk::test

#include "canvas_damage_test.moc"
