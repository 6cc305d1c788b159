#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace zeigewerk {

/// The text as an address, if we may ask or open it: over HTTPS, or over plain HTTP on this machine. Nothing
/// otherwise.
std::optional<QUrl> allowedAddress(const QString &text);

/// Whether one address may redirect to another: no other server may send us to one on this machine.
bool mayLeadTo(const QUrl &from, const QUrl &to);

/// Whether the host is this machine, by one of its three usual names.
bool isLoopback(const QUrl &url);

} // namespace zeigewerk
