#include "shell/ui/linux/svg_icon.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include <QPainter>
#include <QSvgRenderer>

namespace corvane {

namespace {

// The elements that icons consist of, and the metadata of drawing programs. Everything else is rejected: images, which
// may refer to any file, text, patterns and animations.
constexpr auto plainElements = std::to_array<std::string_view>({"a",
                                                                "Agent",
                                                                "Bag",
                                                                "circle",
                                                                "clipPath",
                                                                "contributor",
                                                                "coverage",
                                                                "creator",
                                                                "date",
                                                                "defs",
                                                                "desc",
                                                                "description",
                                                                "Description",
                                                                "ellipse",
                                                                "filter",
                                                                "format",
                                                                "g",
                                                                "grid",
                                                                "guide",
                                                                "identifier",
                                                                "language",
                                                                "li",
                                                                "license",
                                                                "License",
                                                                "line",
                                                                "linearGradient",
                                                                "mask",
                                                                "metadata",
                                                                "namedview",
                                                                "path",
                                                                "path-effect",
                                                                "permits",
                                                                "polygon",
                                                                "polyline",
                                                                "prohibits",
                                                                "publisher",
                                                                "radialGradient",
                                                                "RDF",
                                                                "rect",
                                                                "relation",
                                                                "requires",
                                                                "rights",
                                                                "source",
                                                                "stop",
                                                                "style",
                                                                "subject",
                                                                "svg",
                                                                "title",
                                                                "type",
                                                                "use",
                                                                "Work"});
constexpr std::string_view filterStep = "fe";
constexpr std::string_view filterPicture = "feImage";
// Character references are rejected because they could disguise the other words.
constexpr auto refusedWords = std::to_array<std::string_view>({"&#", "\\", "@import", "url(http", "url(file"});
constexpr std::string_view dashes = "stroke-dasharray"; // a line may have millions of dashes
constexpr int deepest = 32;
constexpr std::size_t mostTags = 8'000;
constexpr std::size_t mostUses = 12; // nested references grow exponentially
constexpr std::string_view declaration = "<?xml";
constexpr std::string_view declarationEnd = "?>";

/// Strips the XML declaration: it may name an encoding, but the text is to be parsed exactly as it was checked.
std::string_view withoutDeclaration(std::string_view svg)
{
    if (!svg.starts_with(declaration))
        return svg;
    const std::size_t end = svg.find(declarationEnd);
    return end == std::string_view::npos ? std::string_view() : svg.substr(end + declarationEnd.size());
}

/// The element's name without its namespace prefix: "path" for "svg:path".
std::string_view elementName(std::string_view tag)
{
    const std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n/>"));
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

/// The tag at the start of a text, up to the first ">" outside quotes; nullopt if it is not closed.
std::optional<std::string_view> tagIn(std::string_view text)
{
    char quote = '\0';
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char each = text[i];
        if (quote != '\0')
            quote = each == quote ? '\0' : quote;
        else if (each == '"' || each == '\'')
            quote = each;
        else if (each == '>')
            return text.substr(0, i);
    }
    return std::nullopt;
}

bool hasDashes(std::string_view text)
{
    for (std::size_t at = 0; (at = text.find(dashes, at)) != std::string_view::npos;) {
        at += dashes.size();
        const std::size_t value = text.find_first_not_of(" \t\r\n:=\"'", at);
        if (value == std::string_view::npos || !text.substr(value).starts_with("none"))
            return true;
    }
    return false;
}

bool isPlainElement(std::string_view name)
{
    return std::ranges::find(plainElements, name) != plainElements.end() ||
           (name.starts_with(filterStep) && name != filterPicture);
}

} // namespace

bool isPlainDrawing(std::string_view svg)
{
    const std::string_view text = withoutDeclaration(svg);
    const auto holds = [&](std::string_view word) { return text.find(word) != std::string_view::npos; };
    if (text.find('\0') != std::string_view::npos || !holds("<svg") || hasDashes(text) ||
        std::ranges::any_of(refusedWords, holds))
        return false;
    constexpr std::string_view comment = "!--";
    constexpr std::string_view commentEnd = "-->";
    constexpr std::string_view documentType = "!DOCTYPE";
    int depth = 0;
    std::size_t tags = 0;
    std::size_t uses = 0;
    std::size_t at = 0;
    while ((at = text.find('<', at)) != std::string_view::npos) {
        const std::string_view rest = text.substr(++at);
        if (rest.starts_with(comment)) {
            const std::size_t end = rest.find(commentEnd, comment.size());
            if (end == std::string_view::npos)
                return false;
            at += end;
            continue;
        }
        const std::optional<std::string_view> tag = tagIn(rest);
        if (!tag || ++tags > mostTags)
            return false;
        at += tag->size();
        // A document type with brackets could define entities, and is rejected.
        if (tag->starts_with(documentType) && tag->find('[') == std::string_view::npos)
            continue;
        if (tag->starts_with('/')) {
            --depth;
            continue;
        }
        const std::string_view name = elementName(*tag);
        uses += name == "use" ? 1 : 0;
        if (!isPlainElement(name) || uses > mostUses || (!tag->ends_with('/') && ++depth > deepest))
            return false;
    }
    return true;
}

QImage drawnIcon(std::string_view svg, int pixels)
{
    if (!isPlainDrawing(svg))
        return {};
    const std::string_view text = withoutDeclaration(svg);
    QSvgRenderer renderer(QByteArray(text.data(), static_cast<qsizetype>(text.size())));
    if (!renderer.isValid())
        return {};
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

} // namespace corvane
