// Shows the program's state on the toolbar's buttons, and implements the buttons of the toolbar alone.

#include "base/stop.h"
#include "core/app_delegate.h"
#include "toolbar/bar.h"
#include "toolbar/pal_button.h"
#include "toolbar/panel.h"
#include "toolbar/symbols.h"
#include "toolbar/toolbar_look.h"

#include <utility>

namespace zeigewerk {

using platform::Feature;

namespace {

constexpr double kChosenSwatchBorder = 2.5;
constexpr double kSwatchBorder = 1.0;

void setChosen(PalButton &button, bool isChosen, const ToolbarLook &look)
{
    button.setBackground(isChosen ? look.choice : kClear);
    button.setContentTint(look.content);
    button.setShownOn(isChosen);
}

void setChosenSwatch(PalButton &swatch, bool isChosen, const ToolbarLook &look)
{
    swatch.setBorder(isChosen ? kOrange : look.swatchBorder, isChosen ? kChosenSwatchBorder : kSwatchBorder);
    swatch.setShownOn(isChosen);
}

/// Disables a button that needs something the desktop does not offer; its tooltip says why.
void setLimitation(PalButton &button, const QString &limitation)
{
    button.setEnabled(limitation.isEmpty());
    button.setTipNote(limitation);
}

/// Updates what depends on the desktop's features.
void adoptFeatures(const Toolbar &bar, const platform::Desktop &desktop)
{
    setLimitation(*bar.btnSpot, desktop.limitation(Feature::FollowingPointer));
    setLimitation(*bar.btnRing, desktop.limitation(Feature::FollowingPointer));
    setLimitation(*bar.btnClicks, desktop.limitation(Feature::ClicksElsewhere));
    // The spotlight works without the wheel, which its tooltip mentions.
    if (bar.btnSpot->isEnabled())
        bar.btnSpot->setTipNote(desktop.limitation(Feature::WheelElsewhere));
}

/// Updates what depends on the light or dark look only.
void adoptLook(const Toolbar &bar, const ToolbarLook &look)
{
    bar.panel->setLook(look);
    bar.gripView->setColor(look.grip);
    for (PalButton *button : bar.allButtons())
        button->setFeedback(look.hovered, look.pressed);
    if (const auto image = symbolImage(QString::fromLatin1(look.switchSymbol)))
        bar.btnDark->setImage(*image);
    bar.btnDark->setContentTint(look.content);
    bar.btnDark->setToolTip(QString::fromUtf8(look.switchTip));
    for (PalButton *button : bar.miscButtons)
        button->setContentTint(look.content);
}

} // namespace

void AppDelegate::refreshToolbar()
{
    if (!m_toolbar)
        return;
    const Toolbar &bar = *m_toolbar;
    const ToolbarLook &look = toolbarLook(m_darkUI);
    if (std::exchange(m_toolbar->look, &look) != &look)
        adoptLook(bar, look);
    adoptFeatures(bar, m_desktop);

    setSelected(bar.btnDraw, m_drawOn);
    setSelected(bar.btnBoard, m_whiteboardOn);
    setSelected(bar.btnSpot, m_spotlightOn);
    setSelected(bar.btnClicks, m_clicksOn);
    setSelected(bar.btnPin, m_pinnedOn);
    setSelected(bar.btnRing, m_cursorRingOn);
    setSelected(bar.btnFade, m_autoFadeOn);

    for (const auto &[tool, button] : bar.toolButtons)
        setChosen(*button, tool == m_tool, look);
    for (std::size_t i = 0; i < kPalette.size(); ++i)
        setChosenSwatch(*bar.colorButtons.at(i), kPalette.at(i) == m_color, look);
    for (std::size_t i = 0; i < widths.size(); ++i)
        setChosen(*bar.widthButtons.at(i), widths.at(i) == m_lineWidth, look);
}

void AppDelegate::setSelected(PalButton *button, bool on)
{
    if (!button)
        return;
    button->setBackground(on ? kOrange : kClear);
    button->setContentTint(on ? kNavy : toolbarLook(m_darkUI).content);
    button->setShownOn(on);
}

void AppDelegate::pickTool(int tag)
{
    const auto picked = Tool::fromRawValue(tag);
    if (!picked)
        return;
    setTool(*picked);
    // Picking a tool also starts drawing, so that it can be used at once.
    if (!interactionOn() || m_pinnedOn) {
        m_pinnedOn = false;
        m_drawOn = true;
    }
    refreshAll();
}

void AppDelegate::pickColor(int tag)
{
    mustHold(tag >= 0 && tag < static_cast<int>(kPalette.size()), "every swatch has a colour");
    setColor(kPalette.at(static_cast<std::size_t>(tag)));
}

void AppDelegate::pickWidth(int tag)
{
    mustHold(tag >= 0 && tag < static_cast<int>(widths.size()), "every width button has a width");
    setLineWidth(widths.at(static_cast<std::size_t>(tag)));
}

void AppDelegate::toggleDarkUI()
{
    m_darkUI = !m_darkUI;
    m_defaults.setBool(kDarkUIKey, m_darkUI);
    refreshToolbar();
    rebuildMenu();
}

void AppDelegate::toggleToolbar()
{
    mustHold(m_toolbar != nullptr, "the toolbar is built at launch");
    m_toolbarVisible = !m_toolbarVisible;
    if (m_toolbarVisible)
        m_toolbar->window->orderFrontRegardless();
    else
        m_toolbar->window->orderOut();
    rebuildMenu();
}

} // namespace zeigewerk
