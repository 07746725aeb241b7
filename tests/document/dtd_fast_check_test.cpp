// The fast check may only ever answer "valid" where the validating parser agrees. Each
// test below builds many variants of one small document that uses every element and
// attribute of the DTD, and compares the check with libxml2 on the serialised text.
#include "document/dtd_fast_check.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "document/dtd.h"
#include "platform/xml/xml_document.h"
#include "platform/xml/xml_validator.h"

namespace tabulon {
namespace {

const std::string kBase = R"(<xml MeasurementUnit="METRIC">
<UnitDropCustomUnits>
<CustomUnit EUnit="therm" MUnit="GJ" EToMFactor="0.1"/>
</UnitDropCustomUnits>
<TreeStructure>
<Pnode Name="A" KeyValue="N1" ImageName="a.png" GridHeaderKey="H" GridValueKey="V" Filter="1" FilterCaption="c" FilterProperty="p">
<Cnode Name="B" KeyValue="N2" GridHeaderKey="H" Filter="0">
<Cnode Name="C" KeyValue="N3" GridHeaderKey="H" GridValueKey="W" Filter="1"/>
</Cnode>
</Pnode>
</TreeStructure>
<GridStructure>
<GridHeaders>
<GridHeader Key="H">
<ColumnHeaders>
<ColumnHeader HName="P" Width="100"/>
<ColumnHeader HName="C1"/>
</ColumnHeaders>
<RowHeaders>
<RowHeader HName="R" ControlType="UnitDrop" Height="300" Format="0" MaxLength="5" Unit="FT_TO_M" MinVal="0" MaxVal="9" ListValues="a;b"/>
</RowHeaders>
</GridHeader>
</GridHeaders>
<GridValues>
<GridValue>
<CellValues GridValueKey="V" FilterProperty="p" FilterValue="f">
<CellValue Enabled="1" Valid="1" ApplicationValidation="0">12(ft)</CellValue>
</CellValues>
</GridValue>
</GridValues>
</GridStructure>
</xml>
)";

struct Verdicts {
    bool parsed = false;
    bool fast = false;    // CertainlyValid
    bool parser = false;  // libxml2 on the serialised text behind the DTD
};

Verdicts Judge(const std::string& text) {
    Verdicts verdicts;
    xml::Document document;
    verdicts.parsed = document.Parse(text);
    if (!verdicts.parsed) return verdicts;
    verdicts.fast = CertainlyValid(document);
    verdicts.parser = xml::ValidateWithDtd(JoinWithDtd(document.Serialize())).ok;
    return verdicts;
}

// Checks every variant; returns how many the fast check accepted.
int ExpectNeverMoreLenient(const std::vector<std::string>& variants) {
    int accepted = 0;
    for (const std::string& variant : variants) {
        const Verdicts verdicts = Judge(variant);
        if (!verdicts.fast) continue;
        ++accepted;
        EXPECT_TRUE(verdicts.parser) << "the fast check accepted what the parser refuses:\n"
                                     << variant;
    }
    return accepted;
}

std::vector<std::pair<std::size_t, std::size_t>> Matches(const std::string& text,
                                                         const std::regex& pattern) {
    std::vector<std::pair<std::size_t, std::size_t>> found;
    for (auto it = std::sregex_iterator(text.begin(), text.end(), pattern);
         it != std::sregex_iterator(); ++it) {
        found.emplace_back(static_cast<std::size_t>(it->position(1)),
                           static_cast<std::size_t>(it->length(1)));
    }
    return found;
}

std::string ReplacedAt(std::string text, std::pair<std::size_t, std::size_t> span,
                       std::string_view by) {
    return text.replace(span.first, span.second, by);
}

TEST(FastValidityCheck, AcceptsTheBaseDocument) {
    ASSERT_TRUE(FastCheckUnderstandsDtd());  // it read the whole built-in DTD
    EXPECT_TRUE(Judge(kBase).fast);
    EXPECT_TRUE(Judge(kBase).parser);
}

TEST(FastValidityCheck, NeverAcceptsAnAttributeValueTheParserRefuses) {
    // Choices with and without blanks, IDs good, repeated and malformed, every kind
    // of character and escape, and byte sequences that are not UTF-8 or not XML.
    // clang-format off
    const std::vector<std::string> values = {
        "", "0", "1", "2", " 1", "1 ", "ENGLISH", "METRIC", "metric", "METRIC ", "N1", "N2",
        "1abc", "_a.b-c", "a b", "a:b", "a/b", "a#b", "a*b", "&#9;", "&#13;", "&#1;", "&#xFFFE;",
        "&#xD7FF;", "&lt;&amp;&gt;", "&quot;", "&foo;", "\xC3\xA9", "\xFF", "\xC0\x80",
        "\xE0\x80\xAF", "\xF0\x80\x80\x80", "\xED\xA0\x80", "\xEF\xBF\xBF", "\xF4\x90\x80\x80",
        "\xF0\x9F\x98\x80", "\xC3"};
    // clang-format on
    std::vector<std::string> variants;
    for (const auto& span : Matches(kBase, std::regex(R"re( \w+="([^"]*)")re"))) {
        for (const std::string& value : values)
            variants.push_back(ReplacedAt(kBase, span, value));
    }
    EXPECT_GT(ExpectNeverMoreLenient(variants), 100);
}

TEST(FastValidityCheck, NeverAcceptsContentTheParserRefuses) {
    const std::string cnode = R"(<Cnode Name="Z" KeyValue="N9" GridHeaderKey="H" Filter="0"/>)";
    const std::string cell =
        R"(<CellValue Enabled="1" Valid="1" ApplicationValidation="0">1</CellValue>)";
    const std::string unit = R"(<CustomUnit EUnit="e" MUnit="m" EToMFactor="1"/>)";
    const std::string units = "<UnitDropCustomUnits>" + unit + "</UnitDropCustomUnits>";
    const std::string column = R"(<ColumnHeader HName="x"/>)";
    const std::vector<std::string> inserts = {
        "x",         "&amp;",    "&#1;",          "&foo;",      " \t ",
        "&#32;",     "<!--c-->", "<!---->",       "<!--a-b-->", "<!--a--b-->",
        "<!--a--->", "<?pi x?>", "<![CDATA[x]]>", "<Unknown/>", cnode,
        cell,        unit,       units,           column};
    std::vector<std::string> variants;
    // After every tag: between elements, inside empty ones, around the root.
    for (std::size_t at = 0; (at = kBase.find('>', at)) != std::string::npos; ++at) {
        for (const std::string& insert : inserts) {
            variants.push_back(std::string(kBase).insert(at + 1, insert));
        }
    }
    for (const std::string& insert : inserts) {
        variants.push_back(insert + kBase);
    }
    // Inside every empty element, written with an end tag.
    const std::regex emptyTag(R"re(<(\w+)[^<>]*(/>))re");
    for (auto it = std::sregex_iterator(kBase.begin(), kBase.end(), emptyTag);
         it != std::sregex_iterator(); ++it) {
        const auto span = std::make_pair(static_cast<std::size_t>(it->position(2)), std::size_t{2});
        for (const std::string& insert : inserts) {
            variants.push_back(ReplacedAt(kBase, span, ">" + insert + "</" + it->str(1) + ">"));
        }
    }
    EXPECT_GT(ExpectNeverMoreLenient(variants), 50);
}

}  // namespace
}  // namespace tabulon
