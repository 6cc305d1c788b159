// The text of update feeds.
#pragma once

#include <QByteArray>

namespace zeigewerk::test {

/// `documentType` goes between the XML declaration and the root element.
inline QByteArray feedOf(const QByteArray &items, const QByteArray &documentType = {})
{
    return "<?xml version='1.0'?>\n" + documentType +
           "<rss version='2.0' xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'>"
           "<channel><title>Zeigewerk</title><link>https://zeigewerk.example/</link>" +
           items + "</channel></rss>";
}

inline QByteArray itemOf(const QByteArray &version, const QByteArray &more = {})
{
    return "<item><title>Zeigewerk</title><link>https://zeigewerk.example/get</link><sparkle:version>" +
           version + "</sparkle:version>" + more + "</item>";
}

} // namespace zeigewerk::test
