#include "support/failure.h"

namespace tabulon {

std::string_view MessageIconName(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Information:
            return "information";
        case MessageIcon::Critical:
            return "critical";
        case MessageIcon::Plain:
            return "plain";
    }
    return "plain";
}

std::string UnexpectedErrorText(std::string_view code) {
    return "Unexpected Error - " + std::string(code);
}

void ReportUnexpectedError(MessageSink& sink, std::string_view code) {
    sink.Critical(UnexpectedErrorText(code));
}

std::string DescribeCurrentException() {
    try {
        throw;
    } catch (const std::exception& e) {
        return e.what();
    } catch (...) {
        return "Unknown error";
    }
}

}  // namespace tabulon
