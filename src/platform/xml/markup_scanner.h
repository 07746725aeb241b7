// A light, linear reading of XML text as markup, for the checks that run before a
// full parse (character references, attribute counts). It reads what the text holds
// without judging it: it finds character data and start tags with their attributes,
// and skips comments, CDATA sections, processing instructions, declarations (a
// DOCTYPE with its internal subset, quotes and brackets respected) and end tags.
// Whatever it cannot read as an attribute ends that tag's attribute list; reading goes
// on after it. Unclosed constructs run to the end of the text.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tabulon::xml {

struct AttributeSpan {
    std::string_view name;
    std::size_t begin = 0;       // of the name
    std::size_t valueBegin = 0;  // after the opening quote
    std::size_t valueEnd = 0;    // at the closing quote
    std::size_t end = 0;         // after the closing quote
};

class MarkupScanner {
public:
    enum class Piece { Text, StartTag, End };

    explicit MarkupScanner(std::string_view text) : text_(text) {}

    // Moves to the next piece: character data between two pieces of markup (its span
    // is begin()..end()) or a start tag (name(), attributes(), attributesEnd()). End
    // once the text is read.
    Piece Next();

    std::size_t begin() const { return begin_; }
    std::size_t end() const { return end_; }
    std::string_view name() const { return name_; }
    const std::vector<AttributeSpan>& attributes() const { return attributes_; }
    // Where the last attribute read ends (after the name when there is none).
    std::size_t attributesEnd() const { return attributesEnd_; }

private:
    bool Skipped(std::string_view open, std::string_view close);
    void SkipDeclaration();
    std::string_view ReadName();
    void SkipSpace();
    void ReadStartTag();

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::string_view name_;
    std::vector<AttributeSpan> attributes_;
    std::size_t attributesEnd_ = 0;
};

}  // namespace tabulon::xml
