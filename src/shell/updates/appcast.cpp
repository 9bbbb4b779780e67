#include "shell/updates/appcast.h"

#include <utility>

#include <QXmlStreamReader>

#include "core/words/display_text.h"

namespace corvane {

namespace {

constexpr QLatin1String frameworkSpace("http://www.andymatuschak.org/xml-namespaces/sparkle");
constexpr qsizetype signatureBytes = 64;

// A candidate item. The feed may give a value as an element beside the enclosure or as the enclosure's attribute.
struct Draft {
    QString build;
    QString version;
    QString minimumSystem;
    QString releaseNotes;
    QString system;
    QString address;
    QString length;
    QString signature;
    bool hasEnclosure = false;
    bool isUsable = true;
};

class FeedReader {
public:
    explicit FeedReader(const QByteArray &feed) : m_xml(feed) {}

    tl::expected<std::vector<AppcastItem>, Appcast::Failure> read()
    {
        if (nextElement() && isPlain(QLatin1String("rss"))) {
            while (nextElement()) {
                if (isPlain(QLatin1String("channel")))
                    readChannel();
                else
                    skip();
            }
        } else {
            m_isMalformed = true;
        }
        // Parse to the end: anything after the root element must be well-formed too.
        while (!isBroken() && !m_xml.atEnd())
            m_xml.readNext();
        if (isBroken())
            return tl::unexpected(Appcast::Failure::malformed);
        return std::move(m_items);
    }

private:
    [[nodiscard]] bool isBroken() const { return m_isMalformed || m_xml.hasError(); }
    [[nodiscard]] bool isPlain(QLatin1String name) const
    {
        return m_xml.namespaceUri().isEmpty() && m_xml.name() == name;
    }
    [[nodiscard]] bool isOfFramework(QLatin1String name) const
    {
        return m_xml.namespaceUri() == frameworkSpace && m_xml.name() == name;
    }

    QXmlStreamReader::TokenType next()
    {
        const QXmlStreamReader::TokenType token = m_xml.readNext();
        if (token == QXmlStreamReader::StartElement) {
            if (++m_depth > Appcast::maximumDepth)
                m_isMalformed = true;
        } else if (token == QXmlStreamReader::EndElement) {
            --m_depth;
        } else if (token == QXmlStreamReader::DTD || token == QXmlStreamReader::EntityReference) {
            m_isMalformed = true;
        }
        return token;
    }

    /// Advances to the next child of the current element; false at its end.
    bool nextElement()
    {
        while (!isBroken() && !m_xml.atEnd()) {
            const QXmlStreamReader::TokenType token = next();
            if (token == QXmlStreamReader::StartElement)
                return !isBroken();
            if (token == QXmlStreamReader::EndElement)
                return false;
        }
        return false;
    }

    /// Skips the current element with its children.
    void skip()
    {
        for (const int outside = m_depth - 1; m_depth > outside && !isBroken() && !m_xml.atEnd();)
            next();
    }

    /// The text of the current element. Child elements or too long a text make the item unusable.
    QString text(Draft &item)
    {
        QString text;
        for (const int outside = m_depth - 1; m_depth > outside && !isBroken() && !m_xml.atEnd();) {
            const QXmlStreamReader::TokenType token = next();
            if (token == QXmlStreamReader::StartElement)
                item.isUsable = false;
            if (token == QXmlStreamReader::Characters && text.size() <= Appcast::maximumText)
                text += m_xml.text();
        }
        return checked(text, item);
    }

    static QString checked(const QString &text, Draft &item)
    {
        if (text.size() <= Appcast::maximumText)
            return text.trimmed();
        item.isUsable = false;
        return {};
    }

    void readChannel()
    {
        while (nextElement()) {
            if (!isPlain(QLatin1String("item"))) {
                skip();
            } else if (++m_itemCount > Appcast::maximumItems) {
                m_isMalformed = true;
            } else {
                readItem();
            }
        }
    }

    void readItem()
    {
        Draft draft;
        while (nextElement()) {
            if (isPlain(QLatin1String("enclosure")))
                readEnclosure(draft);
            else if (isOfFramework(QLatin1String("version")))
                draft.build = text(draft);
            else if (isOfFramework(QLatin1String("shortVersionString")))
                draft.version = text(draft);
            else if (isOfFramework(QLatin1String("minimumSystemVersion")))
                draft.minimumSystem = text(draft);
            else if (isOfFramework(QLatin1String("releaseNotesLink")))
                draft.releaseNotes = text(draft);
            else
                readOther(draft);
        }
        if (!isBroken())
            take(draft);
    }

    void readOther(Draft &draft)
    {
        if (isOfFramework(QLatin1String("channel")))
            draft.isUsable = false;
        skip();
    }

    void readEnclosure(Draft &draft)
    {
        if (!std::exchange(draft.hasEnclosure, true)) {
            const QXmlStreamAttributes attributes = m_xml.attributes();
            const auto plain = [&](QLatin1String name) { return checked(attributes.value(name).toString(), draft); };
            const auto framework = [&](QLatin1String name) {
                return checked(attributes.value(frameworkSpace, name).toString(), draft);
            };
            draft.address = plain(QLatin1String("url"));
            draft.length = plain(QLatin1String("length"));
            draft.signature = framework(QLatin1String("edSignature"));
            draft.system = framework(QLatin1String("os"));
            if (draft.build.isEmpty())
                draft.build = framework(QLatin1String("version"));
            if (draft.version.isEmpty())
                draft.version = framework(QLatin1String("shortVersionString"));
        }
        skip();
    }

    void take(const Draft &draft)
    {
        const std::optional<DottedVersion> build = DottedVersion::parse(draft.build);
        const std::optional<DottedVersion> minimum = DottedVersion::parse(draft.minimumSystem);
        const QUrl address(draft.address, QUrl::StrictMode);
        const bool hasKnownMinimum = draft.minimumSystem.isEmpty() || minimum;
        if (!draft.isUsable || !build || !hasKnownMinimum || !address.isValid() || address.isRelative())
            return;
        AppcastItem item;
        item.build = *build;
        item.version = shown(draft.version.isEmpty() ? draft.build : draft.version);
        item.system = draft.system.toLower();
        item.minimumSystem = minimum;
        item.minimumSystemText = draft.minimumSystem;
        item.download = address;
        // Feed generators write 0 if they do not know the length.
        if (const qint64 length = draft.length.toLongLong(); length > 0)
            item.length = length;
        const auto signature =
            QByteArray::fromBase64Encoding(draft.signature.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
        if (signature && signature.decoded.size() == signatureBytes)
            item.signature = signature.decoded;
        if (const QUrl notes(draft.releaseNotes, QUrl::StrictMode); notes.scheme() == QLatin1String("https"))
            item.releaseNotes = notes;
        m_items.push_back(std::move(item));
    }

    static QString shown(const QString &version)
    {
        constexpr qsizetype longestVersion = 40;
        return QString::fromStdString(displayUtf8(version.simplified().left(longestVersion).toStdString()));
    }

    QXmlStreamReader m_xml;
    std::vector<AppcastItem> m_items;
    int m_itemCount = 0;
    int m_depth = 0;
    bool m_isMalformed = false;
};

} // namespace

tl::expected<std::vector<AppcastItem>, Appcast::Failure> Appcast::parse(const QByteArray &feed)
{
    if (feed.size() > maximumBytes)
        return tl::unexpected(Failure::tooLarge);
    return FeedReader(feed).read();
}

} // namespace corvane
