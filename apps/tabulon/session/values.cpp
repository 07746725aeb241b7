#include "session/values.h"

#include <array>
#include <charconv>
#include <limits>
#include <string>

#include "session/script_error.h"
#include "support/text.h"

namespace tabulon::cli::session {

namespace {

using G = gGeneralProperty_type;
using B = gButtonProperty_type;

const std::array<RecordField<G>, 9> kGeneralFields = {{
    {"lngTreeViewWidth", false, &G::lngTreeViewWidth},
    {"lngTreeViewStyle", false, &G::lngTreeViewStyle},
    {"blnFilterVisible", true, &G::blnFilterVisible},
    {"strFilterCaption", false, &G::strFilterCaption},
    {"strFilterLabel", false, &G::strFilterLabel},
    {"blnAllowBigSelection", true, &G::blnAllowBigSelection},
    {"intScrollBars", false, &G::intScrollBars},
    {"lngRowHeightMin", false, &G::lngRowHeightMin},
    {"lngColWidthMin", false, &G::lngColWidthMin},
}};

const std::array<RecordField<B>, 9> kButtonFields = {{
    {"blnPrintVisible", true, &B::blnPrintVisible},
    {"blnOKVisible", true, &B::blnOKVisible},
    {"blnCancelVisible", true, &B::blnCancelVisible},
    {"blnHelpVisible", true, &B::blnHelpVisible},
    {"blnDefaultPos", true, &B::blnDefaultPos},
    {"lngPrintLeft", false, &B::lngPrintLeft},
    {"lngOKLeft", false, &B::lngOKLeft},
    {"lngCancelLeft", false, &B::lngCancelLeft},
    {"lngHelpLeft", false, &B::lngHelpLeft},
}};

template <class Record>
JsonObject ToJson(const Record& record, std::span<const RecordField<Record>> fields) {
    JsonObject object;
    for (const RecordField<Record>& field : fields) {
        if (const auto* small = std::get_if<std::int16_t Record::*>(&field.member)) {
            if (field.boolean) {
                object.Bool(field.name, record.*(*small) != 0);
            } else {
                object.Int(field.name, record.*(*small));
            }
        } else if (const auto* large = std::get_if<std::int32_t Record::*>(&field.member)) {
            object.Int(field.name, record.*(*large));
        } else {
            object.Str(field.name, record.*std::get<std::string Record::*>(field.member));
        }
    }
    return object;
}

template <class Record>
RecordChange<Record> ParseChange(std::string_view command, const Word& word,
                                 std::span<const RecordField<Record>> fields) {
    const std::size_t equals = word.text.find('=');
    if (equals == std::string::npos || equals == 0 || equals >= word.quotedFrom) {
        throw ScriptError(std::string(command) + ": expected FIELD=VALUE, got \"" + word.text +
                          "\"");
    }
    const std::string name = word.text.substr(0, equals);
    const std::string value = word.text.substr(equals + 1);
    const bool quoted = word.quotedFrom == equals + 1;
    const auto bad = [&](std::string_view expected) {
        return ScriptError(std::string(command) + ": " + name + " takes " + std::string(expected) +
                           ", got \"" + value + "\"");
    };
    for (const RecordField<Record>& field : fields) {
        if (field.name != name) continue;
        if (const auto* member = std::get_if<std::string Record::*>(&field.member)) {
            if (!quoted) throw bad("a string in double quotes");
            return [member = *member, value](Record& r) { r.*member = value; };
        }
        if (quoted) throw bad(field.boolean ? "true or false" : "an integer");
        if (const auto* member = std::get_if<std::int16_t Record::*>(&field.member)) {
            const std::optional<std::int64_t> number =
                field.boolean ? std::optional<std::int64_t>(ParseBoolean(value))
                              : ParseInteger(value, std::numeric_limits<std::int16_t>::min(),
                                             std::numeric_limits<std::int16_t>::max());
            if (!number) throw bad(field.boolean ? "true or false" : "a 16-bit integer");
            const auto v = static_cast<std::int16_t>(*number);
            return [member = *member, v](Record& r) { r.*member = v; };
        }
        const auto member = std::get<std::int32_t Record::*>(field.member);
        const std::optional<std::int64_t> number =
            ParseInteger(value, std::numeric_limits<std::int32_t>::min(),
                         std::numeric_limits<std::int32_t>::max());
        if (!number) throw bad("a 32-bit integer");
        const auto v = static_cast<std::int32_t>(*number);
        return [member, v](Record& r) { r.*member = v; };
    }
    throw ScriptError(std::string(command) + ": unknown field \"" + name + "\"");
}

template <class Record>
std::vector<RecordChange<Record>> ParseChanges(std::string_view command,
                                               std::span<const Word> words,
                                               std::span<const RecordField<Record>> fields) {
    std::vector<RecordChange<Record>> changes;
    for (const Word& word : words)
        changes.push_back(ParseChange(command, word, fields));
    return changes;
}

}  // namespace

std::optional<std::int64_t> ParseInteger(std::string_view text, std::int64_t min,
                                         std::int64_t max) {
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (text.empty() || text.front() < '0' || text.front() > '9') return std::nullopt;
    }
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    if (value < min || value > max) return std::nullopt;
    return value;
}

std::optional<std::int16_t> ParseBoolean(std::string_view text) {
    if (EqualsIgnoreCase(text, "true")) return kTrue;
    if (EqualsIgnoreCase(text, "false")) return kFalse;
    const std::optional<std::int64_t> number = ParseInteger(
        text, std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max());
    if (!number) return std::nullopt;
    return static_cast<std::int16_t>(*number);
}

std::int64_t IntegerArgument(std::string_view command, const Word& word, std::string_view what,
                             std::int64_t min, std::int64_t max) {
    const std::optional<std::int64_t> number = ParseInteger(word.text, min, max);
    if (!number) {
        throw ScriptError(std::string(command) + ": " + std::string(what) +
                          " must be an integer from " + std::to_string(min) + " to " +
                          std::to_string(max) + ", got \"" + word.text + "\"");
    }
    return *number;
}

std::int32_t Int32Argument(std::string_view command, const Word& word, std::string_view what) {
    return static_cast<std::int32_t>(IntegerArgument(command, word, what,
                                                     std::numeric_limits<std::int32_t>::min(),
                                                     std::numeric_limits<std::int32_t>::max()));
}

std::int16_t Int16Argument(std::string_view command, const Word& word, std::string_view what) {
    return static_cast<std::int16_t>(IntegerArgument(command, word, what,
                                                     std::numeric_limits<std::int16_t>::min(),
                                                     std::numeric_limits<std::int16_t>::max()));
}

std::span<const RecordField<G>> GeneralFields() {
    return kGeneralFields;
}
std::span<const RecordField<B>> ButtonFields() {
    return kButtonFields;
}

JsonObject RecordToJson(const G& record) {
    return ToJson(record, GeneralFields());
}
JsonObject RecordToJson(const B& record) {
    return ToJson(record, ButtonFields());
}

std::vector<RecordChange<G>> ParseGeneralChanges(std::string_view command,
                                                 std::span<const Word> words) {
    return ParseChanges(command, words, GeneralFields());
}

std::vector<RecordChange<B>> ParseButtonChanges(std::string_view command,
                                                std::span<const Word> words) {
    return ParseChanges(command, words, ButtonFields());
}

JsonObject BlockReportToJson(const BlockEditReport& report) {
    JsonArray skipped;
    for (const SkippedCell& cell : report.skipped) {
        skipped.Obj(JsonObject()
                        .Int("row", cell.row)
                        .Int("col", cell.col)
                        .Str("value", cell.value)
                        .Str("reason", cell.reason)
                        .Bool("written", cell.written));
    }
    return JsonObject()
        .Int("written", report.written)
        .Int("beyond_grid", report.beyondGrid)
        .Arr("skipped", skipped);
}

}  // namespace tabulon::cli::session
