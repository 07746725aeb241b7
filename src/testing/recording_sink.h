// A MessageSink that records every message box in order, for tests and for the
// session tool (which also prints them as they happen through onShow).
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "support/message_sink.h"

namespace tabulon {

struct RecordedMessage {
    MessageIcon icon;
    std::string text;
    bool operator==(const RecordedMessage&) const = default;
};

class RecordingSink : public MessageSink {
public:
    // Records the message and then runs onShow with it; an empty text records
    // nothing and runs nothing.
    void Show(MessageIcon icon, std::string_view text) override;

    const std::vector<RecordedMessage>& messages() const { return messages_; }
    void clear() { messages_.clear(); }

    std::function<void(const RecordedMessage&)> onShow;

private:
    std::vector<RecordedMessage> messages_;
};

}  // namespace tabulon
