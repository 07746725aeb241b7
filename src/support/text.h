// Text rules every layer shares. Strings are UTF-8; only ASCII is folded or trimmed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

// Removes leading and trailing spaces (U+0020 only; tabs and line breaks stay).
std::string Trim(std::string_view text);

// Splits at every ";" with no trimming; empty items are kept ("a;;b" gives three
// items, "" gives one empty item).
std::vector<std::string> SplitList(std::string_view text, char separator = ';');

// ASCII-only case folding; other bytes are left as they are.
std::string ToUpperAscii(std::string_view text);
std::string ToLowerAscii(std::string_view text);

// Equality ignoring the case of ASCII letters.
bool EqualsIgnoreCase(std::string_view a, std::string_view b);

// Hash and equality functors for case-insensitive keyed tables.
struct CaseInsensitiveHash {
    std::size_t operator()(std::string_view text) const noexcept;
};
struct CaseInsensitiveEqual {
    bool operator()(std::string_view a, std::string_view b) const noexcept {
        return EqualsIgnoreCase(a, b);
    }
};

}  // namespace tabulon
