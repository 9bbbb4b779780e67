#pragma once

#include <vector>

#include <QByteArray>

namespace corvane {

/// One item of a test feed.
struct FeedItem {
    QByteArray build = "10200";
    QByteArray version = "1.2.0";
    QByteArray url = "https://updates.example/corvane.deb";
    QByteArray length = "";
    QByteArray signature = ""; ///< base64
    QByteArray os = "";
    QByteArray minimumSystem = "";
    QByteArray extra = ""; ///< further elements
};

inline QByteArray feedText(const std::vector<FeedItem> &items)
{
    QByteArray text = R"(<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle">
<channel><title>Corvane</title>
)";
    const auto attribute = [](const QByteArray &name, const QByteArray &value) {
        return value.isEmpty() ? QByteArray() : ' ' + name + "=\"" + value + '"';
    };
    const auto element = [](const QByteArray &name, const QByteArray &value) {
        return value.isEmpty() ? QByteArray() : '<' + name + '>' + value + "</" + name + ">\n";
    };
    for (const FeedItem &item : items) {
        text += "<item><title>Version</title><description><![CDATA[<b>new</b>]]></description>\n";
        text += element("sparkle:version", item.build) + element("sparkle:shortVersionString", item.version) +
                element("sparkle:minimumSystemVersion", item.minimumSystem) + item.extra;
        text += "<enclosure type=\"application/octet-stream\"" + attribute("url", item.url) +
                attribute("length", item.length) + attribute("sparkle:edSignature", item.signature) +
                attribute("sparkle:os", item.os) + "/></item>\n";
    }
    return text + "</channel></rss>\n";
}

} // namespace corvane
