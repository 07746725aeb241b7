#include "session/key_strokes.h"

#include <array>

#include "support/text.h"
#include "support/utf8.h"

namespace tabulon::cli::session {

namespace {

using keys::kEnter;
using keys::kF1;
using keys::kLineFeed;
using keys::kTab;

struct NamedKeyRow {
    std::string_view name;
    int keyCode;
    int keyAscii;
};

constexpr std::array<NamedKeyRow, 12> kNamedKeys = {{
    {"Tab", kTab, kTab},
    {"Enter", kEnter, kEnter},
    {"Space", keys::kSpace, keys::kSpace},
    {"Escape", keys::kEscape, keys::kEscape},
    {"Backspace", keys::kBackspace, keys::kBackspace},
    {"End", keys::kEnd, 0},
    {"Home", keys::kHome, 0},
    {"Left", keys::kLeft, 0},
    {"Up", keys::kUp, 0},
    {"Right", keys::kRight, 0},
    {"Down", keys::kDown, 0},
    {"Delete", keys::kDelete, 0},
}};

// Punctuation of the US layout: the character typed without and with Shift.
struct PunctuationKey {
    char plain;
    char shifted;
    int keyCode;
};

constexpr std::array<PunctuationKey, 11> kPunctuation = {{
    {';', ':', 186},
    {'=', '+', 187},
    {',', '<', 188},
    {'-', '_', 189},
    {'.', '>', 190},
    {'/', '?', 191},
    {'`', '~', 192},
    {'[', '{', 219},
    {'\\', '|', 220},
    {']', '}', 221},
    {'\'', '"', 222},
}};

constexpr std::string_view kShiftedDigits = ")!@#$%^&*(";

// The key of a printable ASCII character: key code and whether Shift is needed.
KeyStroke AsciiKey(char c) {
    if (c >= 'a' && c <= 'z') return {c - 'a' + 'A', c, 0};
    if (c >= 'A' && c <= 'Z') return {c, c, kShiftBit};
    if (c >= '0' && c <= '9') return {c, c, 0};
    if (c == ' ') return {keys::kSpace, keys::kSpace, 0};
    if (const std::size_t digit = kShiftedDigits.find(c); digit != std::string_view::npos) {
        return {'0' + static_cast<int>(digit), c, kShiftBit};
    }
    for (const PunctuationKey& key : kPunctuation) {
        if (key.plain == c) return {key.keyCode, c, 0};
        if (key.shifted == c) return {key.keyCode, c, kShiftBit};
    }
    return {0, c, 0};
}

// The character code under the modifiers held (rules in the header).
int CharacterUnder(const KeyStroke& key) {
    if (key.keyAscii == 0 || (key.shift & kAltBit) != 0) return 0;
    if (key.keyCode == kTab && (key.shift & (kShiftBit | kCtrlBit)) != 0) return 0;
    if ((key.shift & kCtrlBit) == 0) return key.keyAscii;
    if (key.keyCode == kEnter) return kLineFeed;
    if (key.keyCode >= 'A' && key.keyCode <= 'Z' && key.keyAscii < 128) {
        return key.keyCode - 'A' + 1;
    }
    return 0;
}

std::optional<KeyStroke> CharacterKey(char32_t c) {
    if (c == '\t') return KeyStroke{kTab, kTab, 0};
    if (c == '\r' || c == '\n') return KeyStroke{kEnter, kEnter, 0};
    if (c < 32 || c == 127 || c == kInvalidUtf8) return std::nullopt;
    if (c < 128) return AsciiKey(static_cast<char>(c));
    return KeyStroke{0, static_cast<int>(c), 0};
}

}  // namespace

std::optional<KeyStroke> NamedKey(std::string_view name, int modifiers) {
    std::optional<KeyStroke> key;
    for (const NamedKeyRow& row : kNamedKeys) {
        if (EqualsIgnoreCase(row.name, name)) key = KeyStroke{row.keyCode, row.keyAscii, 0};
    }
    if (!key && name.size() >= 2 && (name[0] == 'F' || name[0] == 'f')) {
        const std::string_view digits = name.substr(1);
        int number = 0;
        bool numeric = digits.size() <= 2 && digits.front() != '0';
        for (const char d : digits) {
            numeric = numeric && d >= '0' && d <= '9';
            number = number * 10 + (d - '0');
        }
        if (numeric && number >= 1 && number <= 12) key = KeyStroke{kF1 + number - 1, 0, 0};
    }
    if (!key && !name.empty()) {
        std::size_t pos = 0;
        const char32_t c = DecodeUtf8(name, pos);
        if (pos == name.size() && c >= 32 && c != 127 && c != kInvalidUtf8) key = CharacterKey(c);
    }
    if (!key) return std::nullopt;
    key->shift |= modifiers;
    key->keyAscii = CharacterUnder(*key);
    return key;
}

std::optional<int> ParseModifiers(std::span<const Word> words) {
    int modifiers = 0;
    for (const Word& word : words) {
        for (const std::string& part : SplitList(word.text, '+')) {
            if (EqualsIgnoreCase(part, "shift")) {
                modifiers |= kShiftBit;
            } else if (EqualsIgnoreCase(part, "ctrl")) {
                modifiers |= kCtrlBit;
            } else if (EqualsIgnoreCase(part, "alt")) {
                modifiers |= kAltBit;
            } else {
                return std::nullopt;
            }
        }
    }
    return modifiers;
}

std::optional<std::vector<KeyStroke>> KeysForText(std::string_view text) {
    std::vector<KeyStroke> keys;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::optional<KeyStroke> key = CharacterKey(DecodeUtf8(text, pos));
        if (!key) return std::nullopt;
        keys.push_back(*key);
    }
    return keys;
}

}  // namespace tabulon::cli::session
