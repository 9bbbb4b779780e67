#include "cli/xml_check.h"

#include <algorithm>
#include <array>
#include <set>
#include <vector>

#include "core/words/utf8.h"

namespace corvane {

namespace {

bool isXmlCharacter(char32_t c)
{
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD) ||
           (c >= 0x10000 && c <= 0x10FFFF);
}

bool isNameCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == ':' ||
           c == '_';
}

class Checker {
public:
    explicit Checker(std::string_view text) : m_rest(text) {}

    std::string fault()
    {
        if (m_rest.starts_with("<?xml")) {
            const std::size_t end = m_rest.find("?>");
            if (end == std::string_view::npos)
                return "the declaration does not end";
            m_rest.remove_prefix(end + 2);
        }
        int roots = 0;
        while (!m_rest.empty() && m_fault.empty()) {
            if (m_rest.front() == '<') {
                roots += m_open.empty() ? 1 : 0;
                tag();
            } else {
                characters();
            }
        }
        if (m_fault.empty() && !m_open.empty())
            m_fault = "not closed: " + m_open.back();
        if (m_fault.empty() && roots != 1)
            m_fault = "not exactly one root";
        return m_fault;
    }

private:
    void tag()
    {
        m_rest.remove_prefix(1);
        const bool closes = take('/');
        const std::string name = takeName();
        if (name.empty()) {
            m_fault = "a tag without a name";
        } else if (closes) {
            if (m_open.empty() || m_open.back() != name || !take('>'))
                m_fault = "a closing tag in the wrong place: " + name;
            else
                m_open.pop_back();
        } else {
            attributes(name);
        }
    }

    void attributes(const std::string &element)
    {
        std::set<std::string> seen;
        for (;;) {
            const bool hadSpace = skipSpace();
            if (take('>')) {
                m_open.push_back(element);
                return;
            }
            if (take('/')) {
                if (!take('>'))
                    m_fault = "a slash inside " + element;
                return;
            }
            const std::string name = takeName();
            if (!hadSpace || name.empty() || !seen.insert(name).second || !take('=') || !take('"')) {
                m_fault = "a bad attribute of " + element;
                return;
            }
            const std::size_t end = m_rest.find('"');
            if (end == std::string_view::npos) {
                m_fault = "an attribute that does not end";
                return;
            }
            checkText(m_rest.substr(0, end));
            m_rest.remove_prefix(end + 1);
        }
    }

    void characters()
    {
        const std::string_view text = m_rest.substr(0, m_rest.find('<'));
        const bool isBlank = std::ranges::all_of(text, [](char c) { return c == '\n' || c == ' '; });
        if (m_open.empty() && !isBlank)
            m_fault = "text outside of the root";
        if (text.find("]]>") != std::string_view::npos)
            m_fault = "the end of a section in text";
        checkText(text);
        m_rest.remove_prefix(text.size());
    }

    void checkText(std::string_view text)
    {
        static constexpr std::array<std::string_view, 5> references{"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"};
        for (std::size_t i = 0; i < text.size();) {
            const DecodedCharacter character = decodeUtf8(text, i);
            if (!character.isValid || !isXmlCharacter(character.codePoint))
                m_fault = "a character that XML does not know";
            const std::string_view rest = text.substr(i);
            if (text[i] == '<' || (text[i] == '&' && std::ranges::none_of(references, [rest](auto known) {
                                       return rest.starts_with(known);
                                   })))
                m_fault = "a character that is not escaped";
            i += character.length;
        }
    }

    bool take(char c)
    {
        if (m_rest.empty() || m_rest.front() != c)
            return false;
        m_rest.remove_prefix(1);
        return true;
    }

    bool skipSpace()
    {
        const std::size_t before = m_rest.size();
        while (take(' ') || take('\n')) {}
        return m_rest.size() < before;
    }

    std::string takeName()
    {
        const auto *const end = std::ranges::find_if_not(m_rest, isNameCharacter);
        std::string name(m_rest.begin(), end);
        m_rest.remove_prefix(name.size());
        return name;
    }

    std::string_view m_rest;
    std::vector<std::string> m_open;
    std::string m_fault;
};

} // namespace

std::string xmlFault(std::string_view text)
{
    return Checker(text).fault();
}

} // namespace corvane
