#pragma once

#include <algorithm>
#include <functional>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/ascii_case.h"
#include "platform/path.h"

namespace corvane {

/// Caches for each name extension whether the system presents folders with it as one document, because querying the
/// system is slow. Any thread.
class PackageExtensionCache {
public:
    using Question = std::function<bool(const std::string &lowerCaseExtension)>;

    /// `ask` is called by one thread at a time.
    explicit PackageExtensionCache(Question ask) : m_ask(std::move(ask)) {}

    /// Takes an extension without its dot, in any case. Without an extension, a folder is not a package.
    [[nodiscard]] bool isPackageExtension(std::string_view extension)
    {
        if (extension.empty())
            return false;
        std::string key = lowerAscii(std::string(extension));
        {
            const std::shared_lock lock(m_mutex);
            if (const auto known = m_answers.find(key); known != m_answers.end())
                return known->second;
        }
        const std::unique_lock lock(m_mutex);
        if (const auto known = m_answers.find(key); known != m_answers.end())
            return known->second;
        const bool answer = m_ask(key);
        m_answers.emplace(std::move(key), answer);
        return answer;
    }

    /// The same for a folder's name.
    [[nodiscard]] bool isPackageName(std::string_view name) { return isPackageExtension(nameExtension(name)); }

private:
    const Question m_ask; // constant after construction; called with m_mutex held
    std::shared_mutex m_mutex;
    std::unordered_map<std::string, bool> m_answers; // guarded by m_mutex
};

} // namespace corvane
