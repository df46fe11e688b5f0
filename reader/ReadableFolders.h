#pragma once

namespace fiscarel::reader {

/// From now on this process reads nothing but programs, libraries, fonts, languages and settings of
/// the system, and what stands open: not the files of users. Without effect on a kernel that does
/// not know how; false when a kernel that does refuses.
bool readSystemFoldersOnly();

/// Whether the kernel knows how.
bool canBeKeptFromFolders();

} // namespace fiscarel::reader
