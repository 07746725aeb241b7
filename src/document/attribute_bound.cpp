#include "document/attribute_bound.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "document/dtd.h"
#include "platform/xml/markup_scanner.h"

namespace tabulon {

namespace {

struct Declarations {
    std::unordered_map<std::string_view, std::unordered_set<std::string_view>> attributes;
    std::size_t longest = 0;  // the longest attribute list of any element
};

// "<!ATTLIST element  name ...>" lines of the built-in DTD, by element.
const Declarations& TheDeclarations() {
    static const Declarations declarations = [] {
        Declarations read;
        constexpr std::string_view kPrefix = "<!ATTLIST ";
        for (std::string_view line : kDtdLines) {
            if (!line.starts_with(kPrefix)) continue;
            line.remove_prefix(kPrefix.size());
            const std::size_t elementEnd = line.find(' ');
            const std::size_t nameStart = line.find_first_not_of(' ', elementEnd);
            const std::size_t nameEnd = line.find(' ', nameStart);
            auto& names = read.attributes[line.substr(0, elementEnd)];
            names.insert(line.substr(nameStart, nameEnd - nameStart));
            read.longest = std::max(read.longest, names.size());
        }
        return read;
    }();
    return declarations;
}

std::size_t Allowed(std::string_view element) {
    const Declarations& declared = TheDeclarations();
    const auto found = declared.attributes.find(element);
    return found == declared.attributes.end() ? declared.longest : found->second.size();
}

// The attributes the parser's first complaint about tag depends on, in order.
std::vector<xml::AttributeSpan> Deciding(const xml::MarkupScanner& tag) {
    const std::vector<xml::AttributeSpan>& all = tag.attributes();
    std::unordered_map<std::string_view, std::size_t> first;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto [earlier, inserted] = first.emplace(all[i].name, i);
        if (!inserted) return {all[earlier->second], all[i]};
    }
    const auto& declared = TheDeclarations().attributes;
    const auto element = declared.find(tag.name());
    if (element == declared.end()) return {all.front()};
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!element->second.contains(all[i].name)) {
            return {all.begin(), all.begin() + static_cast<std::ptrdiff_t>(i) + 1};
        }
    }
    return all;  // cannot happen: more attributes than declared names, none repeated
}

std::size_t LineBreaks(std::string_view text, std::size_t begin, std::size_t end) {
    return static_cast<std::size_t>(std::count(text.begin() + static_cast<std::ptrdiff_t>(begin),
                                               text.begin() + static_cast<std::ptrdiff_t>(end),
                                               '\n'));
}

}  // namespace

std::optional<std::string> WithAttributesBounded(std::string_view text) {
    xml::MarkupScanner tag(text);
    for (;;) {
        const xml::MarkupScanner::Piece piece = tag.Next();
        if (piece == xml::MarkupScanner::Piece::End) return std::nullopt;
        if (piece == xml::MarkupScanner::Piece::StartTag &&
            tag.attributes().size() > Allowed(tag.name())) {
            break;
        }
    }
    std::string bounded;
    bounded.reserve(text.size());
    std::size_t copied = tag.attributes().front().begin;
    bounded.append(text.substr(0, copied));
    for (const xml::AttributeSpan& kept : Deciding(tag)) {
        bounded.append(LineBreaks(text, copied, kept.begin), '\n');
        bounded.append(text.substr(kept.begin, kept.end - kept.begin));
        bounded.push_back(' ');
        copied = kept.end;
    }
    bounded.append(LineBreaks(text, copied, tag.attributesEnd()), '\n');
    bounded.append(text.substr(tag.attributesEnd()));
    return bounded;
}

}  // namespace tabulon
