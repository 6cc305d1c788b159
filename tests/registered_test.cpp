#include "registered_test.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string>

namespace zeigewerk::test {

namespace {

struct Entry
{
    std::string name;
    RegisteredTest::Run run;
};

/// A local static, because static objects of other files add to it.
std::vector<Entry> &entries()
{
    static std::vector<Entry> entries;
    return entries;
}

std::vector<std::string> sortedNames()
{
    std::vector<std::string> names;
    std::ranges::transform(entries(), std::back_inserter(names), &Entry::name);
    std::ranges::sort(names);
    return names;
}

void print(std::FILE *stream, const char *what, const std::vector<std::string> &names)
{
    for (const std::string &name : names)
        std::fprintf(stream, "%s%s\n", what, name.c_str());
}

/// Whether exactly the expected tests are registered, each once.
bool isComplete(std::vector<std::string> expected)
{
    const std::vector<std::string> actual = sortedNames();
    std::ranges::sort(expected);
    std::vector<std::string> missing;
    std::ranges::set_difference(expected, actual, std::back_inserter(missing));
    std::vector<std::string> unexpected;
    std::ranges::set_difference(actual, expected, std::back_inserter(unexpected));
    print(stderr, "not registered: ", missing);
    print(stderr, "registered, but not expected: ", unexpected);
    return missing.empty() && unexpected.empty();
}

int runNamed(int argc, char **argv)
{
    const std::string_view name = argc > 1 ? argv[1] : "";
    if (name == "--expect")
        return isComplete({argv + 2, argv + argc}) ? 0 : 1;
    const auto entry = std::ranges::find(entries(), name, &Entry::name);
    if (entry == entries().end()) {
        std::fprintf(stderr, "usage: %s TEST [QT TEST ARGUMENT]...\nTEST is one of:\n", argv[0]);
        print(stderr, "    ", sortedNames());
        return 2;
    }
    // The test's name takes the place of the program's in argv[0].
    return entry->run(argc - 1, argv + 1);
}

} // namespace

RegisteredTest::RegisteredTest(std::string_view file, Run run)
{
    file.remove_prefix(file.rfind('/') + 1);
    entries().push_back({std::string(file.substr(0, file.rfind('.'))), run});
}

} // namespace zeigewerk::test

int main(int argc, char **argv)
{
    return zeigewerk::test::runNamed(argc, argv);
}
