// QtClipboard: the desktop's clipboard for the control. A copy puts its cells there as
// text/plain and text/html together; a paste reads text/plain.
#pragma once

#include "platform/clipboard.h"

namespace tabulon {

class QtClipboard : public Clipboard {
public:
    void Put(const ClipboardContent& content) override;
    std::string Text() const override;
};

}  // namespace tabulon
