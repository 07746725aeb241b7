// Reading the values a script writes: integers, booleans, and FIELD=VALUE
// assignments to the fields of the control's two settings records.
//
// Values: booleans are true or false (also -1 and 0; any other 16-bit integer is
// taken as it is, since the records hold 16-bit booleans in which any non-zero value
// counts as true); integers are decimal with an optional sign and must fit the
// field; strings must be in double quotes (FIELD="text").
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "control/settings_records.h"
#include "session/json_writer.h"
#include "session/script_lexer.h"
#include "view/block_report.h"

namespace tabulon::cli::session {

// A decimal integer (optional sign, digits only) within [min, max]; nullopt otherwise.
std::optional<std::int64_t> ParseInteger(std::string_view text, std::int64_t min, std::int64_t max);

// true -> -1, false -> 0, or a 16-bit integer; nullopt otherwise.
std::optional<std::int16_t> ParseBoolean(std::string_view text);

// The argument word as an integer within [min, max]; otherwise throws ScriptError
// naming the command and what the argument is.
std::int64_t IntegerArgument(std::string_view command, const Word& word, std::string_view what,
                             std::int64_t min, std::int64_t max);
std::int32_t Int32Argument(std::string_view command, const Word& word, std::string_view what);
std::int16_t Int16Argument(std::string_view command, const Word& word, std::string_view what);

// One field of a settings record. Booleans are 16-bit integer fields flagged boolean.
template <class Record>
struct RecordField {
    std::string_view name;
    bool boolean;
    std::variant<std::int16_t Record::*, std::int32_t Record::*, std::string Record::*> member;
};

// The fields in declaration order.
std::span<const RecordField<gGeneralProperty_type>> GeneralFields();
std::span<const RecordField<gButtonProperty_type>> ButtonFields();

// The record as a JSON object: booleans as true/false (non-zero is true), integers
// as numbers, strings as strings, in field order.
JsonObject RecordToJson(const gGeneralProperty_type& record);
JsonObject RecordToJson(const gButtonProperty_type& record);
// {"written", "beyond_grid", "skipped": [{"row", "col", "value", "reason", "written"}]}
JsonObject BlockReportToJson(const BlockEditReport& report);

// Reads FIELD=VALUE words into changes to apply to a record later, so that a bad
// word rejects the whole command before anything runs. Throws ScriptError naming the
// command and the bad word.
template <class Record>
using RecordChange = std::function<void(Record&)>;
std::vector<RecordChange<gGeneralProperty_type>> ParseGeneralChanges(std::string_view command,
                                                                     std::span<const Word> words);
std::vector<RecordChange<gButtonProperty_type>> ParseButtonChanges(std::string_view command,
                                                                   std::span<const Word> words);

}  // namespace tabulon::cli::session
