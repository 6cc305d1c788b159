// The buttons of the toolbar: their symbols, texts and operations.

#include "core/app_delegate.h"
#include "toolbar/dot_image.h"
#include "toolbar/pal_button.h"
#include "toolbar/panel.h"
#include "toolbar/symbols.h"

namespace zeigewerk {

namespace {

constexpr QSize kButtonSize(40, 32);
constexpr QSize kSmallButtonSize(28, 26);
constexpr QSize kSwatchSize(18, 18);
constexpr QSize kWidthButtonSize(26, 24);
constexpr double kButtonRadius = 8.0;
constexpr double kSwatchRadius = 9.0;
constexpr double kWidthButtonRadius = 7.0;
/// The dot of a width button is this much wider than the stroke, so that the thinnest is visible.
constexpr double kDotExcess = 4.0;

} // namespace

PalButton *AppDelegate::makeButton(const QString &symbol, const QString &tip, void (AppDelegate::*action)(),
                                   QSize size)
{
    auto *button = new PalButton(m_toolbar->panel.get(), size, tip);
    if (const auto image = symbolImage(symbol))
        button->setImage(*image);
    else
        button->setText(QStringLiteral("?")); // visibly incomplete, but usable
    button->setCornerRadius(kButtonRadius);
    if (action)
        connect(button, &PalButton::clicked, this, action);
    return button;
}

void AppDelegate::makeModeButtons()
{
    const auto make = [this](const QString &symbol, const QString &tip, void (AppDelegate::*action)()) {
        PalButton *button = makeButton(symbol, tip, action, kButtonSize);
        button->setKind(PalButton::Kind::Toggle);
        return button;
    };
    m_toolbar->btnDraw = make(QStringLiteral("pencil.tip.crop.circle"),
                              QStringLiteral("Zeichnen ein/aus (⌃⌥D)"), &AppDelegate::toggleDraw);
    m_toolbar->btnBoard = make(QStringLiteral("rectangle.inset.filled"), QStringLiteral("Whiteboard (⌃⌥W)"),
                               &AppDelegate::toggleBoard);
    m_toolbar->btnSpot =
        make(QStringLiteral("flashlight.on.fill"),
             QStringLiteral("Spotlight (⌃⌥S) — Größe ändern: ⌥ + Scrollen"), &AppDelegate::toggleSpot);
    m_toolbar->btnClicks = make(QStringLiteral("cursorarrow.click.2"),
                                QStringLiteral("Klicks anzeigen (⌃⌥K)"), &AppDelegate::toggleClicks);
    m_toolbar->btnRing =
        make(QStringLiteral("cursorarrow.rays"),
             QStringLiteral("Cursor-Ring: Mauszeiger dauerhaft hervorheben"), &AppDelegate::toggleRing);
    m_toolbar->btnFade =
        make(QStringLiteral("timer"), QStringLiteral("Auto-Fade: Zeichnungen lösen sich nach 4 Sekunden auf"),
             &AppDelegate::toggleFade);
    m_toolbar->btnPin = make(QStringLiteral("pin.fill"),
                             QStringLiteral("Zeichnung anpinnen: bleibt stehen, Klicks gehen durch (⌃⌥P)"),
                             &AppDelegate::togglePin);
}

void AppDelegate::makeToolButtons()
{
    for (const Tool tool : Tool::allCases) {
        PalButton *button = makeButton(tool.symbol(), tool.tip(), nullptr, kButtonSize);
        button->setKind(PalButton::Kind::Choice);
        button->setTag(tool.rawValue());
        connect(button, &PalButton::clicked, this, [this, button] { pickTool(button->tag()); });
        m_toolbar->toolButtons.emplace(tool, button);
    }
}

void AppDelegate::makeColorButtons()
{
    for (int i = 0; i < static_cast<int>(kPalette.size()); ++i) {
        auto *button = new PalButton(m_toolbar->panel.get(), kSwatchSize, QStringLiteral("Farbe"));
        button->setKind(PalButton::Kind::Choice);
        button->setTag(i);
        button->setBackground(kPalette.at(static_cast<std::size_t>(i)));
        button->setCornerRadius(kSwatchRadius);
        connect(button, &PalButton::clicked, this, [this, button] { pickColor(button->tag()); });
        m_toolbar->colorButtons.push_back(button);
    }
}

void AppDelegate::makeWidthButtons()
{
    for (int i = 0; i < static_cast<int>(widths.size()); ++i) {
        auto *button =
            new PalButton(m_toolbar->panel.get(), kWidthButtonSize, QStringLiteral("Strichstärke"));
        button->setKind(PalButton::Kind::Choice);
        button->setTag(i);
        button->setImage(dotImage(widths.at(static_cast<std::size_t>(i)) + kDotExcess));
        button->setCornerRadius(kWidthButtonRadius);
        connect(button, &PalButton::clicked, this, [this, button] { pickWidth(button->tag()); });
        m_toolbar->widthButtons.push_back(button);
    }
}

void AppDelegate::makeMiscButtons()
{
    // Its symbol and tooltip change with the look; its accessible name stays.
    m_toolbar->btnDark = makeButton(QStringLiteral("moon.fill"), QStringLiteral("Werkzeugleiste hell/dunkel"),
                                    &AppDelegate::toggleDarkUI, kSmallButtonSize);
    m_toolbar->miscButtons = {
        makeButton(QStringLiteral("arrow.uturn.backward"), QStringLiteral("Rückgängig (⌘Z)"),
                   &AppDelegate::undoShape, kButtonSize),
        makeButton(QStringLiteral("trash"), QStringLiteral("Alles löschen"), &AppDelegate::clearAll,
                   kSmallButtonSize),
        makeButton(
            QStringLiteral("eye.slash"),
            QStringLiteral("Leiste ausblenden — wieder einblenden mit ⌃⌥T oder übers Menüleisten-Symbol"),
            &AppDelegate::toggleToolbar, kSmallButtonSize),
        makeButton(QStringLiteral("power"), QStringLiteral("Zeigewerk beenden"), &AppDelegate::quit,
                   kSmallButtonSize),
    };
}

} // namespace zeigewerk
