#include "controller_fixture.h"
#include "registered_test.h"
#include "toolbar/pal_button.h"
#include "toolbar/panel.h"

#include <QAccessible>
#include <QTest>

#include <algorithm>

using namespace zeigewerk;
using test::Controller;

namespace {

QAccessibleInterface *accessible(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}

/// Counts how often a widget is painted.
class RepaintCounter : public QObject
{
public:
    explicit RepaintCounter(QWidget &widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }

    int count = 0;
};

QColor backgroundOf(PalButton &button)
{
    return button.grab().toImage().pixelColor(button.width() / 2, 4);
}

} // namespace

class PalButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aButtonWithoutASymbolShowsItsTextAndWorks();
    void hoverAndPressAreShownWhileTheyLast();
    void screenReadersGetNameRoleAndState();
    void pressingThroughTheAccessibilityInterfaceClicks();
    void screenReadersReadTheButtonsFromTopToBottom();
};

void PalButtonTest::aButtonWithoutASymbolShowsItsTextAndWorks()
{
    PalButton button(nullptr, {40, 32}, QStringLiteral("Tipp"));
    button.setText(QStringLiteral("?"));
    QVERIFY(!button.image());
    QCOMPARE(button.size(), QSize(40, 32));
    QCOMPARE(button.toolTip(), QStringLiteral("Tipp"));
    const QImage withText = button.grab().toImage();
    button.setText(QString());
    QVERIFY(withText != button.grab().toImage());

    int clicks = 0;
    connect(&button, &PalButton::clicked, &button, [&clicks] { ++clicks; });
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(clicks, 1);
}

void PalButtonTest::hoverAndPressAreShownWhileTheyLast()
{
    PalButton button(nullptr, {40, 32}, QString());
    button.setBackground(kOrange);
    button.setFeedback(kWhite.withAlpha(0.5), kBlack.withAlpha(0.5));
    button.show();
    const QColor plain = backgroundOf(button);
    QTest::mousePress(&button, Qt::LeftButton, {}, {20, 16});
    QVERIFY(backgroundOf(button).lightness() < plain.lightness());
    QTest::mouseRelease(&button, Qt::LeftButton, {}, {20, 16});
    QCOMPARE(backgroundOf(button), plain);

    QVERIFY(QTest::qWaitForWindowExposed(&button));
    RepaintCounter repaints(button);
    QTest::mouseMove(&button, {20, 16});
    QTRY_VERIFY(repaints.count > 0);
    QVERIFY(backgroundOf(button).lightness() > plain.lightness());
    repaints.count = 0;
    QTest::mouseMove(&button, {200, 200});
    QTRY_VERIFY(repaints.count > 0);
    QCOMPARE(backgroundOf(button), plain);
}

void PalButtonTest::screenReadersGetNameRoleAndState()
{
    Controller controller;
    const Toolbar &bar = *controller.app().toolbar();
    QAccessibleInterface *draw = accessible(bar.btnDraw);
    QCOMPARE(draw->text(QAccessible::Name), QStringLiteral("Zeichnen ein/aus (⌃⌥D)"));
    QCOMPARE(draw->text(QAccessible::Description), QString());
    QCOMPARE(draw->role(), QAccessible::CheckBox);
    QVERIFY(draw->state().checkable);
    QVERIFY(!draw->state().checked);
    QVERIFY(!draw->state().focusable);
    controller.app().toggleDraw();
    QVERIFY(draw->state().checked);

    QVERIFY(!accessible(bar.undoButton())->state().checkable);
    QCOMPARE(accessible(bar.undoButton())->role(), QAccessible::Button);
    QCOMPARE(accessible(bar.toolButtons.at(Tool::pen))->role(), QAccessible::RadioButton);
    QVERIFY(accessible(bar.toolButtons.at(Tool::pen))->state().checked);
    QVERIFY(!accessible(bar.toolButtons.at(Tool::line))->state().checked);

    controller.app().toggleDarkUI();
    QCOMPARE(accessible(bar.btnDark)->text(QAccessible::Name), QStringLiteral("Werkzeugleiste hell/dunkel"));
}

void PalButtonTest::pressingThroughTheAccessibilityInterfaceClicks()
{
    Controller controller;
    QAccessibleInterface *ring = accessible(controller.app().toolbar()->btnRing);
    QAccessibleActionInterface *actions = ring->actionInterface();
    QVERIFY(actions);
    actions->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(controller.app().cursorRingOn());
    actions->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(!controller.app().cursorRingOn());
    actions->doAction(QStringLiteral("no such action"));
    QVERIFY(!controller.app().cursorRingOn());
    QCOMPARE(accessible(controller.app().toolbar()->undoButton())->actionInterface()->actionNames(),
             QStringList{QAccessibleActionInterface::pressAction()});
}

void PalButtonTest::screenReadersReadTheButtonsFromTopToBottom()
{
    Controller controller;
    const QAccessibleInterface *panel = accessible(controller.app().toolbar()->panel.get());
    QList<QObject *> read;
    for (int i = 0; i < panel->childCount(); ++i) {
        if (qobject_cast<PalButton *>(panel->child(i)->object()))
            read.append(panel->child(i)->object());
    }
    QList<QObject *> seen = read;
    std::stable_sort(seen.begin(), seen.end(), [](QObject *one, QObject *other) {
        const QPoint a = static_cast<QWidget *>(one)->geometry().center();
        const QPoint b = static_cast<QWidget *>(other)->geometry().center();
        return std::pair(a.y(), a.x()) < std::pair(b.y(), b.x());
    });
    QCOMPARE(read.size(), 30);
    QCOMPARE(read, seen);
}

REGISTER_TEST(PalButtonTest)
#include "pal_button_test.moc"
