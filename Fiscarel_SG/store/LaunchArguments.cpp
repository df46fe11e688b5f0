#include "Fiscarel_SG/store/LaunchArguments.h"

#include <algorithm>

namespace fiscarel {

LaunchArguments LaunchArguments::parse(const std::vector<std::string>& arguments) {
    const auto has = [&](const char* argument) {
        return std::ranges::find(arguments, argument) != arguments.end();
    };
    return {.demo = has("-BrennickDemo"), .liechtenstein = has("-BrennickLI")};
}

} // namespace fiscarel
