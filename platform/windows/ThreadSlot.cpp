#include "platform/ThreadSlot.h"

#include <windows.h>

#include <new>

namespace quorvel::os {
namespace {

void WINAPI Destroy(void* held) { delete static_cast<ThreadSlot::Held*>(held); }

void StayLoaded() {
  HMODULE self = nullptr;
  if (::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                           reinterpret_cast<const wchar_t*>(&Destroy), &self) == 0) {
    throw std::bad_alloc();
  }
}

}  // namespace

ThreadSlot::ThreadSlot() {
  StayLoaded();
  m_index = ::FlsAlloc(&Destroy);
  if (m_index == FLS_OUT_OF_INDEXES) throw std::bad_alloc();
}

ThreadSlot::Held* ThreadSlot::Get() const noexcept { return static_cast<Held*>(::FlsGetValue(m_index)); }

void ThreadSlot::Put(std::unique_ptr<Held> held) const {
  if (::FlsSetValue(m_index, held.get()) == 0) throw std::bad_alloc();
  (void)held.release();
}

}  // namespace quorvel::os
