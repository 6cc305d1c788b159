// Waiting for what another program does, without guessing how long it takes.
#pragma once

#include <QtTest>

#include <chrono>
#include <functional>

namespace zeigewerk::rig {

using Condition = std::function<bool()>;

/// Long enough for a loaded machine; a passing test never waits this long.
inline constexpr std::chrono::milliseconds kDeadline = std::chrono::seconds(5);

/// Asks every few milliseconds, running the event loop in between, until the condition holds (true) or the
/// deadline has passed (false). Asks at least once.
bool eventually(const Condition &condition, std::chrono::milliseconds deadline = kDeadline);

/// Whether the condition holds now and each time it is asked until the duration is over. This is for what
/// must not happen, which only watching for a while can show; say in the test why that while is long enough.
bool throughout(std::chrono::milliseconds duration, const Condition &condition);

/// Saves a screenshot of each living session under the name of the running test, says where on the log, and
/// returns the files. The folder is the build's "failures", or what the environment variable
/// ZEIGEWERK_FAILURES_DIR says.
QStringList saveFailurePictures();

namespace detail {

bool verifyEventually(const Condition &condition, std::chrono::milliseconds deadline, const char *text,
                      const char *file, int line);
bool verifyThroughout(std::chrono::milliseconds duration, const Condition &condition, const char *text,
                      const char *file, int line);

} // namespace detail

} // namespace zeigewerk::rig

// As QVERIFY, these leave the test function, with the condition's text on the log and a picture of the screen
// saved. They are macros because only a macro can return from the test and knows the condition's text.

/// Goes on as soon as the condition holds; fails after kDeadline.
#define EVENTUALLY(...) EVENTUALLY_WITHIN(zeigewerk::rig::kDeadline, __VA_ARGS__)

/// Goes on as soon as the condition holds; fails after the given deadline.
#define EVENTUALLY_WITHIN(deadline, ...)                                                                     \
    do {                                                                                                     \
        if (!zeigewerk::rig::detail::verifyEventually([&] { return bool(__VA_ARGS__); }, deadline,           \
                                                      #__VA_ARGS__, __FILE__, __LINE__))                     \
            return;                                                                                          \
    } while (false)

/// Fails as soon as the condition does not hold; goes on after the given duration.
#define THROUGHOUT(duration, ...)                                                                            \
    do {                                                                                                     \
        if (!zeigewerk::rig::detail::verifyThroughout(                                                       \
                duration, [&] { return bool(__VA_ARGS__); }, #__VA_ARGS__, __FILE__, __LINE__))              \
            return;                                                                                          \
    } while (false)
