// The outputs of a virtual display: monitors that can be plugged in and out.
#pragma once

#include <QList>
#include <QMap>
#include <QRect>
#include <QString>

namespace zeigewerk::rig {

class Client;

/// Output numbers are those of the server's names: 1 is DUMMY1. Rectangles are native root pixels.
class Outputs
{
public:
    explicit Outputs(Client &client);

    /// Lights exactly these outputs, each with its rectangle, and turns all others off. The root becomes as
    /// big as needed. Throws RigError if the server refuses.
    void apply(const QMap<int, QRect> &wanted);
    /// The monitors that RandR reports now, by output number.
    QMap<int, QRect> reported();

private:
    struct Resources;
    Resources query();
    void addMissingModes(const QMap<int, QRect> &wanted);
    void resizeRoot(const QMap<int, QRect> &wanted);

    Client &m_client;
};

} // namespace zeigewerk::rig
