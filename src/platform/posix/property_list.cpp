#include "platform/property_list.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>

#include <plist/plist.h>

#include "platform/posix/property_list_guard.h"

namespace corvane {

namespace {

struct FreePlist {
    void operator()(void *node) const { plist_free(node); }
};
struct FreeMemory {
    void operator()(void *memory) const { std::free(memory); } // NOLINT: allocated by C code
};
using OwnedText = std::unique_ptr<char, FreeMemory>;

PropertyList convert(plist_t node);

PropertyList convertArray(plist_t node)
{
    PropertyList::Array values;
    // Indexed access walks the library's list from its first item each time.
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(node, &iterator);
    const std::unique_ptr<void, FreeMemory> ownedIterator(iterator);
    while (true) {
        plist_t value = nullptr;
        plist_array_next_item(node, iterator, &value);
        if (value == nullptr)
            break;
        values.push_back(convert(value));
    }
    return PropertyList(std::move(values));
}

PropertyList convertDictionary(plist_t node)
{
    PropertyList::Dictionary values;
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(node, &iterator);
    const std::unique_ptr<void, FreeMemory> ownedIterator(iterator);
    while (true) {
        char *key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(node, iterator, &key, &value);
        const OwnedText owned(key);
        if (key == nullptr)
            break;
        values.insert_or_assign(key, convert(value));
    }
    return PropertyList(std::move(values));
}

/// Recursive; the nesting depth has been checked before.
PropertyList convert(plist_t node) // NOLINT(misc-no-recursion)
{
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return PropertyList(value != 0);
    }
    case PLIST_UINT: {
        std::uint64_t value = 0;
        plist_get_uint_val(node, &value);
        return PropertyList(static_cast<std::int64_t>(value));
    }
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return PropertyList(value);
    }
    case PLIST_STRING: {
        char *text = nullptr;
        plist_get_string_val(node, &text);
        const OwnedText owned(text);
        return PropertyList(text == nullptr ? std::string() : std::string(text));
    }
    case PLIST_ARRAY:
        return convertArray(node);
    case PLIST_DICT:
        return convertDictionary(node);
    default:
        return {};
    }
}

} // namespace

std::optional<PropertyList> PropertyList::parse(std::string_view bytes)
{
    if (bytes.empty() || bytes.size() > std::numeric_limits<std::uint32_t>::max() || !isHarmlessPropertyList(bytes))
        return std::nullopt;
    plist_t node = nullptr;
    const auto length = static_cast<std::uint32_t>(bytes.size());
    if (bytes.starts_with(binaryPropertyListMark))
        plist_from_bin(bytes.data(), length, &node);
    else
        plist_from_xml(bytes.data(), length, &node);
    if (node == nullptr)
        return std::nullopt;
    const std::unique_ptr<void, FreePlist> owned(node);
    return convert(node);
}

const PropertyList *PropertyList::find(const std::string &key) const
{
    const Dictionary *values = dictionary();
    if (values == nullptr)
        return nullptr;
    const auto position = values->find(key);
    return position == values->end() ? nullptr : &position->second;
}

std::optional<std::int64_t> PropertyList::integer() const
{
    if (const auto *value = std::get_if<std::int64_t>(&m_value))
        return *value;
    if (const auto *value = std::get_if<double>(&m_value)) {
        if (std::isfinite(*value) && std::abs(*value) < 0x1p63)
            return static_cast<std::int64_t>(*value);
    }
    return std::nullopt;
}

std::optional<bool> PropertyList::boolean() const
{
    if (const auto *value = std::get_if<bool>(&m_value))
        return *value;
    if (const auto value = integer())
        return *value != 0;
    return std::nullopt;
}

} // namespace corvane
