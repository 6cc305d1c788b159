// The place of a text: in the field, and then on the canvas.
#include "registered_test.h"
#include "text_presentation.h"

using namespace zeigewerk::rig;

namespace {

/// The ink within a rectangle of the screen.
class Ink
{
public:
    Ink(TextPresentation &show, const QRect &where)
        : m_image(show.session.screenshot().image().copy(where))
    {
    }

    bool isEmpty() const { return pixels() == 0; }
    /// Whether both have ink at the same places, within a pixel.
    bool isLike(const Ink &other) const { return covers(other) && other.covers(*this); }

private:
    bool isAt(int x, int y) const
    {
        const QColor color = m_image.rect().contains(x, y) ? m_image.pixelColor(x, y) : QColor();
        constexpr int kTolerance = 8;
        return color.isValid() && std::abs(color.red() - kInk.red()) <= kTolerance &&
               std::abs(color.green() - kInk.green()) <= kTolerance &&
               std::abs(color.blue() - kInk.blue()) <= kTolerance;
    }
    bool isNear(int x, int y) const
    {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                if (isAt(x + dx, y + dy))
                    return true;
            }
        }
        return false;
    }
    int pixels() const
    {
        int count = 0;
        for (int y = 0; y < m_image.height(); ++y) {
            for (int x = 0; x < m_image.width(); ++x)
                count += isAt(x, y);
        }
        return count;
    }
    bool covers(const Ink &other) const
    {
        for (int y = 0; y < m_image.height(); ++y) {
            for (int x = 0; x < m_image.width(); ++x) {
                if (other.isAt(x, y) && !isNear(x, y))
                    return false;
            }
        }
        return true;
    }

    QImage m_image;
};

} // namespace

class TextPlaceScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textStaysWhereItWasTyped_data();
    void textStaysWhereItWasTyped();
    void rightToLeftTextStaysWhereItWasTyped_data();
    void rightToLeftTextStaysWhereItWasTyped();
    void withoutACompositorTheFieldIsWhite();
};

void TextPlaceScenarios::textStaysWhereItWasTyped_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("scale %g", scale) << scale;
}

void TextPlaceScenarios::textStaysWhereItWasTyped()
{
    QFETCH(double, scale);
    // Pixels that are not at whole points.
    const QPoint place(303, 401);
    TextPresentation show({.keyboardMap = "de"}, scale);
    QVERIFY(show.open(place));
    show.typeGreeting();
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.isWritten(place));
    QVERIFY(show.inkAt(place).height() > 14 * scale);
    const QRect drawn = show.inkAt(place);

    // The same again in a field on top of it, whose white covers the first text. The caret comes after the
    // space, outside the rectangle.
    QVERIFY(show.open(place));
    EVENTUALLY(!isNear(show.inkAt(place), drawn));
    show.typeGreeting();
    show.session.keyboard().tap(Key::Space);
    const auto typed = [&] {
        const QRect around = drawn.adjusted(-3, -8, 3, 8).translated(place);
        return show.session.screenshot().bounds(kInk, around, 8).translated(-place);
    };
    EVENTUALLY(isNear(typed(), drawn));
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.isDrawing());
    // Painted twice, the edges are a little bolder.
    EVENTUALLY(isNear(show.inkAt(place), drawn));
}

void TextPlaceScenarios::rightToLeftTextStaysWhereItWasTyped_data()
{
    struct Row
    {
        const char *name;
        QString keys;
        QString text;
    };
    // The keys on an Israeli keyboard.
    const QList<Row> rows = {
        {.name = "one word", .keys = "akuo", .text = "שלום"},
        {.name = "two words", .keys = "akuo guko ", .text = "שלום עולם "},
        {.name = "with digits", .keys = "akuo 12", .text = "שלום 12"},
    };
    QTest::addColumn<double>("scale");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    for (const double scale : {1.0, 1.5}) {
        for (const Row &row : rows)
            QTest::addRow("%s, scale %g", row.name, scale) << scale << row.keys << row.text;
    }
}

void TextPlaceScenarios::rightToLeftTextStaysWhereItWasTyped()
{
    QFETCH(double, scale);
    QFETCH(QString, keys);
    QFETCH(QString, text);
    const QPoint place(303, 401);
    const QRect around(place - QPoint(10, 10), (QSizeF(TextPresentation::kField) * scale).toSize());
    TextPresentation show({.keyboardMap = "il,us"}, scale);
    ClipboardUser other(show.session);
    QVERIFY(show.open(place));
    show.session.keyboard().type(keys);
    show.command(Key::A);
    show.command(Key::C);
    EVENTUALLY(other.paste() == text);
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.isDrawing());
    // The field and its caret must be gone from the screen, too.
    EVENTUALLY(show.pixel(place + QPoint(250, 10)) == show.beneathColor() && !show.inkAt(place).isEmpty());
    const Ink drawn(show, around);
    // It begins at the left, like all text.
    QVERIFY(show.inkAt(place).left() >= 0);
    QVERIFY(show.inkAt(place).left() < 20 * scale);

    // The same again in a field on top of it, compared while the caret is off.
    QVERIFY(show.open(place));
    EVENTUALLY(Ink(show, around).isEmpty());
    show.session.keyboard().type(keys);
    EVENTUALLY(Ink(show, around).isLike(drawn));
}

void TextPlaceScenarios::withoutACompositorTheFieldIsWhite()
{
    TextPresentation show({.compositor = Compositor::None});
    QVERIFY(show.open({200, 500}));
    // To the right of the placeholder.
    EVENTUALLY(show.session.screenshot().isFilled(Qt::white, {500, 497, 39, 30}));
    show.session.keyboard().type("da");
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.isDrawing());
    EVENTUALLY(!show.inkAt({200, 500}).isEmpty());
    EVENTUALLY(show.isUntouched({300, 450, 400, 200}));
}

REGISTER_GUILESS_TEST(TextPlaceScenarios)
#include "text_place_scenarios.moc"
