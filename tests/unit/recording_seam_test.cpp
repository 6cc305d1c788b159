#include "recording/recording_user.h"
#include "registered_test.h"
#include "seam/seam_contract.h"
#include "seam/seam_subject.h"

#include <QTest>

using namespace zeigewerk;
using platform::HotKeyId;
using platform::RecordingDesktop;
using platform::RecordingUser;
using test::SeamSubject;

namespace {

/// The recording desktop, with the subject in this very process.
class RecordingWorld : public test::SeamWorld
{
public:
    QString tell(const QString &line) override { return m_subject.tell(line); }

    void movePointer(QPointF place) override { m_user.movePointer(place); }
    void pressButton() override { m_user.pressButton(); }
    void releaseButton() override { m_user.releaseButton(); }
    void turnWheel(int steps) override { m_user.turnWheel(steps); }
    void holdModifiers(platform::Modifiers modifiers) override { m_user.setModifiers(modifiers); }
    void releaseModifiers() override { m_user.setModifiers({}); }
    void pressKey(platform::PhysicalKey key) override { m_user.pressKey(key); }
    void releaseKey(platform::PhysicalKey) override {}

    QColor pixel(QPointF place) override { return m_user.pixel(place); }
    int otherClicks() override { return m_user.clicksElsewhere(); }
    int otherKeys() override { return m_user.keysElsewhere(); }
    void forgetOtherInput() override { m_user.forgetElsewhere(); }
    bool otherHasKeyboard() override { return m_desktop.keyWindow().isEmpty(); }
    void otherGrabsHotKey() override { m_desktop.hotKeys().refuse(HotKeyId{1, 1}); }
    void setDocks(const QMargins &margins) override { m_desktop.setDocks(margins); }

private:
    RecordingDesktop m_desktop;
    RecordingUser m_user{m_desktop};
    SeamSubject m_subject{m_desktop};
};

} // namespace

class RecordingSeamTest : public test::SeamContract
{
    Q_OBJECT

protected:
    std::unique_ptr<test::SeamWorld> makeWorld() override { return std::make_unique<RecordingWorld>(); }
};

REGISTER_TEST(RecordingSeamTest)
#include "recording_seam_test.moc"
