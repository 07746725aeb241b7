// Clipboard: where the control puts copied cells and finds cells to paste. A block
// goes on it in two forms at once, tab-separated text and an HTML table, so that
// spreadsheets keep the cells apart; pasting reads the text.
//
// The control starts with a clipboard of its own (MemoryClipboard), which tests and
// the session tool use; a front end hands it the desktop's (the Qt widget does).
#pragma once

#include <string>

namespace tabulon {

struct ClipboardContent {
    std::string text;  // text/plain
    std::string html;  // text/html; may be empty
};

class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual void Put(const ClipboardContent& content) = 0;
    virtual std::string Text() const = 0;
};

class MemoryClipboard : public Clipboard {
public:
    void Put(const ClipboardContent& content) override { content_ = content; }
    std::string Text() const override { return content_.text; }
    const ClipboardContent& content() const { return content_; }

private:
    ClipboardContent content_;
};

}  // namespace tabulon
