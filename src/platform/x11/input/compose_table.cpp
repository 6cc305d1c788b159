#include "platform/x11/input/compose_table.h"

#include <QFile>
#include <QString>

#include <xkbcommon/xkbcommon-compose.h>

#include <memory>

namespace zeigewerk::platform::x11 {

namespace {

/// Names a file of one's own in place of that of the locale.
constexpr char kFileVariable[] = "XCOMPOSEFILE";

/// In the order in which they are asked, here and by Qt.
QByteArray localeOfTyping()
{
    for (const char *variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        if (QByteArray locale = qgetenv(variable); !locale.isEmpty())
            return locale;
    }
    return QByteArrayLiteral("C");
}

bool hasTable(const QByteArray &locale)
{
    struct Unref
    {
        void operator()(xkb_context *context) const { xkb_context_unref(context); }
        void operator()(xkb_compose_table *table) const { xkb_compose_table_unref(table); }
    };
    const std::unique_ptr<xkb_context, Unref> context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES));
    if (!context)
        return false;
    // It would name every line that is not in UTF-8.
    xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    const std::unique_ptr<xkb_compose_table, Unref> table(
        xkb_compose_table_new_from_locale(context.get(), locale.constData(), XKB_COMPOSE_COMPILE_NO_FLAGS));
    return table != nullptr;
}

/// The table of nearly all locales in UTF-8, where the X library keeps it.
QString commonTable()
{
    const QString folder = qEnvironmentVariable("XLOCALEDIR", QStringLiteral("/usr/share/X11/locale"));
    return folder + QStringLiteral("/en_US.UTF-8/Compose");
}

} // namespace

void provideComposeTable()
{
    if (qEnvironmentVariableIsSet(kFileVariable) || hasTable(localeOfTyping()))
        return;
    const QString table = commonTable();
    if (QFile::exists(table))
        qputenv(kFileVariable, QFile::encodeName(table));
}

} // namespace zeigewerk::platform::x11
