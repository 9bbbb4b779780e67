#include "shell/ui/icns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace corvane {

namespace {

using namespace std::literals;

constexpr std::size_t headSize = 8; // bytes, of the file header and of each entry header
constexpr std::size_t widthAt = 16; // offset of the width in a PNG
constexpr std::size_t heightAt = 20;
constexpr std::uint32_t largestIcon = 1024; // pixels

constexpr std::size_t pngMarkSize = 8;
constexpr std::size_t chunkFrameSize = 12; // bytes: the length and type before a PNG chunk's contents, a checksum after
constexpr std::array pixelChunks{"IHDR"sv, "PLTE"sv, "tRNS"sv, "IDAT"sv, "IEND"sv};

/// The big-endian number at a position; the caller has checked that four bytes are available.
std::uint32_t numberAt(std::string_view bytes, std::size_t position)
{
    std::uint32_t number = 0;
    for (const char byte : bytes.substr(position, 4))
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

/// The width in a PNG's header; nullopt for other formats, and for sizes that no icon has.
std::optional<std::uint32_t> pngWidth(std::string_view picture)
{
    constexpr std::string_view start = "\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR"sv;
    if (!picture.starts_with(start) || picture.size() < heightAt + 4)
        return std::nullopt;
    const std::uint32_t width = numberAt(picture, widthAt);
    const std::uint32_t height = numberAt(picture, heightAt);
    if (width == 0 || width > largestIcon || height == 0 || height > largestIcon)
        return std::nullopt;
    return width;
}

} // namespace

std::string_view findPng(std::string_view icns, int pixels)
{
    if (icns.size() < headSize || !icns.starts_with("icns"sv))
        return {};
    const auto wanted = static_cast<std::uint32_t>(pixels > 0 ? pixels : 0);
    std::string_view best;
    std::uint32_t bestWidth = 0;
    // Ignore bytes after the length in the header; a truncated file may be shorter.
    std::string_view left = icns.substr(0, numberAt(icns, 4));
    left.remove_prefix(left.size() < headSize ? left.size() : headSize);
    while (left.size() > headSize) {
        const std::size_t length = numberAt(left, 4);
        if (length < headSize || length > left.size())
            break;
        const std::string_view picture = left.substr(headSize, length - headSize);
        left.remove_prefix(length);
        const std::uint32_t width = pngWidth(picture).value_or(0);
        const bool isBetter = bestWidth < wanted ? width > bestWidth : width >= wanted && width < bestWidth;
        if (isBetter) {
            best = picture;
            bestWidth = width;
        }
    }
    return best;
}

std::string_view iconPng(std::string_view picture)
{
    return pngWidth(picture) ? picture : std::string_view();
}

std::string pixelsAlone(std::string_view png)
{
    std::string pixels(png.substr(0, pngMarkSize));
    std::string_view left = png.substr(pixels.size());
    while (left.size() >= chunkFrameSize) {
        const std::size_t length = numberAt(left, 0);
        if (length > left.size() - chunkFrameSize)
            break;
        const std::string_view chunk = left.substr(0, chunkFrameSize + length);
        left.remove_prefix(chunk.size());
        if (std::ranges::find(pixelChunks, chunk.substr(4, 4)) != pixelChunks.end())
            pixels += chunk;
    }
    return pixels;
}

} // namespace corvane
