#include "platform/x11/input/compose_table.h"

#include <QFile>
#include <QString>

#include <xkbcommon/xkbcommon-compose.h>

#include <memory>

namespace zeigewerk::platform::x11 {

namespace {

/// Names a compose file that replaces the one of the locale.
constexpr char kFileVariable[] = "XCOMPOSEFILE";

/// The locale that compose tables are chosen by. Qt checks the variables in the same order.
QByteArray typingLocale()
{
    for (const char *variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        if (QByteArray locale = qgetenv(variable); !locale.isEmpty())
            return locale;
    }
    return QByteArrayLiteral("C");
}

/// Locales that are newer than the list of tables have none. A table that is not in UTF-8 cannot be used.
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
    // By default, the library logs every line that is not in UTF-8.
    xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    const std::unique_ptr<xkb_compose_table, Unref> table(
        xkb_compose_table_new_from_locale(context.get(), locale.constData(), XKB_COMPOSE_COMPILE_NO_FLAGS));
    return table != nullptr;
}

/// The X library's table for nearly all UTF-8 locales.
QString commonTable()
{
    const QString folder = qEnvironmentVariable("XLOCALEDIR", QStringLiteral("/usr/share/X11/locale"));
    return folder + QStringLiteral("/en_US.UTF-8/Compose");
}

} // namespace

void provideComposeTable()
{
    if (qEnvironmentVariableIsSet(kFileVariable) || hasTable(typingLocale()))
        return;
    const QString table = commonTable();
    if (QFile::exists(table))
        qputenv(kFileVariable, QFile::encodeName(table));
}

} // namespace zeigewerk::platform::x11
