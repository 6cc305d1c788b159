#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace zeigewerk {

/// The address that the text is, if it may be asked or opened: over HTTPS, and over plain HTTP only on this
/// machine.
std::optional<QUrl> allowedAddress(const QString &text);

/// Whether one address may lead on to another: nobody's server has us ask this machine's own.
bool mayLeadTo(const QUrl &from, const QUrl &to);

/// Whether the host is this machine, by one of its three usual names.
bool isLoopback(const QUrl &url);

} // namespace zeigewerk
