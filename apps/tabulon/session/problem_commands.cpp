// The values that need correcting and find: the control's members that walk them,
// as a host or a person at the keyboard (F9, the find bar) uses them.
#include <cstdint>
#include <string>

#include "control/control_access.h"
#include "session/command_table.h"
#include "session/script_error.h"
#include "session/session.h"
#include "session/values.h"

namespace tabulon::cli::session {

namespace {

void NextInvalid(Session& s, Args) {
    s.output().Result(s.control().NextProblem());
}

void PreviousInvalid(Session& s, Args) {
    s.output().Result(s.control().PreviousProblem());
}

FindOptions Options(const char* command, Args args) {
    FindOptions options;
    for (const Word& word : args.subspan(1)) {
        if (word.text == "whole-cell") {
            options.wholeCell = true;
        } else if (word.text == "match-case") {
            options.matchCase = true;
        } else {
            throw ScriptError(std::string(command) + ": unknown option \"" + word.text +
                              "\" (whole-cell, match-case)");
        }
    }
    return options;
}

void Find(Session& s, Args args) {
    JsonArray hits;
    for (const FindHit& hit : s.control().Find(args[0].text, Options("find", args))) {
        hits.Obj(JsonObject()
                     .Str("node", hit.nodeKey)
                     .Int("row", hit.row)
                     .Int("col", hit.col)
                     .Str("text", hit.text));
    }
    s.output().Result(hits);
}

void FindStart(Session& s, Args args) {
    s.control().StartFind(args[0].text, Options("find-start", args));
    s.output().Result(s.control().FindComplete());
}

void FindContinue(Session& s, Args args) {
    const auto nodes =
        static_cast<int>(IntegerArgument("find-continue", args[0], "NODES", 0, 1 << 30));
    const bool complete = s.control().ContinueFind(nodes);
    s.output().Result(JsonObject()
                          .Bool("complete", complete)
                          .Int("hits", static_cast<std::int64_t>(s.control().FindHits().size())));
}

void FindNext(Session& s, Args) {
    s.output().Result(s.control().FindNext());
}

void FindPrevious(Session& s, Args) {
    s.output().Result(s.control().FindPrevious());
}

void GoToHit(Session& s, Args args) {
    const auto index = static_cast<int>(IntegerArgument("go-to-hit", args[0], "N", 0, 1 << 30));
    s.output().Result(s.control().GoToFindHit(index));
}

constexpr ScriptCommand kCommands[] = {
    {"next-invalid", "",
     "Goes to the next value that needs correcting after the current cell, in the order "
     "OK finds them, across tree nodes, wrapping round (as F9); an open editor is "
     "committed first. Prints {\"result\": false} when no node shows such a value.",
     0, 0, false, NextInvalid},
    {"previous-invalid", "", "As next-invalid, backwards (as Shift+F9).", 0, 0, false,
     PreviousInvalid},
    {"find", "\"TEXT\" [whole-cell] [match-case]",
     "Searches every tree node's grid (captions and values as shown) for TEXT and prints "
     "the hits in tree order: {\"result\": [{node, row, col, text} ...]}.",
     1, 3, false, Find},
    {"find-start", "\"TEXT\" [whole-cell] [match-case]",
     "Begins find a few nodes at a time, as the find bar does on a large document: the "
     "hits of the last find are dropped. Prints whether the search is complete.",
     1, 3, false, FindStart},
    {"find-continue", "NODES",
     "Searches up to NODES more tree nodes of the search find-start began: {\"result\": "
     "{\"complete\": B, \"hits\": N}}. Until complete, find-next and find-previous go "
     "only to hits already found, without wrapping.",
     1, 1, false, FindContinue},
    {"find-next", "", "Goes to the hit of the last find after the one gone to last, wrapping.", 0,
     0, false, FindNext},
    {"find-previous", "", "As find-next, backwards.", 0, 0, false, FindPrevious},
    {"go-to-hit", "N",
     "Goes to hit N (from 0) of the last find: its node is selected and its cell made "
     "current, in view, with its editor open.",
     1, 1, false, GoToHit},
};

}  // namespace

std::span<const ScriptCommand> ProblemCommands() {
    return kCommands;
}

}  // namespace tabulon::cli::session
