// Where a presenter's text stands: in the field, and then on the canvas.
#include "registered_test.h"
#include "text_presentation.h"

using namespace zeigewerk::rig;

namespace {

/// The ink within a rectangle of the screen.
class Ink
{
public:
    Ink(TextPresentation &on, const QRect &where)
        : m_image(on.session.screenshot().image().copy(where))
    {
    }

    bool isEmpty() const { return pixels() == 0; }
    /// Whether both are ink at the same places, give or take a pixel.
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
    void whatIsTypedStaysWhereItWasTyped_data();
    void whatIsTypedStaysWhereItWasTyped();
    void textFromRightToLeftStaysWhereItWasTyped_data();
    void textFromRightToLeftStaysWhereItWasTyped();
    void withoutACompositorTheFieldIsWhite();
};

void TextPlaceScenarios::whatIsTypedStaysWhereItWasTyped_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("scale %g", scale) << scale;
}

void TextPlaceScenarios::whatIsTypedStaysWhereItWasTyped()
{
    QFETCH(double, scale);
    // Pixels that lie on broken points.
    const QPoint place(303, 401);
    TextPresentation on({.keyboardMap = "de"}, scale);
    QVERIFY(on.open(place));
    on.greet();
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isWritten(place));
    QVERIFY(on.inkAt(place).height() > 14 * scale);
    const QRect drawn = on.inkAt(place);

    // The same again in a field over it, whose white covers the first. The caret stands behind a blank, and
    // is left out.
    QVERIFY(on.open(place));
    EVENTUALLY(!isNear(on.inkAt(place), drawn));
    on.greet();
    on.session.keyboard().tap(Key::Space);
    const auto typed = [&] {
        const QRect around = drawn.adjusted(-3, -8, 3, 8).translated(place);
        return on.session.screenshot().bounds(kInk, around, 8).translated(-place);
    };
    EVENTUALLY(isNear(typed(), drawn));
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isDrawing());
    // Painted twice, its edges are a little bolder.
    EVENTUALLY(isNear(on.inkAt(place), drawn));
}

void TextPlaceScenarios::textFromRightToLeftStaysWhereItWasTyped_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    for (const double scale : {1.0, 1.5}) {
        // By the keys of an Israeli keyboard.
        QTest::addRow("one word, scale %g", scale) << scale << "akuo"
                                                   << "שלום";
        QTest::addRow("two words, scale %g", scale) << scale << "akuo guko "
                                                    << "שלום עולם ";
        QTest::addRow("with figures, scale %g", scale) << scale << "akuo 12"
                                                       << "שלום 12";
    }
}

void TextPlaceScenarios::textFromRightToLeftStaysWhereItWasTyped()
{
    QFETCH(double, scale);
    QFETCH(QString, keys);
    QFETCH(QString, text);
    const QPoint place(303, 401);
    const QRect around(place - QPoint(10, 10), (QSizeF(TextPresentation::kField) * scale).toSize());
    TextPresentation on({.keyboardMap = "il,us"}, scale);
    ClipboardUser other(on.session);
    QVERIFY(on.open(place));
    on.session.keyboard().type(keys);
    on.command(Key::A);
    on.command(Key::C);
    EVENTUALLY(other.paste() == text);
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isDrawing());
    // Until the field, and its caret, are gone from the screen too.
    EVENTUALLY(on.pixel(place + QPoint(250, 10)) == on.beneathColor() && !on.inkAt(place).isEmpty());
    const Ink drawn(on, around);
    // It begins at the left, as all text does.
    QVERIFY(on.inkAt(place).left() >= 0);
    QVERIFY(on.inkAt(place).left() < 20 * scale);

    // The same again in a field over it, in a moment at which the caret is dark.
    QVERIFY(on.open(place));
    EVENTUALLY(Ink(on, around).isEmpty());
    on.session.keyboard().type(keys);
    EVENTUALLY(Ink(on, around).isLike(drawn));
}

void TextPlaceScenarios::withoutACompositorTheFieldIsWhite()
{
    TextPresentation on({.compositor = Compositor::None});
    QVERIFY(on.open({200, 500}));
    // Right of the placeholder.
    EVENTUALLY(on.session.screenshot().isFilled(Qt::white, {500, 497, 39, 30}));
    on.session.keyboard().type("da");
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isDrawing());
    EVENTUALLY(!on.inkAt({200, 500}).isEmpty());
    EVENTUALLY(on.isUntouched({300, 450, 400, 200}));
}

REGISTER_GUILESS_TEST(TextPlaceScenarios)
#include "text_place_scenarios.moc"
