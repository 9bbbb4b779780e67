#include "platform/path.h"

#include <algorithm>
#include <vector>

#include "platform/text.h"

namespace corvane {

std::string joined(std::string_view folder, std::string_view name)
{
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path = folder;
    if (!path.ends_with('/'))
        path += '/';
    return path.append(name);
}

std::string withoutDots(std::string_view path)
{
    const bool isAbsolute = path.starts_with('/');
    std::vector<std::string_view> components;
    while (!path.empty()) {
        const std::string_view component = takePart(path, '/');
        if (component.empty() || component == ".")
            continue;
        const bool goesUp = component == "..";
        if (goesUp && !components.empty() && components.back() != "..")
            components.pop_back();
        else if (!goesUp || !isAbsolute)
            components.push_back(component);
    }

    std::string plain = isAbsolute ? "/" : "";
    for (const std::string_view component : components) {
        if (plain.size() > 1 || (!isAbsolute && !plain.empty()))
            plain += '/';
        plain += component;
    }
    return plain;
}

bool liesBeneath(std::string_view path, std::string_view folder)
{
    if (folder == "/")
        return path.size() > 1 && path.front() == '/';
    return path.size() > folder.size() + 1 && path.starts_with(folder) && path[folder.size()] == '/';
}

bool isOrLiesBeneath(std::string_view path, std::string_view folder)
{
    return path == folder || liesBeneath(path, folder);
}

std::string_view containingFolder(std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos)
        return {};
    return path.substr(0, std::max<std::size_t>(slash, 1));
}

std::string_view lastPathComponent(std::string_view path)
{
    const std::string_view last = path.substr(path.rfind('/') + 1);
    return last.empty() ? path : last;
}

std::string_view nameExtension(std::string_view name)
{
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? std::string_view{} : name.substr(dot + 1);
}

} // namespace corvane
