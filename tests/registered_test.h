// Many test classes in one executable; its first argument selects the one to run.
#pragma once

#include <QTest>

#include <string_view>

namespace zeigewerk::test {

/// Registers a test class under its file's name without folder and suffix. Must be a static object.
class RegisteredTest
{
public:
    using Run = int (*)(int argc, char **argv);

    RegisteredTest(std::string_view file, Run run);
};

/// Takes the place of the application object in tests that need none.
struct NoApplication
{
    NoApplication(int &, char **) {}
};

template <typename Test, typename Application>
int run(int argc, char **argv)
{
    // Like the main functions of Qt Test: for what must happen before the application exists.
    if constexpr (requires { Test::initMain(); })
        Test::initMain();
    [[maybe_unused]] const Application application(argc, argv);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace zeigewerk::test

#define ZEIGEWERK_REGISTER(Test, Application)                                                                \
    namespace {                                                                                              \
    const zeigewerk::test::RegisteredTest k##Test(__FILE__, zeigewerk::test::run<Test, Application>);        \
    }

/// Replaces QTEST_MAIN and its variants. Use it once in each file, in the namespace of its test class.
#define REGISTER_TEST(Test) ZEIGEWERK_REGISTER(Test, QApplication)
#define REGISTER_GUILESS_TEST(Test) ZEIGEWERK_REGISTER(Test, QCoreApplication)
#define REGISTER_APPLESS_TEST(Test) ZEIGEWERK_REGISTER(Test, zeigewerk::test::NoApplication)
