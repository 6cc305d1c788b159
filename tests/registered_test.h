// Many test classes in one executable, whose first argument names the one to run.
#pragma once

#include <QTest>

#include <string_view>

namespace zeigewerk::test {

/// A test class under the name of its file, without folder and suffix. Only as a static object.
class RegisteredTest
{
public:
    using Run = int (*)(int argc, char **argv);

    RegisteredTest(std::string_view file, Run run);
};

/// In place of an application object, for what needs none.
struct NoApplication
{
    NoApplication(int &, char **) {}
};

template <typename Test, typename Application>
int run(int argc, char **argv)
{
    // As Qt Test's own main functions do it, for what is to happen before there is an application.
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

/// In place of QTEST_MAIN and its like, in the namespace of the one test class of the file.
#define REGISTER_TEST(Test) ZEIGEWERK_REGISTER(Test, QApplication)
#define REGISTER_GUILESS_TEST(Test) ZEIGEWERK_REGISTER(Test, QCoreApplication)
#define REGISTER_APPLESS_TEST(Test) ZEIGEWERK_REGISTER(Test, zeigewerk::test::NoApplication)
