#pragma once

#include "platform/desktop.h"

#include <QObject>

namespace zeigewerk {

class AppDelegate;

/// The program's item in the desktop's tray, with its menu. It exists from launch on; its icon appears as soon
/// as there is a tray to show it, and again when the tray comes back.
class StatusItem : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the item.
    StatusItem(platform::Desktop &desktop, AppDelegate &app);
};

} // namespace zeigewerk
