// Where every message box of the control goes. An empty text shows nothing.
#pragma once

#include <string>
#include <string_view>

namespace tabulon {

enum class MessageIcon { Information, Critical, Plain };

// Text of the icon as the session tool and logs print it.
std::string_view MessageIconName(MessageIcon icon);

class MessageSink {
public:
    virtual ~MessageSink() = default;
    // Shows a modal message box. Implementations ignore an empty text (callers
    // may rely on that).
    virtual void Show(MessageIcon icon, std::string_view text) = 0;

    void Information(std::string_view text) { ShowIfAny(MessageIcon::Information, text); }
    void Critical(std::string_view text) { ShowIfAny(MessageIcon::Critical, text); }
    void Plain(std::string_view text) { ShowIfAny(MessageIcon::Plain, text); }

private:
    void ShowIfAny(MessageIcon icon, std::string_view text) {
        if (!text.empty()) Show(icon, text);
    }
};

}  // namespace tabulon
