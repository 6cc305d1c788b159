#pragma once

#include "controller_fixture.h"
#include "toolbar/bar.h"
#include "toolbar/pal_button.h"
#include "toolbar/panel.h"

#include <QCryptographicHash>
#include <QPainter>

namespace zeigewerk::test {

/// The button with that name; null if there is none.
inline PalButton *named(const Toolbar &bar, const char *name)
{
    for (PalButton *button : bar.allButtons()) {
        if (button->accessibleName() == QString::fromUtf8(name))
            return button;
    }
    return nullptr;
}

/// The symbol painted in black at scale 1.
inline QImage painted(const TemplateImage &image)
{
    QImage picture(20, 20, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    image.paint(painter, {0, 0}, Qt::black);
    return picture;
}

/// What the toolbar looks like: every colour, tooltip and pixel.
inline QStringList appearance(const AppDelegate &app)
{
    const auto text = [](const Color &color) {
        return QStringLiteral("%1 %2 %3 %4").arg(color.red).arg(color.green).arg(color.blue).arg(color.alpha);
    };
    QStringList all;
    for (const PalButton *button : app.toolbar()->allButtons()) {
        const PalButton::Layer &layer = button->layer();
        all << button->toolTip() << text(layer.background) << text(layer.borderColor)
            << QString::number(layer.borderWidth) << text(button->contentTint());
    }
    const QImage picture = app.toolbar()->panel->grab().toImage();
    const auto pixels = QByteArrayView(picture.constBits(), picture.sizeInBytes());
    return all << text(app.toolbar()->gripView->color()) << text(app.toolbar()->panel->look().backdrop)
               << QString::fromLatin1(QCryptographicHash::hash(pixels, QCryptographicHash::Md5).toHex());
}

} // namespace zeigewerk::test
