#include "testing/recording_sink.h"

#include "platform/observable.h"

namespace tabulon {

void RecordingSink::Show(MessageIcon icon, std::string_view text) {
    if (text.empty()) return;
    messages_.push_back(RecordedMessage{icon, std::string(text)});
    // Hand the handler its own copy: it may clear() the record while it runs.
    const RecordedMessage shown = messages_.back();
    Raise(onShow, shown);
}

}  // namespace tabulon
