// The menu as the program itself pops it up.

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

/// The program's windows that came since others were noted.
class NewWindows
{
public:
    explicit NewWindows(Presentation &on)
        : m_on(on)
        , m_before(ids())
    {
    }

    QList<WindowInfo> now()
    {
        QList<WindowInfo> found = m_on.shownWindows();
        found.removeIf([this](const WindowInfo &window) { return m_before.contains(window.id); });
        return found;
    }

private:
    QList<xcb_window_t> ids()
    {
        QList<xcb_window_t> list;
        for (const WindowInfo &window : m_on.shownWindows())
            list.append(window.id);
        return list;
    }

    Presentation &m_on;
    QList<xcb_window_t> m_before;
};

} // namespace

class TrayPopupScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPlainClickOpensTheMenu_data();
    void aPlainClickOpensTheMenu();
    void aMenuOpenedDuringAGrabClosesOnceThatIsOver_data();
    void aMenuOpenedDuringAGrabClosesOnceThatIsOver();
    void escClosesTheMenuAndNothingElse();
    void theOpenMenuStandsAboveTheWhiteboard();
    void ctrlQQuitsOnlyWhileTheMenuIsOpen();
};

void TrayPopupScenarios::aPlainClickOpensTheMenu_data()
{
    QTest::addColumn<bool>("isContextMenu");
    QTest::newRow("a plain click") << false;
    QTest::newRow("a right click in a tray that shows no menus") << true;
}

void TrayPopupScenarios::aPlainClickOpensTheMenu()
{
    QFETCH(bool, isContextMenu);
    TrayPresentation on;
    NewWindows menus(on);
    QVERIFY(on.session.pointer().moveTo(kMenuPlace));
    QVERIFY(isContextMenu ? on.tray.host.openContextMenu(on.item, kMenuPlace)
                          : on.tray.host.activate(on.item, kMenuPlace));
    EVENTUALLY(menus.now().size() == 1);
    const WindowInfo menu = menus.now().first();
    QCOMPARE(menu.geometry.topLeft(), kMenuPlace);
    QVERIFY(menu.overrideRedirect);
    QVERIFY(on.beneath.hasFocus());
    // A click into nothing closes it, and is for nobody else.
    on.beneath.forget();
    QVERIFY(on.session.pointer().clickAt({100, 900}));
    EVENTUALLY(menus.now().isEmpty());
    QVERIFY(on.beneath.hasFocus());
    QVERIFY(on.session.pointer().clickAt({100, 900}));
    EVENTUALLY(!on.beneath.presses().isEmpty());
}

void TrayPopupScenarios::aMenuOpenedDuringAGrabClosesOnceThatIsOver_data()
{
    QTest::addColumn<bool>("isOfKeyboard");
    QTest::addColumn<bool>("isClosedByEsc");
    QTest::newRow("of the pointer, closed by a click") << false << false;
    QTest::newRow("of the pointer, closed by Esc") << false << true;
    QTest::newRow("of the keyboard, closed by a click") << true << false;
    QTest::newRow("of the keyboard, closed by Esc") << true << true;
}

// A tray that opens the menu at a press has the pointer until the release.
void TrayPopupScenarios::aMenuOpenedDuringAGrabClosesOnceThatIsOver()
{
    QFETCH(bool, isOfKeyboard);
    QFETCH(bool, isClosedByEsc);
    TrayPresentation on(withAccessibility({}));
    ToolbarUser toolbar(on.session, on.program);
    NewWindows menus(on);
    QVERIFY(on.session.pointer().moveTo(kMenuPlace));
    Popup tray(on.session, {600, 0, 100, 30}, Qt::gray);
    std::optional<KeyboardGrab> switcher;
    if (isOfKeyboard)
        switcher.emplace(on.session);
    else
        QVERIFY(tray.grabPointer());
    QVERIFY(on.tray.host.activate(on.item, kMenuPlace));
    EVENTUALLY(menus.now().size() == 1);
    switcher.reset();
    tray.ungrabPointer();
    EVENTUALLY(!canGrabKeyboard(on.session) && !canGrabPointer(on.session));
    if (isClosedByEsc)
        on.session.keyboard().tap(Key::Escape);
    else
        QVERIFY(on.session.pointer().clickAt({100, 900}));
    EVENTUALLY(menus.now().isEmpty());
    QVERIFY(on.beneath.hasFocus());
    // Nothing of the grabs is left, neither in the server nor in the program.
    on.beneath.forget();
    QVERIFY(on.session.pointer().clickAt({100, 900}));
    EVENTUALLY(!on.beneath.presses().isEmpty());
    QVERIFY(toolbar.click(button::kSpotlight));
    EVENTUALLY(on.isChecked(label::kSpot));
}

void TrayPopupScenarios::escClosesTheMenuAndNothingElse()
{
    TrayPresentation on;
    const auto openAndEsc = [&on] {
        NewWindows menus(on);
        return on.tray.host.activate(on.item, kMenuPlace) &&
               eventually([&] { return menus.now().size() == 1; }) &&
               (on.session.keyboard().tap(Key::Escape), eventually([&] { return menus.now().isEmpty(); }));
    };
    on.beneath.forget();
    QVERIFY(openAndEsc());
    QVERIFY(on.beneath.hasFocus());
    on.session.keyboard().tap(Key::A);
    EVENTUALLY(on.beneath.pressedKeys() == QList<Key>{Key::A});

    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(openAndEsc());
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.isChecked(label::kDraw));
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.beneath.hasFocus());

    on.hotKey(Key::S);
    EVENTUALLY(on.isChecked(label::kSpot));
    QVERIFY(openAndEsc());
    QVERIFY(on.isChecked(label::kSpot));
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(!on.isChecked(label::kSpot));
}

void TrayPopupScenarios::theOpenMenuStandsAboveTheWhiteboard()
{
    TrayPresentation on;
    on.hotKey(Key::W);
    EVENTUALLY(on.hasKeyboard() && on.pixel({10, 1000}) == QColor(Qt::white));
    QVERIFY(on.session.pointer().moveTo(kMenuPlace));
    NewWindows menus(on);
    QVERIFY(on.tray.host.activate(on.item, kMenuPlace));
    EVENTUALLY(menus.now().size() == 1);
    const QRect menu = menus.now().first().geometry;
    EVENTUALLY(!on.session.screenshot().isFilled(Qt::white, menu));
    // Longer than the program takes to look after its windows' order.
    THROUGHOUT(500ms, !on.session.screenshot().isFilled(Qt::white, menu));
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.session.screenshot().isFilled(Qt::white, menu));
}

void TrayPopupScenarios::ctrlQQuitsOnlyWhileTheMenuIsOpen()
{
    TrayPresentation on;
    on.beneath.forget();
    on.session.keyboard().chord({Key::Ctrl}, Key::Q);
    EVENTUALLY(on.beneath.pressedKeys().contains(Key::Q));
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.session.keyboard().chord({Key::Ctrl}, Key::Q);
    // The program takes its keys in order: what comes after has been seen, so what came before has been, too.
    on.hotKey(Key::D);
    EVENTUALLY(on.beneath.hasFocus());
    QVERIFY(on.program.isRunning());

    NewWindows menus(on);
    QVERIFY(on.tray.host.activate(on.item, kMenuPlace));
    EVENTUALLY(menus.now().size() == 1);
    on.session.keyboard().chord({Key::Ctrl}, Key::Q);
    QCOMPARE(on.program.waitForExit(), std::optional(0));
    EVENTUALLY(on.tray.watcher.items().isEmpty());
    QVERIFY(on.beneath.hasFocus());
}

REGISTER_GUILESS_TEST(TrayPopupScenarios)
#include "tray_popup_scenarios.moc"
