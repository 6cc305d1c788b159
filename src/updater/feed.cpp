#include "updater/feed.h"

#include "updater/version_order.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace zeigewerk {

namespace {

constexpr QStringView kSparkle = u"http://www.andymatuschak.org/xml-namespaces/sparkle";
constexpr QStringView kThisSystem = u"linux";
/// Feeds nest five levels deep; a description may contain some markup.
constexpr int kMaxDepth = 64;
/// In characters. Nothing longer is a version, or an address that anybody would open.
constexpr qsizetype kMaxVersionLength = 100;
constexpr qsizetype kMaxPageLength = 2000;

/// The texts of an item, from its elements or from the attributes of its enclosure. Elements take precedence.
struct RawItem
{
    QString version;
    QString shortVersion;
    QString system;
    QString channel;
    QString page;

    /// The text of that name; null for names that we do not use.
    QString *fieldNamed(QStringView name)
    {
        if (name == u"version")
            return &version;
        if (name == u"shortVersionString")
            return &shortVersion;
        if (name == u"os")
            return &system;
        if (name == u"channel")
            return &channel;
        return nullptr;
    }
};

bool isForUs(const RawItem &item)
{
    const bool isForThisSystem =
        item.system.isEmpty() || item.system.compare(kThisSystem, Qt::CaseInsensitive) == 0;
    return isForThisSystem && item.channel.isEmpty() && !item.version.isEmpty() &&
           item.version.size() <= kMaxVersionLength && item.shortVersion.size() <= kMaxVersionLength;
}

class FeedReader
{
public:
    explicit FeedReader(const QByteArray &bytes)
        : m_xml(bytes)
    {
    }

    std::optional<std::vector<FeedItem>> read()
    {
        if (!enterElement() || !isPlain(u"rss"))
            return std::nullopt;
        while (enterElement()) {
            if (isPlain(u"channel"))
                readChannel();
            else
                skipElement();
        }
        // Reads to the end: a feed that is cut off is invalid.
        while (!m_xml.atEnd())
            advance();
        if (m_xml.hasError())
            return std::nullopt;
        return m_items;
    }

private:
    bool isPlain(QStringView name) const { return m_xml.namespaceUri().isEmpty() && m_xml.name() == name; }

    QXmlStreamReader::TokenType advance()
    {
        const auto token = m_xml.readNext();
        if (token == QXmlStreamReader::DTD)
            m_xml.raiseError();
        return m_xml.tokenType();
    }

    /// Advances to the next element inside the current one; false at its end.
    bool enterElement()
    {
        for (;;) {
            const auto token = advance();
            if (token == QXmlStreamReader::StartElement)
                return true;
            if (token == QXmlStreamReader::EndElement || token == QXmlStreamReader::EndDocument ||
                token == QXmlStreamReader::Invalid)
                return false;
        }
    }

    /// QXmlStreamReader::skipCurrentElement would follow any depth, and keep track of it all.
    void skipElement()
    {
        for (int depth = 1; depth > 0;) {
            const auto token = advance();
            if (token == QXmlStreamReader::StartElement)
                ++depth;
            else if (token == QXmlStreamReader::EndElement)
                --depth;
            else if (token == QXmlStreamReader::Invalid)
                return;
            if (depth > kMaxDepth)
                return m_xml.raiseError();
        }
    }

    QString readText() { return m_xml.readElementText().simplified(); }

    void readChannel()
    {
        while (enterElement()) {
            if (isPlain(u"item"))
                readItem();
            else
                skipElement();
        }
    }

    void readItem()
    {
        RawItem elements;
        RawItem enclosure;
        while (enterElement()) {
            if (isPlain(u"link")) {
                elements.page = readText();
            } else if (isPlain(u"enclosure")) {
                readEnclosure(enclosure);
                skipElement();
            } else if (QString *field = sparkleField(elements)) {
                *field = readText();
            } else {
                skipElement();
            }
        }
        add(elements, enclosure);
    }

    QString *sparkleField(RawItem &item) const
    {
        return m_xml.namespaceUri() == kSparkle ? item.fieldNamed(m_xml.name()) : nullptr;
    }

    void readEnclosure(RawItem &item) const
    {
        const QXmlStreamAttributes attributes = m_xml.attributes();
        for (const QXmlStreamAttribute &attribute : attributes) {
            if (attribute.namespaceUri() != kSparkle)
                continue;
            if (QString *field = item.fieldNamed(attribute.name()))
                *field = attribute.value().toString().simplified();
        }
    }

    void add(RawItem item, const RawItem &enclosure)
    {
        for (const auto field :
             {&RawItem::version, &RawItem::shortVersion, &RawItem::system, &RawItem::channel}) {
            if ((item.*field).isEmpty())
                item.*field = enclosure.*field;
        }
        if (!isForUs(item))
            return;
        if (item.page.size() > kMaxPageLength)
            item.page.clear();
        m_items.push_back({.version = item.version,
                           .shownVersion = item.shortVersion.isEmpty() ? item.version : item.shortVersion,
                           .page = item.page});
    }

    QXmlStreamReader m_xml;
    std::vector<FeedItem> m_items;
};

} // namespace

std::optional<std::vector<FeedItem>> parseFeed(const QByteArray &bytes)
{
    return FeedReader(bytes).read();
}

std::optional<FeedItem> newestItem(const std::vector<FeedItem> &items)
{
    const auto newest =
        std::max_element(items.begin(), items.end(), [](const FeedItem &one, const FeedItem &other) {
            return std::is_lt(compareVersions(one.version, other.version));
        });
    return newest == items.end() ? std::nullopt : std::optional(*newest);
}

} // namespace zeigewerk
