#pragma once

namespace quorvel::os {

/// The address of `function` in the library `file`, which is loaded from the folder of the component's own library and
/// never unloaded. Throws error -1 with the system's reason when the library cannot be loaded or lacks the function.
[[nodiscard]] void* LibraryFunction(const char* file, const char* function);

}  // namespace quorvel::os
