// The outputs of a virtual display: monitors that can be plugged in and unplugged.
#pragma once

#include <QList>
#include <QMap>
#include <QRect>
#include <QString>

namespace zeigewerk::rig {

class Client;

/// Output numbers follow the server's names: 1 is DUMMY1. Rectangles are native root pixels.
class Outputs
{
public:
    explicit Outputs(Client &client);

    /// Turns on exactly these outputs, each with its rectangle, and all others off. The root is resized as
    /// needed. Throws RigError if the server refuses.
    void apply(const QMap<int, QRect> &wanted);
    /// The monitors that RandR currently reports, by output number.
    QMap<int, QRect> reported();

private:
    struct Resources;
    Resources query();
    void addMissingModes(const QMap<int, QRect> &wanted);
    void resizeRoot(const QMap<int, QRect> &wanted);

    Client &m_client;
};

} // namespace zeigewerk::rig
