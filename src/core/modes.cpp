// The rules between the modes. Each operation only changes flags; `refreshAll` does the rest.

#include "core/app_delegate.h"

#include <QCoreApplication>

namespace zeigewerk {

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
    invert(m_spotlightOn);
}

void AppDelegate::toggleClicks()
{
    invert(m_clicksOn);
}

void AppDelegate::toggleRing()
{
    invert(m_cursorRingOn);
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

void AppDelegate::invert(bool &flag)
{
    flag = !flag;
    refreshAll();
}

} // namespace zeigewerk
