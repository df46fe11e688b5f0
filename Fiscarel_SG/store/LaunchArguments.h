#pragma once

#include <string>
#include <vector>

namespace fiscarel {

/// What the command line asks for.
struct LaunchArguments {
    bool demo = false;          ///< "-BrennickDemo": an invented household, nothing is read or kept
    bool liechtenstein = false; ///< "-BrennickLI": the demo household of Liechtenstein

    static LaunchArguments parse(const std::vector<std::string>& arguments);
};

} // namespace fiscarel
