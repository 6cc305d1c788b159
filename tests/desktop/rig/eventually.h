// Waits for what other programs do, without assuming how long it takes.
#pragma once

#include <QtTest>

#include <chrono>
#include <functional>

namespace zeigewerk::rig {

using Condition = std::function<bool()>;

/// Long enough for a busy machine; a passing test never waits this long.
inline constexpr std::chrono::milliseconds kDeadline = std::chrono::seconds(5);

/// Polls every few milliseconds, running the event loop in between, until the condition holds (true) or the
/// deadline has passed (false). Polls at least once.
bool eventually(const Condition &condition, std::chrono::milliseconds deadline = kDeadline);

/// Whether the condition holds now and on every poll until the duration is over. This is for what must not
/// happen, which only waiting can show; the test says why the duration is long enough.
bool throughout(std::chrono::milliseconds duration, const Condition &condition);

/// Saves a screenshot of each session under the name of the running test, logs the paths and returns them.
/// The folder is "failures" in the build folder, or the one named by ZEIGEWERK_FAILURES_DIR.
QStringList saveFailurePictures();

namespace detail {

bool verifyEventually(const Condition &condition, std::chrono::milliseconds deadline, const char *text,
                      const char *file, int line);
bool verifyThroughout(std::chrono::milliseconds duration, const Condition &condition, const char *text,
                      const char *file, int line);

} // namespace detail

} // namespace zeigewerk::rig

// Like QVERIFY, these return from the test function on failure, log the condition's text and save a
// screenshot. Only macros can return from the test and know the condition's text.

/// Continues as soon as the condition holds; fails after kDeadline.
#define EVENTUALLY(...) EVENTUALLY_WITHIN(zeigewerk::rig::kDeadline, __VA_ARGS__)

/// Continues as soon as the condition holds; fails after the given deadline.
#define EVENTUALLY_WITHIN(deadline, ...)                                                                     \
    do {                                                                                                     \
        if (!zeigewerk::rig::detail::verifyEventually([&] { return bool(__VA_ARGS__); }, deadline,           \
                                                      #__VA_ARGS__, __FILE__, __LINE__))                     \
            return;                                                                                          \
    } while (false)

/// Fails as soon as the condition does not hold; continues after the given duration.
#define THROUGHOUT(duration, ...)                                                                            \
    do {                                                                                                     \
        if (!zeigewerk::rig::detail::verifyThroughout(                                                       \
                duration, [&] { return bool(__VA_ARGS__); }, #__VA_ARGS__, __FILE__, __LINE__))              \
            return;                                                                                          \
    } while (false)
