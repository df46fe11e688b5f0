#pragma once

/// What the fault shim is told and what it tells; lies in memory shared between the driver and its
/// children, so that it outlives a killed one. Plain data: the shim knows nothing of the program.
namespace faults {

enum class Mode {
    count,      ///< nothing fails
    failOnce,   ///< the chosen call fails
    failOn,     ///< the chosen call and all after it fail
    full,       ///< from the chosen call on nothing grows; a write first takes half of its bytes
    killBefore, ///< the process is killed instead of the chosen call
    killAfter,  ///< the process is killed after it; a write takes half of its bytes
    failNamed,  ///< every call whose name is `only` fails
};

struct TracedCall {
    char name[16];
    int file;       ///< descriptor; -1: the call names a path
    char path[256]; ///< of the descriptor or as given
};

struct FaultPlan {
    static constexpr long longestTrace = 2048;

    // What is wanted.
    Mode mode;
    long at; ///< the chosen call, from 1
    int error;
    char only[32];
    char folder[1024]; ///< calls on paths below count
    // What happened.
    long calls;
    TracedCall trace[longestTrace];
};

/// Exported by the shim; from `arm` on calls are counted.
using PlanFunction = FaultPlan*();
using ArmFunction = void();

} // namespace faults
