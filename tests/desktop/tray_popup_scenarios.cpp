// The menu as opened by the program itself.

#include "keyboard_grab.h"
#include "registered_test.h"
#include "rig/grab_probe.h"
#include "rig/popup.h"
#include "toolbar_user.h"
#include "tray_presentation.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

/// In the left half, away from the toolbar.
constexpr QPoint kMenuPlace(300, 300);

/// The program's windows that have opened since this was created.
class NewWindows
{
public:
    explicit NewWindows(Presentation &show)
        : m_show(show)
        , m_before(ids())
    {
    }

    QList<WindowInfo> now()
    {
        QList<WindowInfo> found = m_show.shownWindows();
        found.removeIf([this](const WindowInfo &window) { return m_before.contains(window.id); });
        return found;
    }

private:
    QList<xcb_window_t> ids()
    {
        QList<xcb_window_t> list;
        for (const WindowInfo &window : m_show.shownWindows())
            list.append(window.id);
        return list;
    }

    Presentation &m_show;
    QList<xcb_window_t> m_before;
};

} // namespace

class TrayPopupScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aClickOnTheItemOpensTheMenu_data();
    void aClickOnTheItemOpensTheMenu();
    void aMenuOpenedDuringAGrabCanBeClosedAfterwards_data();
    void aMenuOpenedDuringAGrabCanBeClosedAfterwards();
    void escClosesOnlyTheMenu();
    void theOpenMenuIsAboveTheWhiteboard();
    void ctrlQQuitsOnlyWhileTheMenuIsOpen();
};

void TrayPopupScenarios::aClickOnTheItemOpensTheMenu_data()
{
    QTest::addColumn<bool>("isContextMenu");
    QTest::newRow("a plain click") << false;
    QTest::newRow("a right click in a tray that shows no menus") << true;
}

void TrayPopupScenarios::aClickOnTheItemOpensTheMenu()
{
    QFETCH(bool, isContextMenu);
    TrayPresentation show;
    NewWindows menus(show);
    QVERIFY(show.session.pointer().moveTo(kMenuPlace));
    QVERIFY(isContextMenu ? show.tray.host.openContextMenu(show.item, kMenuPlace)
                          : show.tray.host.activate(show.item, kMenuPlace));
    EVENTUALLY(menus.now().size() == 1);
    const WindowInfo menu = menus.now().first();
    QCOMPARE(menu.geometry.topLeft(), kMenuPlace);
    QVERIFY(menu.overrideRedirect);
    QVERIFY(show.beneath.hasFocus());
    // A click outside closes the menu and reaches no other window.
    show.beneath.forget();
    QVERIFY(show.session.pointer().clickAt({100, 900}));
    EVENTUALLY(menus.now().isEmpty());
    QVERIFY(show.beneath.hasFocus());
    QVERIFY(show.session.pointer().clickAt({100, 900}));
    EVENTUALLY(!show.beneath.presses().isEmpty());
}

void TrayPopupScenarios::aMenuOpenedDuringAGrabCanBeClosedAfterwards_data()
{
    QTest::addColumn<bool>("isKeyboardGrab");
    QTest::addColumn<bool>("isClosedByEsc");
    QTest::newRow("pointer grab, closed by a click") << false << false;
    QTest::newRow("pointer grab, closed by Esc") << false << true;
    QTest::newRow("keyboard grab, closed by a click") << true << false;
    QTest::newRow("keyboard grab, closed by Esc") << true << true;
}

// A tray that opens the menu on a press holds the pointer until the release.
void TrayPopupScenarios::aMenuOpenedDuringAGrabCanBeClosedAfterwards()
{
    QFETCH(bool, isKeyboardGrab);
    QFETCH(bool, isClosedByEsc);
    TrayPresentation show(withAccessibility({}));
    ToolbarUser toolbar(show.session, show.program);
    NewWindows menus(show);
    QVERIFY(show.session.pointer().moveTo(kMenuPlace));
    Popup tray(show.session, {600, 0, 100, 30}, Qt::gray);
    std::optional<KeyboardGrab> keyboardGrab;
    if (isKeyboardGrab)
        keyboardGrab.emplace(show.session);
    else
        QVERIFY(tray.grabPointer());
    QVERIFY(show.tray.host.activate(show.item, kMenuPlace));
    EVENTUALLY(menus.now().size() == 1);
    keyboardGrab.reset();
    tray.ungrabPointer();
    EVENTUALLY(!canGrabKeyboard(show.session) && !canGrabPointer(show.session));
    if (isClosedByEsc)
        show.session.keyboard().tap(Key::Escape);
    else
        QVERIFY(show.session.pointer().clickAt({100, 900}));
    EVENTUALLY(menus.now().isEmpty());
    QVERIFY(show.beneath.hasFocus());
    // Nothing remains of the grabs, neither in the server nor in the program.
    show.beneath.forget();
    QVERIFY(show.session.pointer().clickAt({100, 900}));
    EVENTUALLY(!show.beneath.presses().isEmpty());
    QVERIFY(toolbar.click(button::kSpotlight));
    EVENTUALLY(show.isChecked(label::kSpot));
}

void TrayPopupScenarios::escClosesOnlyTheMenu()
{
    TrayPresentation show;
    const auto openAndEsc = [&show] {
        NewWindows menus(show);
        return show.tray.host.activate(show.item, kMenuPlace) &&
               eventually([&] { return menus.now().size() == 1; }) &&
               (show.session.keyboard().tap(Key::Escape), eventually([&] { return menus.now().isEmpty(); }));
    };
    show.beneath.forget();
    QVERIFY(openAndEsc());
    QVERIFY(show.beneath.hasFocus());
    show.session.keyboard().tap(Key::A);
    EVENTUALLY(show.beneath.pressedKeys() == QList<Key>{Key::A});

    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(openAndEsc());
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.isChecked(label::kDraw));
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());

    show.hotKey(Key::S);
    EVENTUALLY(show.isChecked(label::kSpot));
    QVERIFY(openAndEsc());
    QVERIFY(show.isChecked(label::kSpot));
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(!show.isChecked(label::kSpot));
}

void TrayPopupScenarios::theOpenMenuIsAboveTheWhiteboard()
{
    TrayPresentation show;
    show.hotKey(Key::W);
    EVENTUALLY(show.hasKeyboard() && show.pixel({10, 1000}) == QColor(Qt::white));
    QVERIFY(show.session.pointer().moveTo(kMenuPlace));
    NewWindows menus(show);
    QVERIFY(show.tray.host.activate(show.item, kMenuPlace));
    EVENTUALLY(menus.now().size() == 1);
    const QRect menu = menus.now().first().geometry;
    EVENTUALLY(!show.session.screenshot().isFilled(Qt::white, menu));
    // Longer than the program takes to check the stacking order.
    THROUGHOUT(500ms, !show.session.screenshot().isFilled(Qt::white, menu));
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.session.screenshot().isFilled(Qt::white, menu));
}

void TrayPopupScenarios::ctrlQQuitsOnlyWhileTheMenuIsOpen()
{
    TrayPresentation show;
    show.beneath.forget();
    show.session.keyboard().chord({Key::Ctrl}, Key::Q);
    EVENTUALLY(show.beneath.pressedKeys().contains(Key::Q));
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.session.keyboard().chord({Key::Ctrl}, Key::Q);
    // The program handles its keys in order: when this one has had its effect, the one before has been
    // handled.
    show.hotKey(Key::D);
    EVENTUALLY(show.beneath.hasFocus());
    QVERIFY(show.program.isRunning());

    NewWindows menus(show);
    QVERIFY(show.tray.host.activate(show.item, kMenuPlace));
    EVENTUALLY(menus.now().size() == 1);
    show.session.keyboard().chord({Key::Ctrl}, Key::Q);
    QCOMPARE(show.program.waitForExit(), std::optional(0));
    EVENTUALLY(show.tray.watcher.items().isEmpty());
    QVERIFY(show.beneath.hasFocus());
}

REGISTER_GUILESS_TEST(TrayPopupScenarios)
#include "tray_popup_scenarios.moc"
