#include "shell/ui/symbols.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

constexpr auto symbols = std::to_array<Symbol>({
    {"chart.pie", "chart-pie-slice", IconWeight::regular},
    {"chart.bar.doc.horizontal", "chart-bar-horizontal", IconWeight::regular},
    {"square.grid.2x2", "squares-four", IconWeight::regular},
    {"xmark.bin", "trash-simple", IconWeight::regular},
    {"scalemass", "scales", IconWeight::regular},
    {"clock.arrow.circlepath", "clock-counter-clockwise", IconWeight::regular},
    {"doc.on.doc", "files", IconWeight::regular},
    {"sparkles", "sparkle", IconWeight::regular},
    {"arrow.clockwise", "arrow-clockwise", IconWeight::regular},
    {"stop.circle", "stop-circle", IconWeight::regular},
    {"internaldrive", "hard-drive", IconWeight::regular},
    {"trash", "trash", IconWeight::regular},
    {"xmark.circle.fill", "x-circle", IconWeight::fill},
    {"app.badge", "app-window", IconWeight::regular},
    {"building.columns", "bank", IconWeight::regular},
    {"mug", "coffee", IconWeight::regular},
    {"terminal", "terminal-window", IconWeight::regular},
    {"person.2", "users", IconWeight::regular},
    {"house", "house", IconWeight::regular},
    {"apple.logo", "apple-logo", IconWeight::fill},
    {"memorychip", "memory", IconWeight::regular},
    {"externaldrive", "hard-drives", IconWeight::regular},
    {"wrench.and.screwdriver", "wrench", IconWeight::regular},
    {"clock.arrow.2.circlepath", "clock-clockwise", IconWeight::regular},
    {"questionmark.folder", "folder-dashed", IconWeight::regular},
    {"eye.slash", "eye-slash", IconWeight::regular},
    {"camera.metering.unknown", "question", IconWeight::regular},
    {"doc.on.clipboard", "clipboard-text", IconWeight::regular},
    {"checkmark", "check", IconWeight::bold},
    {"chevron.compact.right", "caret-right", IconWeight::regular},
    {"lock", "lock-simple", IconWeight::regular},
    {"tray", "tray", IconWeight::regular},
    {"lock.shield", "lock-key", IconWeight::regular},
    {"sparkle.magnifyingglass", "list-magnifying-glass", IconWeight::regular},
    {"info.circle", "info", IconWeight::regular},
    {"archivebox", "archive", IconWeight::regular},
    {"doc.text.magnifyingglass", "file-magnifying-glass", IconWeight::regular},
    {"paperclip", "paperclip", IconWeight::regular},
    {"hammer", "hammer", IconWeight::regular},
    {"iphone", "device-mobile", IconWeight::regular},
    {"shippingbox", "package", IconWeight::regular},
    {"ipad.and.iphone", "devices", IconWeight::regular},
    {"rectangle.on.rectangle", "cards", IconWeight::regular},
    {"cube.box", "cube", IconWeight::regular},
    {"square.stack.3d.down.right", "stack", IconWeight::regular},
    {"cpu", "cpu", IconWeight::regular},
    {"smartphone", "device-mobile-speaker", IconWeight::regular},
    {"shippingbox.circle", "package", IconWeight::fill},
    {"arrow.down.circle", "arrow-circle-down", IconWeight::regular},
    {"iphone.gen3", "device-mobile-camera", IconWeight::regular},
    {"gearshape.2", "gear-fine", IconWeight::regular},
    {"person.crop.square", "user-square", IconWeight::regular},
    {"folder.badge.gearshape", "toolbox", IconWeight::regular},
    {"checkmark.seal", "seal-check", IconWeight::regular},
    {"leaf", "leaf", IconWeight::regular},
    {"magnifyingglass", "magnifying-glass", IconWeight::regular},
    {"magnifyingglass.circle", "magnifying-glass", IconWeight::regular},
    {"arrow.uturn.backward.circle", "arrow-u-up-left", IconWeight::regular},
    {"checkmark.circle.fill", "check-circle", IconWeight::fill},
    {"checkmark.shield.fill", "shield-check", IconWeight::fill},
    {"gearshape", "gear-six", IconWeight::regular},
    {"bubble.left.and.bubble.right.fill", "chats-circle", IconWeight::fill},
});

constexpr std::array<std::string_view, 4> weights{"regular", "fill", "bold", "light"};

} // namespace

std::span<const Symbol> allSymbols()
{
    return symbols;
}

std::optional<Symbol> findSymbol(std::string_view name)
{
    const auto found = std::ranges::find(symbols, name, &Symbol::name);
    return found == symbols.end() ? std::nullopt : std::optional(*found);
}

std::string_view weightName(IconWeight weight)
{
    return weights[static_cast<std::size_t>(weight)];
}

std::optional<IconWeight> findWeight(std::string_view name)
{
    const auto found = std::ranges::find(weights, name);
    if (found == weights.end())
        return std::nullopt;
    return static_cast<IconWeight>(found - weights.begin());
}

} // namespace corvane
