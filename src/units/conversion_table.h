// gcolConversion: the per-thread table from conversion name to conversion code that
// turns a row's `Unit` text into the code the unit boxes take. Names match without
// regard to ASCII letter case and appear once. Codes 0..63 are the built-in
// conversions (0 = the empty name); documents add their custom units from 64 up.
//
// The table is thread_local and shared by every control on the thread: each control
// rebuilds it when created and releases it when destroyed, so the last one to do
// either decides what the others see. That sharing is intended.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/failure.h"

namespace tabulon {

// A looked-up name is not in the table.
class UnknownConversionFailure : public RuntimeFailure {
public:
    explicit UnknownConversionFailure(std::string_view name);
};

// An added name is already in the table (in any letter case).
class DuplicateConversionFailure : public RuntimeFailure {
public:
    explicit DuplicateConversionFailure(std::string_view name);
};

// The thread has no table (never built, or released).
class ConversionTableAbsentFailure : public RuntimeFailure {
public:
    ConversionTableAbsentFailure();
};

// Replaces the thread's table with a new one holding exactly the 64 built-in names,
// "" -> 0 and the catalogue's names -> 1..63, in code order.
void BuildConversionTable();

// Drops the thread's table; lookups then throw ConversionTableAbsentFailure.
// Releasing when there is no table does nothing, also once the thread's own clean-up
// has freed it (a control held in a static is destroyed during process exit, later).
void ReleaseConversionTable();

// Whether the thread has a table.
bool HasConversionTable();

// The code of name. A missing name throws UnknownConversionFailure (and adds
// nothing); no table throws ConversionTableAbsentFailure.
std::int16_t ConversionIndex(std::string_view name);

// Adds name with code. A name present in any letter case throws
// DuplicateConversionFailure; a code outside 16 bits throws OverflowFailure; no table
// throws ConversionTableAbsentFailure. Nothing is added when it throws.
void AddConversion(std::string_view name, int index);

// Every entry in insertion order, names as added; empty when there is no table.
std::vector<std::pair<std::string, std::int16_t>> ConversionEntries();

}  // namespace tabulon
