#pragma once

#include <cstdint>

namespace quorvel {

/// How RemarkContext::Save(false) treats unsaved changes. Any other value acts as AutoSaveOnClose.
enum class EditBehavior : std::int32_t { AutoSaveOnClose = 0, NoAutoSave = 1, PromptForSave = 2 };

}  // namespace quorvel
