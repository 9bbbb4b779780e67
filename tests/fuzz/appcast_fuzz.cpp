// An update feed. For any input, the result is a list of items or an error, every item can be compared and displayed,
// and the chosen one is newer, signed and fetched over https.

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/words/display_text.h"
#include "fuzz/expect.h"
#include "shell/updates/newest_update.h"
#include "shell/updates/update_folder.h"

using corvane::Appcast;
using corvane::AppcastItem;
using corvane::DottedVersion;
using corvane::fuzz::expect;

namespace {

void checkItem(const AppcastItem &item)
{
    constexpr qsizetype longestVersion = 40;
    expect(corvane::isDisplayText(item.version.toStdString()) && item.version.size() <= longestVersion);
    expect(item.signature.isEmpty() || item.signature.size() == 64);
    expect(!item.length || *item.length > 0);
    expect(item.releaseNotes.isEmpty() || item.releaseNotes.scheme() == QLatin1String("https"));
    const std::string name = corvane::UpdateName::of(item.version, item.download);
    expect(corvane::UpdateName::isOurs(name) && name.find('/') == std::string::npos);
}

void checkOrder(const DottedVersion &left, const DottedVersion &right)
{
    expect((left < right) == (right > left));
    expect((left == right) == !(left < right || left > right));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto items = Appcast::parse(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (!items)
        return 0;
    expect(items->size() <= static_cast<std::size_t>(Appcast::maximumItems));
    for (const AppcastItem &item : *items) {
        checkItem(item);
        checkOrder(item.build, items->front().build);
    }
    const auto running = DottedVersion::parse(u"100").value();
    const auto newest = corvane::newestUpdate(
        *items, running, {QStringLiteral("linux"), QStringLiteral("x86_64"), DottedVersion::parse(u"6.1")});
    if (newest && *newest) {
        expect((*newest)->build > running);
        expect(!(*newest)->signature.isEmpty());
        expect((*newest)->download.scheme() == QLatin1String("https"));
    }
    return 0;
}
