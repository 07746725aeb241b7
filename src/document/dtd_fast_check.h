// A quick, conservative check that a parsed document would pass the validating parse,
// so that loading can skip that parse (the costliest stage of a load by far) for the
// documents hosts really send.
//
// Loading validates the serialised document behind the built-in DTD. CertainlyValid
// walks the document model once, against rules read from the built-in DTD's own lines,
// and answers true only when every check the validating parser makes on that text is
// certain to pass; then no message can come from the parse and skipping it changes
// nothing. Everything else answers false and the caller runs the validating parse as
// before, which gives the exact message. So the check may refuse documents the parser
// would accept (that only costs time), never the other way round.
//
// Decisions (each keeps the check on the safe side of the parser):
// - Elements and attributes must be declared; required attributes present, none twice;
//   enumerated values exactly one of the choices (no blanks to normalise away); ID
//   values plain ASCII names ([A-Za-z_][A-Za-z0-9._-]*) and unique; children in the
//   declared order and counts; text only in (#PCDATA) elements; EMPTY elements without
//   any child.
// - Comments are allowed between elements (not in EMPTY or text elements) and around
//   the root when they hold no "--" and do not end in "-". Processing instructions,
//   CDATA sections, a declaration, a DOCTYPE or text outside the root: false.
// - All text, attribute values and comments must be well-formed UTF-8 of characters
//   XML 1.0 allows, each at most 1,000,000 bytes (the parser stops at 10,000,000);
//   nesting at most 200 levels (it stops at 256); ID values 4,000,000 bytes in all
//   (its name dictionary stops at 10,000,000); and the serialised text certainly
//   shorter than 1 GiB (the validator refuses texts beyond 2 GiB).
// - When the DTD lines use anything beyond the simple forms this check reads
//   (sequences of distinct names with ?, * or +, EMPTY, (#PCDATA), CDATA/ID/enumerated
//   attributes, #REQUIRED/#IMPLIED), it answers false for every document.
#pragma once

#include "platform/xml/xml_document.h"

namespace tabulon {

// True only when validating document.Serialize() behind the built-in DTD certainly
// succeeds; false when that is not certain (also for an empty document).
bool CertainlyValid(const xml::Document& document);

// False when the built-in DTD uses a form CertainlyValid does not read (it then
// answers false for every document).
bool FastCheckUnderstandsDtd();

}  // namespace tabulon
