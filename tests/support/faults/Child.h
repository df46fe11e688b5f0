#pragma once

#include <functional>
#include <string>

namespace faults {

/// Runs checks of GoogleTest in a child, where they may take the process's rights and mounts away;
/// whether all held. They return the reason why they could not be made here, empty: they were.
struct ChildRun {
    bool held = false;
    bool skipped = false; ///< the reason was printed
};
ChildRun runInChild(const std::function<std::string()>& checks);

/// In a child: mounts an empty file system of this size on a folder; the reason why not.
std::string mountSmallDisk(const std::string& folder, const std::string& size);
/// In a child: makes such a file system read-only; the reason why not.
std::string makeReadOnly(const std::string& folder);
/// In a child: gives up the rights of root, to whom every file is open, and the folder with them.
std::string becomeOrdinaryUser(const std::string& folder);

} // namespace faults
