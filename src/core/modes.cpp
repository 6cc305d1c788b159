// The rules between the modes. Each operation only changes flags; `refreshAll` does the rest.

#include "core/app_delegate.h"

#include <QCoreApplication>

namespace zeigewerk {

using platform::Feature;

void AppDelegate::toggleDraw()
{
    if (m_pinnedOn) {
        m_pinnedOn = false;
        m_drawOn = true;
    } else {
        m_drawOn = !m_drawOn;
    }
    refreshAll();
}

void AppDelegate::toggleBoard()
{
    invert(m_whiteboardOn);
}

void AppDelegate::toggleSpot()
{
    invertIfOffered(m_spotlightOn, Feature::FollowingPointer);
}

void AppDelegate::toggleClicks()
{
    invertIfOffered(m_clicksOn, Feature::ClicksElsewhere);
}

void AppDelegate::toggleRing()
{
    invertIfOffered(m_cursorRingOn, Feature::FollowingPointer);
}

void AppDelegate::togglePin()
{
    if (m_pinnedOn) {
        m_pinnedOn = false;
        m_drawOn = true;
    } else if (interactionOn()) {
        m_pinnedOn = true;
        m_drawOn = false;
        m_whiteboardOn = false;
    }
    refreshAll();
}

void AppDelegate::escapePressed()
{
    m_drawOn = false;
    m_whiteboardOn = false;
    m_spotlightOn = false;
    m_pinnedOn = false;
    refreshAll();
}

void AppDelegate::quit()
{
    QCoreApplication::quit();
}

void AppDelegate::endUnavailableModes()
{
    if (!m_desktop.offers(Feature::FollowingPointer)) {
        m_spotlightOn = false;
        m_cursorRingOn = false;
    }
    if (!m_desktop.offers(Feature::ClicksElsewhere))
        m_clicksOn = false;
    refreshAll();
}

void AppDelegate::invertIfOffered(bool &flag, Feature feature)
{
    if (m_desktop.offers(feature))
        invert(flag);
}

void AppDelegate::invert(bool &flag)
{
    flag = !flag;
    refreshAll();
}

} // namespace zeigewerk
