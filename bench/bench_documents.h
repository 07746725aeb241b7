// The generated documents every benchmark runs on, made once per process (and, when
// --tabulon_documents=DIR is given, also written to DIR so that compare.sh measures
// the command-line tool and xmllint on the very same bytes).
#pragma once

#include <string>
#include <vector>

#include "generator/document_generator.h"

namespace tabulon::bench {

// The load-path documents: about 1, 10 and 50 MB (2^20 bytes), Metric, with custom
// units, 10 value columns x 20 rows per grid, a tree four levels deep.
inline constexpr int kLoadSizesMb[] = {1, 10, 50};
GeneratedDocumentShape LoadShape(int megabytes);

// The shape with as many keys as make its text about megabytes MB.
GeneratedDocumentShape SizedShape(GeneratedDocumentShape shape, int megabytes);

// The text of LoadShape(megabytes), made once.
const std::string& LoadDocumentOfSize(int megabytes);
// The same text behind the built-in DTD, as the validating parser reads it.
const std::string& DtdPrefixedDocumentOfSize(int megabytes);
// A file holding LoadDocumentOfSize(megabytes): in the --tabulon_documents folder when
// one was given, else in a temporary folder removed at exit.
const std::string& LoadFileOfSize(int megabytes);

// Takes --tabulon_documents=DIR out of the arguments (before Google Benchmark sees
// them) and, when present, writes every load document and its DTD-prefixed copy
// there as generated_<N>mb.xml and generated_<N>mb_dtd.xml.
void TakeDocumentFolderArgument(int& argc, char** argv);

// The smallest key count whose generated tree has at least treeNodes nodes.
int KeysForTreeNodes(GeneratedDocumentShape shape, int treeNodes);

}  // namespace tabulon::bench
