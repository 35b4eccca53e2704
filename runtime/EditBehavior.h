#pragma once

#include <cstdint>

namespace quorvel {

/// What RemarkContext::Save(false) does with unsaved changes. Any other value acts as AutoSaveOnClose.
enum class EditBehavior : std::int32_t { AutoSaveOnClose = 0, NoAutoSave = 1, PromptForSave = 2 };

}  // namespace quorvel
