// Saving a file over the one a document came from (or a settings file) so that the
// save never destroys, redirects or silently overwrites anything.
//
// Where it writes. Only to the file at path, or to a new file in its place:
// - a symbolic link at path is followed, unless the caller knows the path was no link
//   when the file was read (expected, below): a link put there since is refused;
// - a folder, FIFO, device or socket at path is refused (nothing is written to it and
//   it is not replaced);
// - with an expected stamp (the file as it was read), the file must still be that
//   file: same device and inode, size and modification time, and when those agree the
//   same content. A file changed by another program since is refused (the other
//   program's change is not lost); a file removed since is written anew.
// - a file without any write permission bit (0444), or one the process may not write,
//   is refused, whatever the folder allows.
//
// How. A new file beside the target (".NAME.tabulon-XXXXXX"), written, given the
// target's owner, group, permissions (setuid and setgid bits included, set after the
// owner) and extended attributes (ACLs among them), sent on to the disk every few
// megabytes as it is written, flushed, then renamed over the target: the target holds
// the old or the new content whatever happens, a SIGKILL included (a large old file's
// space is freed on a thread of its own, the caller does not wait for it). When that
// cannot keep the file what it was (a target with several hard links, an owner or
// attribute the process cannot give a new file) or cannot be done (a folder where no
// file can be created or renamed: read-only, sticky), the target is rewritten in place
// instead, after a copy of its old content was written to a backup file in the
// temporary folder ($TMPDIR or /tmp); the backup is removed once the new content is
// flushed, and kept (its path in the reason) if the old content could not be put back
// after a failure. Temporary files that an earlier, killed save of the same target left
// beside it are removed first (those no process holds).
//
// Returns false and a precise reason naming the path on any refusal or failure; the
// target is then as it was.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "support/file_stamp.h"

namespace tabulon {

// Takes the content part by part; false when a part could not be written.
using PieceSink = std::function<bool(std::string_view piece)>;
// Gives the whole content to a sink, part by part, and the same bytes at every call: a
// save that has to fall back on rewriting the target in place asks again. Returns
// false when the sink refused a part.
using ContentSource = std::function<bool(const PieceSink& sink)>;

// expected: the target as it was read (nullptr: no such condition). written: when
// given, receives the stamp of the file as saved (to be the expected stamp of the
// next save).
[[nodiscard]] bool WriteFileAtomically(const std::string& path, std::string_view data,
                                       std::string* reason, const FileStamp* expected = nullptr,
                                       FileStamp* written = nullptr);

// The same, the content written as the source makes it, so that a large document is
// not held whole a second time to be saved.
[[nodiscard]] bool WriteFileAtomically(const std::string& path, const ContentSource& content,
                                       std::string* reason, const FileStamp* expected = nullptr,
                                       FileStamp* written = nullptr);

}  // namespace tabulon
