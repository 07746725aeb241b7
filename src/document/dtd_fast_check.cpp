#include "document/dtd_fast_check.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <string_view>
#include <vector>

#include "document/dtd.h"
#include "support/key_index.h"

namespace tabulon {

namespace {

constexpr std::size_t kMaxTextBytes = 1000000;
constexpr int kMaxDepth = 200;
constexpr std::size_t kMaxIdBytes = 4000000;
constexpr std::uint64_t kMaxSerialisedBytes = 1ULL << 30;

// --- the rules, read from the DTD lines

enum class Content { Empty, Text, Children };
enum class AttributeType { CData, Id, Choice };

struct ChildRule {
    std::string_view name;
    int min = 1;
    int max = 1;              // 1 or INT_MAX
    std::size_t element = 0;  // index of the child's ElementRule
};

struct AttributeRule {
    std::string_view name;
    AttributeType type = AttributeType::CData;
    std::vector<std::string_view> choices;
    bool required = false;
};

struct ElementRule {
    std::string_view name;
    Content content = Content::Empty;
    std::vector<ChildRule> children;
    std::vector<AttributeRule> attributes;
};

struct Rules {
    bool usable = false;
    std::string_view root;
    std::vector<ElementRule> elements;

    ElementRule* Find(std::string_view name) {
        for (ElementRule& rule : elements) {
            if (rule.name == name) return &rule;
        }
        return nullptr;
    }
};

std::vector<std::string_view> Words(std::string_view line) {
    std::vector<std::string_view> words;
    std::size_t at = 0;
    while (at < line.size()) {
        if (line[at] == ' ') {
            ++at;
            continue;
        }
        const std::size_t end = std::min(line.find(' ', at), line.size());
        words.push_back(line.substr(at, end - at));
        at = end;
    }
    return words;
}

bool Strip(std::string_view& text, std::string_view prefix, std::string_view suffix) {
    if (!text.starts_with(prefix) || !text.ends_with(suffix) ||
        text.size() < prefix.size() + suffix.size()) {
        return false;
    }
    text = text.substr(prefix.size(), text.size() - prefix.size() - suffix.size());
    return true;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (std::size_t at = 0;;) {
        const std::size_t end = text.find(separator, at);
        parts.push_back(text.substr(at, end == std::string_view::npos ? end : end - at));
        if (end == std::string_view::npos) return parts;
        at = end + 1;
    }
}

// "<!ELEMENT name EMPTY>", "<!ELEMENT name (#PCDATA)>" or "<!ELEMENT name (a*,b,c+)>".
bool ReadElement(Rules& rules, std::string_view line) {
    const std::vector<std::string_view> words = Words(line);
    if (words.size() != 2 || rules.Find(words[0]) != nullptr) return false;
    ElementRule rule;
    rule.name = words[0];
    std::string_view model = words[1];
    if (model == "EMPTY") {
        rule.content = Content::Empty;
    } else if (model == "(#PCDATA)") {
        rule.content = Content::Text;
    } else if (Strip(model, "(", ")")) {
        rule.content = Content::Children;
        for (std::string_view item : Split(model, ',')) {
            ChildRule child;
            if (!item.empty() && (item.back() == '*' || item.back() == '+' || item.back() == '?')) {
                child.min = item.back() == '+' ? 1 : 0;
                child.max = item.back() == '?' ? 1 : INT_MAX;
                item.remove_suffix(1);
            }
            if (item.empty() || item.find_first_of("()|#") != std::string_view::npos) return false;
            // A name met twice in one sequence would make the greedy match below wrong.
            for (const ChildRule& earlier : rule.children) {
                if (earlier.name == item) return false;
            }
            child.name = item;
            rule.children.push_back(child);
        }
    } else {
        return false;
    }
    rules.elements.push_back(std::move(rule));
    return true;
}

// "<!ATTLIST element  name TYPE #REQUIRED|#IMPLIED>" with TYPE CDATA, ID or (a|b).
bool ReadAttribute(Rules& rules, std::string_view line) {
    const std::vector<std::string_view> words = Words(line);
    if (words.size() != 4) return false;
    ElementRule* element = rules.Find(words[0]);
    if (element == nullptr) return false;
    for (const AttributeRule& existing : element->attributes) {
        if (existing.name == words[1]) return false;
    }
    AttributeRule rule;
    rule.name = words[1];
    std::string_view type = words[2];
    if (type == "CDATA") {
        rule.type = AttributeType::CData;
    } else if (type == "ID") {
        rule.type = AttributeType::Id;
    } else if (Strip(type, "(", ")")) {
        rule.type = AttributeType::Choice;
        rule.choices = Split(type, '|');
    } else {
        return false;
    }
    if (words[3] != "#REQUIRED" && words[3] != "#IMPLIED") return false;
    rule.required = words[3] == "#REQUIRED";
    element->attributes.push_back(std::move(rule));
    return true;
}

Rules ReadRules() {
    Rules rules;
    std::string_view first = kDtdLines.front();
    std::string_view last = kDtdLines.back();
    if (!Strip(first, "<!DOCTYPE ", " [") || last != "]>") return rules;
    rules.root = first;
    for (std::size_t i = 1; i + 1 < kDtdLines.size(); ++i) {
        std::string_view line = kDtdLines[i];
        if (Strip(line, "<!ELEMENT ", ">")) {
            if (!ReadElement(rules, line)) return rules;
        } else if (Strip(line, "<!ATTLIST ", ">")) {
            if (!ReadAttribute(rules, line)) return rules;
        } else {
            return rules;
        }
    }
    for (ElementRule& element : rules.elements) {
        if (element.attributes.size() > 64) return rules;  // seen as bits below
        for (ChildRule& child : element.children) {
            const ElementRule* target = rules.Find(child.name);
            if (target == nullptr) return rules;
            child.element = static_cast<std::size_t>(target - rules.elements.data());
        }
    }
    rules.usable = rules.Find(rules.root) != nullptr;
    return rules;
}

Rules& TheRules() {
    static Rules rules = ReadRules();
    return rules;
}

// --- characters

// Well-formed UTF-8 of XML 1.0 characters: tab, LF, CR, U+0020..U+D7FF,
// U+E000..U+FFFD and U+10000..U+10FFFF.
bool AllowedCharacters(std::string_view text) {
    const auto* p = reinterpret_cast<const unsigned char*>(text.data());
    const unsigned char* const end = p + text.size();
    while (p < end) {
        const unsigned char c = *p;
        if (c >= 0x20 && c < 0x80) {
            ++p;
            continue;
        }
        if (c < 0x80) {
            if (c != '\t' && c != '\n' && c != '\r') return false;
            ++p;
            continue;
        }
        int length = 0;
        std::uint32_t code = 0;
        if (c >= 0xC2 && c <= 0xDF) {
            length = 2;
            code = c & 0x1Fu;
        } else if (c >= 0xE0 && c <= 0xEF) {
            length = 3;
            code = c & 0x0Fu;
        } else if (c >= 0xF0 && c <= 0xF4) {
            length = 4;
            code = c & 0x07u;
        } else {
            return false;
        }
        if (end - p < length) return false;
        for (int i = 1; i < length; ++i) {
            if ((p[i] & 0xC0u) != 0x80u) return false;
            code = (code << 6) | (p[i] & 0x3Fu);
        }
        const bool shortest =
            (length == 3 && code >= 0x800) || (length == 4 && code >= 0x10000) || length == 2;
        const bool allowed = (code < 0xD800 || (code >= 0xE000 && code <= 0xFFFD) ||
                              (code >= 0x10000 && code <= 0x10FFFF));
        if (!shortest || !allowed) return false;
        p += length;
    }
    return true;
}

bool PlainName(std::string_view text) {
    if (text.empty()) return false;
    const auto letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    if (!letter(text[0]) && text[0] != '_') return false;
    for (const char c : text) {
        if (!letter(c) && !(c >= '0' && c <= '9') && c != '.' && c != '_' && c != '-') return false;
    }
    return true;
}

bool GoodComment(std::string_view text) {
    return text.size() <= kMaxTextBytes && text.find("--") == std::string_view::npos &&
           !text.ends_with('-') && AllowedCharacters(text);
}

// --- the walk

class Walk {
public:
    explicit Walk(Rules& rules) : rules_(rules) {}

    bool Document(const xml::Node& document) {
        bool rootSeen = false;
        for (xml::Node child = document.firstChild(); child; child = child.nextSibling()) {
            if (child.type() == xml::NodeType::Comment) {
                if (!Comment(child, 0)) return false;
                continue;
            }
            if (child.type() != xml::NodeType::Element || rootSeen || child.name() != rules_.root) {
                return false;
            }
            rootSeen = true;
            if (!Element(child, *rules_.Find(rules_.root), 1)) return false;
        }
        return rootSeen && size_ + 4096 < kMaxSerialisedBytes;
    }

private:
    bool Comment(const xml::Node& comment, int depth) {
        const std::string_view text = comment.value();
        size_ += 2 * static_cast<std::uint64_t>(std::min(depth, 64)) + 8 + text.size();
        return GoodComment(text);
    }

    bool Attributes(const xml::Node& element, const ElementRule& rule) {
        std::uint64_t seen = 0;
        for (xml::Attribute attribute = element.firstAttribute(); attribute;
             attribute = attribute.next()) {
            const std::string_view name = attribute.name();
            const std::string_view value = attribute.value();
            std::size_t index = 0;
            while (index < rule.attributes.size() && rule.attributes[index].name != name)
                ++index;
            if (index == rule.attributes.size()) return false;
            const std::uint64_t bit = std::uint64_t{1} << index;
            if ((seen & bit) != 0 || value.size() > kMaxTextBytes) return false;
            seen |= bit;
            size_ += 4 + name.size() + 6 * value.size();
            const AttributeRule& declared = rule.attributes[index];
            switch (declared.type) {
                case AttributeType::CData:
                    if (!AllowedCharacters(value)) return false;
                    break;
                case AttributeType::Choice:
                    if (std::find(declared.choices.begin(), declared.choices.end(), value) ==
                        declared.choices.end()) {
                        return false;
                    }
                    break;
                case AttributeType::Id:
                    idBytes_ += value.size() + 1;
                    if (!PlainName(value) || idBytes_ > kMaxIdBytes || !NewId(value)) return false;
                    break;
            }
        }
        for (std::size_t index = 0; index < rule.attributes.size(); ++index) {
            if (rule.attributes[index].required && (seen & (std::uint64_t{1} << index)) == 0) {
                return false;
            }
        }
        return true;
    }

    // Whether value is an ID not seen before (it is remembered).
    bool NewId(std::string_view value) {
        const auto idAt = [this](int position) {
            return idList_[static_cast<std::size_t>(position - 1)];
        };
        if (idIndex_.find(value, idAt) != 0) return false;
        idList_.push_back(value);
        idIndex_.insert(static_cast<int>(idList_.size()), idAt);
        return true;
    }

    bool TextContent(const xml::Node& element) {
        for (xml::Node child = element.firstChild(); child; child = child.nextSibling()) {
            if (child.type() != xml::NodeType::Text) return false;
            const std::string_view text = child.value();
            size_ += 6 * text.size();
            if (text.size() > kMaxTextBytes || !AllowedCharacters(text)) return false;
        }
        return true;
    }

    // Children against the declared sequence. Every item has a name of its own, so
    // taking each child into the first item that can still take it is exact.
    bool ChildContent(const xml::Node& element, const ElementRule& rule, int depth) {
        std::size_t item = 0;
        int count = 0;  // children taken into rule.children[item]
        for (xml::Node child = element.firstChild(); child; child = child.nextSibling()) {
            if (child.type() == xml::NodeType::Comment) {
                if (!Comment(child, depth)) return false;
                continue;
            }
            if (child.type() != xml::NodeType::Element) return false;
            const std::string_view name = child.name();
            while (item < rule.children.size() &&
                   (rule.children[item].name != name || count == rule.children[item].max)) {
                if (count < rule.children[item].min) return false;
                ++item;
                count = 0;
            }
            if (item == rule.children.size()) return false;
            ++count;
            if (!Element(child, rules_.elements[rule.children[item].element], depth + 1)) {
                return false;
            }
        }
        for (; item < rule.children.size(); ++item, count = 0) {
            if (count < rule.children[item].min) return false;
        }
        return true;
    }

    bool Element(const xml::Node& element, const ElementRule& rule, int depth) {
        if (depth > kMaxDepth) return false;
        // Two lines (start and end tag), each indented two spaces per level.
        const auto indent = static_cast<std::uint64_t>(std::min(depth, 64));
        size_ += 2 * (2 * indent + 1) + 2 * rule.name.size() + 5;
        if (!Attributes(element, rule)) return false;
        switch (rule.content) {
            case Content::Empty:
                return element.firstChild().empty();
            case Content::Text:
                return TextContent(element);
            case Content::Children:
                return ChildContent(element, rule, depth);
        }
        return false;
    }

    Rules& rules_;
    // The IDs seen, found by an index of their places in the list.
    std::vector<std::string_view> idList_;
    KeyIndex idIndex_;
    std::size_t idBytes_ = 0;
    std::uint64_t size_ = 0;  // more than the serialised text can take
};

}  // namespace

bool FastCheckUnderstandsDtd() {
    return TheRules().usable;
}

bool CertainlyValid(const xml::Document& document) {
    Rules& rules = TheRules();
    if (!rules.usable) return false;
    return Walk(rules).Document(document.root());
}

}  // namespace tabulon
