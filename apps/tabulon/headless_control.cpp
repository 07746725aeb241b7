#include "headless_control.h"

#include <fstream>
#include <iterator>

namespace tabulon::cli {

std::optional<std::string> ReadWholeFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (in.bad()) return std::nullopt;
    return bytes;
}

HeadlessControl::HeadlessControl(std::ostream& messages) {
    sink_.onShow = [&messages](const RecordedMessage& message) {
        messages << MessageIconName(message.icon) << ": " << message.text << '\n';
    };
    control_ = std::make_unique<Generic_SP_Control>(sink_, host_);
    control_->InitProperties();
    control_->Show();
}

}  // namespace tabulon::cli
