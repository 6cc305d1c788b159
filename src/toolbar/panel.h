#pragma once

#include <QMargins>
#include <QWidget>

namespace zeigewerk {

/// The toolbar's backdrop: a rounded, translucent panel that is dragged by any part of its background.
class Panel : public QWidget
{
    Q_OBJECT

public:
    /// What the shadow takes around the panel.
    static constexpr QMargins kShadow = {20, 16, 20, 24};

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace zeigewerk
