#include "apps/desktop_entry.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>
#include <vector>

#include "apps/name_pieces.h"
#include "core/words/utf8.h"
#include "platform/environment.h"
#include "platform/path.h"
#include "platform/patient_open.h"
#include "platform/text.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

constexpr std::size_t longestFile = 256UL * 1024;
constexpr std::size_t longestName = 255; // bytes, the limit for a file name
constexpr std::string_view ending = ".desktop";

/// The values of the group that describes the application, by key; the first value of a key counts.
std::map<std::string_view, std::string_view> valuesIn(std::string_view text)
{
    std::map<std::string_view, std::string_view> values;
    bool isInside = false;
    while (!text.empty()) {
        const std::string_view line = trimmed(takeLine(text));
        if (line.starts_with('[')) {
            isInside = line == "[Desktop Entry]";
            continue;
        }
        const std::size_t equals = line.find('=');
        if (isInside && equals != std::string_view::npos && !line.starts_with('#'))
            values.emplace(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    }
    return values;
}

/// The unescaped value, with control characters replaced by spaces.
std::string unescaped(std::string_view value)
{
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        char each = value[i];
        if (each == '\\' && i + 1 < value.size()) {
            each = value[++i];
            if (each == 's' || each == 'n' || each == 't' || each == 'r')
                each = ' ';
        }
        text += each;
    }
    return withoutControls(std::move(text));
}

/// Splits a command into words; double quotes group.
std::vector<std::string> wordsOf(std::string_view command)
{
    std::vector<std::string> words;
    std::string word;
    bool isWord = false;
    bool isQuoted = false;
    for (std::size_t i = 0; i < command.size(); ++i) {
        const char each = command[i];
        const std::string_view next = command.substr(i + 1, 1);
        if (each == '"') {
            isQuoted = !isQuoted;
            isWord = true;
        } else if ((each == '\\' && !next.empty()) || (each == '%' && next == "%")) {
            word += command[++i];
            isWord = true;
        } else if (!isQuoted && (each == ' ' || each == '\t')) {
            if (isWord)
                words.push_back(std::exchange(word, {}));
            isWord = false;
        } else {
            word += each;
            isWord = true;
        }
    }
    if (isWord)
        words.push_back(std::move(word));
    return words;
}

/// The program that a command actually starts: after variable assignments, and inside a Flatpak.
std::string programOf(const std::vector<std::string> &words)
{
    auto word = words.begin();
    if (word != words.end() && lastPathComponent(*word) == "env") {
        ++word;
        while (word != words.end() && (word->starts_with('-') || word->find('=') != std::string::npos))
            ++word;
    }
    if (word == words.end())
        return {};
    if (lastPathComponent(*word) != "flatpak")
        return *word;
    constexpr std::string_view option = "--command=";
    const auto named =
        std::find_if(word, words.end(), [&](const std::string &each) { return each.starts_with(option); });
    return named == words.end() ? std::string() : named->substr(option.size());
}

/// Browsers and game libraries create dozens of such entries; the program started is not the application in the entry's
/// name.
bool opensInAnother(const std::vector<std::string> &words)
{
    constexpr std::array<std::string_view, 6> marks{
        "--app=", "--app-id=", "--profile-directory=", "steam://", "lutris:", "heroic://"};
    return std::ranges::any_of(words, [&](const std::string &word) {
        return std::ranges::any_of(marks, [&](std::string_view mark) { return word.starts_with(mark); });
    });
}

/// The key suffixes for a locale "language_COUNTRY.ENCODING@MODIFIER", best match first.
std::vector<std::string> localeEndings(std::string_view locale)
{
    std::string_view modifier;
    if (const std::size_t at = locale.find('@'); at != std::string_view::npos) {
        modifier = locale.substr(at);
        locale = locale.substr(0, at);
    }
    locale = locale.substr(0, locale.find('.'));
    const std::string_view language = locale.substr(0, locale.find('_'));
    std::vector<std::string> endings;
    if (language.empty() || language == "C" || language == "POSIX")
        return endings;
    for (const std::string_view place : {locale, language}) {
        if (!modifier.empty())
            endings.push_back("[" + std::string(place) + std::string(modifier) + "]");
        endings.push_back("[" + std::string(place) + "]");
    }
    return endings;
}

bool isName(const std::string &text)
{
    return isValidUtf8(text) && text.find_first_not_of(' ') != std::string::npos;
}

} // namespace

std::optional<std::string_view> desktopFileID(std::string_view name)
{
    if (!name.ends_with(ending) || name.size() == ending.size())
        return std::nullopt;
    return name.substr(0, name.size() - ending.size());
}

std::optional<DesktopEntry> DesktopEntry::parse(std::string_view path, std::string_view text, std::string_view locale)
{
    const std::optional<std::string_view> id = desktopFileID(lastPathComponent(path));
    const std::map<std::string_view, std::string_view> values = valuesIn(text);
    const auto value = [&](std::string_view key) {
        const auto found = values.find(key);
        return found == values.end() ? std::string() : unescaped(found->second);
    };
    std::string name(startOf(value("Name"), longestName));
    if (!id || value("Type") != "Application" || !isName(name))
        return std::nullopt;
    for (const std::string &suffix : localeEndings(locale)) {
        if (std::string translated(startOf(value("Name" + suffix), longestName)); isName(translated)) {
            name = std::move(translated);
            break;
        }
    }
    const std::vector<std::string> command = wordsOf(value("Exec"));
    return DesktopEntry{.path = std::string(path),
                        .id = std::string(*id),
                        .name = name,
                        .program = programOf(command),
                        .icon = value("Icon"),
                        .windowClass = value("StartupWMClass"),
                        .snap = value("X-SnapInstanceName"),
                        .version = value("X-AppImage-Version"),
                        .isShown = value("NoDisplay") != "true" && value("Hidden") != "true",
                        .isShortcut = opensInAnother(command)};
}

std::optional<DesktopEntry> DesktopEntry::read(const std::string &path, FileSystem &files)
{
    const WalkConditions conditions;
    const auto text = openPatiently([&] { return files.readFile(path, longestFile); });
    return text ? parse(path, *text, Environment::locale("LC_MESSAGES")) : std::nullopt;
}

} // namespace corvane
