// The document parsed from text, for the XML layer's tests; a parse error fails the
// test with its reason.
#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "platform/xml/xml_document.h"

namespace tabulon::xml {

inline Document Parsed(std::string_view text) {
    Document document;
    ParseError error;
    EXPECT_TRUE(document.Parse(text, &error)) << error.reason;
    return document;
}

}  // namespace tabulon::xml
