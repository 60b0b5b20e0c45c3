#pragma once

#include <Qt>
#include <cstdint>

namespace broomtide::ui {

/// What a row of the results list is.
enum class ResultsRowKind : std::uint8_t {
  section,        ///< the heading of a safety level
  candidate,      ///< one item
  details,        ///< what there is to know about the item above
  issuesHeading,  ///< how many items could not be read
  issue,          ///< one of them
  moreIssues,     ///< how many more there are
};

/// What the rows of the results list say, besides Qt's own roles. `Qt::CheckStateRole` is the
/// selection of a candidate.
enum ResultsRole {
  KindRole = Qt::UserRole,  ///< a `ResultsRowKind`
  PathRole,                 ///< the second line
  NoteRole,                 ///< the third line; what an issue or a section comes to
  SymbolRole,               ///< the name of an icon
  ToneRole,                 ///< a `Tone`, for the icon and the badge
  BadgeRole,                ///< the safety level
  WarningRole,              ///< a word about the name of a candidate, mostly empty
  SizeRole,                 ///< the size of a candidate, as people read it
  OpenRole,                 ///< whether the details are shown; can be set
  FirstRole,                ///< whether a card begins with this row
  LastRole,                 ///< whether a card ends with this row
};

}  // namespace broomtide::ui
