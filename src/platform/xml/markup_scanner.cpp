#include "platform/xml/markup_scanner.h"

namespace tabulon::xml {

namespace {

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

}  // namespace

MarkupScanner::Piece MarkupScanner::Next() {
    while (at_ < text_.size()) {
        if (text_[at_] != '<') {
            begin_ = at_;
            const std::size_t open = text_.find('<', at_);
            at_ = end_ = open == std::string_view::npos ? text_.size() : open;
            return Piece::Text;
        }
        if (Skipped("<!--", "-->") || Skipped("<![CDATA[", "]]>") || Skipped("<?", "?>")) {
            continue;
        }
        const std::string_view rest = text_.substr(at_);
        if (rest.starts_with("<!")) {
            SkipDeclaration();
        } else if (rest.starts_with("</")) {
            const std::size_t close = text_.find('>', at_);
            at_ = close == std::string_view::npos ? text_.size() : close + 1;
        } else {
            begin_ = at_++;
            ReadStartTag();
            end_ = at_;
            return Piece::StartTag;
        }
    }
    return Piece::End;
}

bool MarkupScanner::Skipped(std::string_view open, std::string_view close) {
    if (!text_.substr(at_).starts_with(open)) return false;
    const std::size_t end = text_.find(close, at_ + open.size());
    at_ = end == std::string_view::npos ? text_.size() : end + close.size();
    return true;
}

void MarkupScanner::SkipDeclaration() {
    int depth = 0;
    char quote = 0;
    for (at_ += 2; at_ < text_.size(); ++at_) {
        const char c = text_[at_];
        if (quote != 0) {
            if (c == quote) quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '[') {
            ++depth;
        } else if (c == ']') {
            --depth;
        } else if (c == '>' && depth <= 0) {
            ++at_;
            return;
        }
    }
}

std::string_view MarkupScanner::ReadName() {
    const std::size_t begin = at_;
    while (at_ < text_.size()) {
        const char c = text_[at_];
        if (IsSpace(c) || c == '=' || c == '/' || c == '>' || c == '<') break;
        ++at_;
    }
    return text_.substr(begin, at_ - begin);
}

void MarkupScanner::SkipSpace() {
    while (at_ < text_.size() && IsSpace(text_[at_]))
        ++at_;
}

void MarkupScanner::ReadStartTag() {
    attributes_.clear();
    name_ = ReadName();
    attributesEnd_ = at_;
    for (;;) {
        SkipSpace();
        AttributeSpan attribute;
        attribute.begin = at_;
        attribute.name = ReadName();
        if (attribute.name.empty()) break;
        SkipSpace();
        if (at_ >= text_.size() || text_[at_] != '=') break;
        ++at_;
        SkipSpace();
        if (at_ >= text_.size() || (text_[at_] != '"' && text_[at_] != '\'')) break;
        const std::size_t close = text_.find(text_[at_], at_ + 1);
        if (close == std::string_view::npos) break;
        attribute.valueBegin = at_ + 1;
        attribute.valueEnd = close;
        at_ = attribute.end = attributesEnd_ = close + 1;
        attributes_.push_back(attribute);
    }
    // The rest of the tag up to its ">" (outside quotes), or whatever stopped the list.
    const std::size_t close = text_.find_first_of("<>", at_);
    if (close == std::string_view::npos) {
        at_ = text_.size();
    } else if (text_[close] == '>') {
        at_ = close + 1;
    } else {
        at_ = close;
    }
}

}  // namespace tabulon::xml
