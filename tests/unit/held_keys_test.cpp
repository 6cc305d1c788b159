#include "platform/x11/input/held_keys.h"
#include "registered_test.h"

#include <QTest>

#include <initializer_list>

using zeigewerk::platform::x11::HeldKeys;

namespace {

constexpr std::uint8_t kEscape = 9;
constexpr std::uint8_t kZ = 52;

/// The server's bitmap of the held keys.
std::array<std::uint8_t, 31> map(std::initializer_list<int> keys)
{
    std::array<std::uint8_t, 31> bytes = {};
    for (const int key : keys) {
        std::uint8_t &byte = bytes.at(static_cast<std::size_t>(key / 8 - 1));
        byte = static_cast<std::uint8_t>(byte | 1U << (key % 8));
    }
    return bytes;
}

} // namespace

class HeldKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aKeyHeldFromElsewhereCountsOnlyAfterItsRelease();
    void otherKeysCountMeanwhile();
    void aKeyPressedInOurWindowKeepsRepeating();
    void aKeyReleasedElsewhereIsNotHeld();
    void everyKeyHasItsBit();
};

void HeldKeysTest::aKeyHeldFromElsewhereCountsOnlyAfterItsRelease()
{
    HeldKeys keys;
    keys.adopt(map({kEscape}));
    QVERIFY(!keys.acceptPress(kEscape));
    QVERIFY(!keys.acceptPress(kEscape));
    keys.released(kEscape);
    QVERIFY(keys.acceptPress(kEscape));
    QVERIFY(keys.acceptPress(kEscape));
}

void HeldKeysTest::otherKeysCountMeanwhile()
{
    HeldKeys keys;
    keys.adopt(map({kEscape}));
    QVERIFY(keys.acceptPress(kZ));
    keys.released(kZ);
    QVERIFY(keys.acceptPress(kZ));
    QVERIFY(!keys.acceptPress(kEscape));
}

void HeldKeysTest::aKeyPressedInOurWindowKeepsRepeating()
{
    HeldKeys keys;
    keys.adopt(map({}));
    QVERIFY(keys.acceptPress(kZ));
    // The server also sends this when the pointer enters the window.
    keys.adopt(map({kZ}));
    QVERIFY(keys.acceptPress(kZ));
}

void HeldKeysTest::aKeyReleasedElsewhereIsNotHeld()
{
    HeldKeys keys;
    keys.adopt(map({kEscape}));
    keys.adopt(map({}));
    QVERIFY(keys.acceptPress(kEscape));
    // Nor does it stay ours: it was released elsewhere, and pressed there again.
    keys.adopt(map({}));
    keys.adopt(map({kEscape}));
    QVERIFY(!keys.acceptPress(kEscape));
}

void HeldKeysTest::everyKeyHasItsBit()
{
    for (int key = 8; key < 256; ++key) {
        HeldKeys keys;
        keys.adopt(map({key}));
        for (int other = 8; other < 256; ++other)
            QCOMPARE(keys.acceptPress(static_cast<std::uint8_t>(other)), other != key);
    }
}

REGISTER_APPLESS_TEST(HeldKeysTest)
#include "held_keys_test.moc"
