#include "reader/ReadableFolders.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

namespace fiscarel::reader {

namespace {

constexpr std::array systemFolders{"/usr", "/lib", "/lib64", "/etc", "/var/cache/fontconfig"};

constexpr __u64 reading = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;

/// What the first version of the interface knows; all but reading is given up everywhere.
constexpr __u64 everything = (LANDLOCK_ACCESS_FS_MAKE_SYM << 1U) - 1;

/// A folder that is not there need not be read.
bool allowReading(int rules, const char* folder) {
    const int opened = open(folder, O_PATH | O_CLOEXEC);
    if (opened < 0) {
        return true;
    }
    const landlock_path_beneath_attr rule{.allowed_access = reading, .parent_fd = opened};
    const bool isAllowed =
        syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &rule, 0) == 0;
    close(opened);
    return isAllowed;
}

} // namespace

bool canBeKeptFromFolders() {
    return syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) >= 1;
}

bool readSystemFoldersOnly() {
    if (!canBeKeptFromFolders()) {
        return true;
    }
    const landlock_ruleset_attr attributes{.handled_access_fs = everything};
    const auto rules =
        static_cast<int>(syscall(SYS_landlock_create_ruleset, &attributes, sizeof attributes, 0));
    if (rules < 0) {
        return false;
    }
    bool isDone = true;
    for (const char* const folder : systemFolders) {
        isDone = isDone && allowReading(rules, folder);
    }
    // Languages may be installed elsewhere.
    if (const char* const languages =
            std::getenv("TESSDATA_PREFIX")) { // NOLINT(concurrency-mt-unsafe)
        isDone = isDone && allowReading(rules, languages);
    }
    isDone = isDone && syscall(SYS_landlock_restrict_self, rules, 0) == 0;
    close(rules);
    return isDone;
}

} // namespace fiscarel::reader
