#include "support/text.h"

namespace tabulon {

namespace {
char UpperAscii(char c) {
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}
char LowerAscii(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}
}  // namespace

std::string Trim(std::string_view text) {
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && text[begin] == ' ')
        ++begin;
    while (end > begin && text[end - 1] == ' ')
        --end;
    return std::string(text.substr(begin, end - begin));
}

std::vector<std::string> SplitList(std::string_view text, char separator) {
    std::vector<std::string> items;
    std::size_t start = 0;
    for (;;) {
        const std::size_t at = text.find(separator, start);
        if (at == std::string_view::npos) {
            items.emplace_back(text.substr(start));
            return items;
        }
        items.emplace_back(text.substr(start, at - start));
        start = at + 1;
    }
}

std::string ToUpperAscii(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        c = UpperAscii(c);
    return out;
}

std::string ToLowerAscii(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        c = LowerAscii(c);
    return out;
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (UpperAscii(a[i]) != UpperAscii(b[i])) return false;
    }
    return true;
}

std::size_t CaseInsensitiveHash::operator()(std::string_view text) const noexcept {
    // FNV-1a over the upper-cased bytes.
    std::size_t hash = 1469598103934665603ULL;
    for (char c : text) {
        hash ^= static_cast<unsigned char>(UpperAscii(c));
        hash *= 1099511628211ULL;
    }
    return hash;
}

}  // namespace tabulon
