#include "commands/key_names.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zeigewerk {

namespace {

struct Name
{
    std::string_view english;
    QStringView german;
};

/// The keys in our menus whose German names differ.
constexpr std::array kNames = {
    Name{"Ctrl", u"Strg"},
    Name{"Shift", u"Umschalt"},
    Name{"Del", u"Entf"},
};

} // namespace

QString KeyNames::translate(const char *context, const char *sourceText, const char *, int) const
{
    using namespace std::string_view_literals;
    if (!context || !sourceText || context != "QShortcut"sv)
        return {};
    const auto name = std::find_if(kNames.begin(), kNames.end(),
                                   [sourceText](const Name &each) { return each.english == sourceText; });
    return name == kNames.end() ? QString() : name->german.toString();
}

} // namespace zeigewerk
