#pragma once

namespace korv {

/// From here on the process ends with `status`, as EndProcess() does it, after "<program>: Insufficient
/// memory" on standard error, where lack of memory strikes in a function that lets no exception through.
/// Elsewhere it is a std::bad_alloc as ever, which may end in EndForLackOfMemory() too. `program` outlives
/// the process. Once, at its beginning.
void EndOnLackOfMemory(const char* program, int status);

/// Ends it so at once. Asks for no memory.
[[noreturn]] void EndForLackOfMemory() noexcept;

}  // namespace korv
