// Which parts of the control the session can drive yet. A command whose behaviour
// belongs to a part that has not landed answers {"error": "not yet supported: ..."};
// enabling it is a matter of switching its flag here once that part is in.
#pragma once

namespace tabulon::cli::session {

// The design-time property pages: page, page-set, page-type, page-blur, page-apply,
// page-dump and dump page.
inline constexpr bool kPropertyPagesLanded = true;

}  // namespace tabulon::cli::session
